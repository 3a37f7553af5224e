#include "nodemap/NodeMapXml.h"

#include "description/FeatureListing.h"
#include "nodemap/FormulaGuard.h"
#include "validation/DescriptionCheck.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

namespace zqcameralib {

namespace {

struct StringWriter : pugi::xml_writer {
    std::string text;
    void write(const void* data, std::size_t size) override
    {
        text.append(static_cast<const char*>(data), size);
    }
};

/// What becomes of an element.
struct Rule {
    enum What { Text, Reference, Length, Element };
    What what = Text;
    bool isOnce = true; ///< of several, only one has a meaning
};

/// The rule for an element; null for those that evaluating does not need.
const Rule* ruleFor(std::string_view tag)
{
    static const std::unordered_map<std::string_view, Rule> rules = [] {
        std::unordered_map<std::string_view, Rule> all;
        for (const char* text :
            { "Value", "Length", "Min", "Max", "Inc", "Representation", "OnValue", "OffValue",
                "Formula", "FormulaTo", "FormulaFrom", "AccessMode", "ImposedAccessMode",
                "Cachable", "Endianess", "Sign", "LSB", "MSB", "Bit", "CommandValue", "ChunkID",
                "EventID", "ValueDefault", "IsLinear", "Slope", "NumericValue" }) {
            all[text] = { Rule::Text, true };
        }
        for (const char* text : { "Address", "Constant", "Expression", "ValueIndexed" }) {
            all[text] = { Rule::Text, false };
        }
        for (const char* reference : { "pValue", "pMin", "pMax", "pInc", "pIsImplemented",
                 "pIsAvailable", "pIsLocked", "pPort", "pCommandValue", "pValueDefault" }) {
            all[reference] = { Rule::Reference, true };
        }
        for (const char* reference : { "pAddress", "pIndex", "pVariable", "pValueIndexed" }) {
            all[reference] = { Rule::Reference, false };
        }
        for (const char* element : { "EnumEntry", "IntSwissKnife", "SwissKnife" }) {
            all[element] = { Rule::Element, false };
        }
        all["pLength"] = { Rule::Length, true };
        return all;
    }();
    const auto found = rules.find(tag);
    return found == rules.end() ? nullptr : &found->second;
}

bool isFormula(std::string_view tag)
{
    return tag == "Formula" || tag == "FormulaTo" || tag == "FormulaFrom" || tag == "Expression";
}

FormulaKind formulaKind(std::string_view owner)
{
    return owner == "IntSwissKnife" ? FormulaKind::IntegerNode
        : owner == "IntConverter"   ? FormulaKind::IntegerConverter
                                    : FormulaKind::Float;
}

class Writer {
public:
    explicit Writer(const Description& description)
        : m_description(description)
    {
        m_root = m_document.append_child("RegisterDescription");
        for (const pugi::xml_attribute& attribute : description.root().attributes()) {
            if (std::string_view(attribute.name()).substr(0, 6) == "Schema") {
                m_root.append_copy(attribute);
            }
        }
    }

    std::string write()
    {
        const std::vector<bool> needed = neededNodes();
        for (std::size_t i = 0; i < needed.size(); ++i) {
            if (needed[i]) {
                writeNode(m_description.node(i));
            }
        }
        StringWriter writer;
        m_document.print(writer, "", pugi::format_raw | pugi::format_no_declaration);
        return std::move(writer.text);
    }

private:
    bool canBeEvaluated(std::size_t node) const
    {
        return node != Description::absent && !m_description.node(node).isBroken();
    }

    /// The features and all that evaluating them may visit.
    std::vector<bool> neededNodes() const
    {
        std::vector<bool> needed(m_description.nodes().size(), false);
        std::vector<std::size_t> pending;
        const auto add = [&](std::size_t node) {
            if (canBeEvaluated(node) && !needed[node]) {
                needed[node] = true;
                pending.push_back(node);
            }
        };
        add(m_description.find("TLParamsLocked"));
        for (const ListedNode& entry : listFeatures(m_description)) {
            if (!entry.isCategory) {
                add(entry.node);
            }
        }
        while (!pending.empty()) {
            const DescriptionNode& node = m_description.node(pending.back());
            pending.pop_back();
            for (const Reference& reference : node.references) {
                const Rule* rule = ruleFor(reference.tag);
                if (reference.tag == "pOffset"
                    || (rule != nullptr && rule->what != Rule::Element)) {
                    add(reference.target);
                }
            }
        }
        return needed;
    }

    void writeNode(const DescriptionNode& node)
    {
        if (node.kind == "StructEntry") {
            writeStruct(node);
        } else if (!isInsideAnother(node.element)) {
            copyElement(node.element, m_root);
        }
    }

    /// Formulas may stand within the register whose address they give.
    static bool isInsideAnother(const pugi::xml_node& element)
    {
        const std::string_view parent = element.parent().name();
        return parent != "RegisterDescription" && parent != "Group" && parent != "StructReg";
    }

    /// A register with several entries is written once, with the entries that are needed.
    void writeStruct(const DescriptionNode& entry)
    {
        const pugi::xml_node source = entry.element.parent();
        pugi::xml_node& target = m_structs[source.hash_value()];
        if (!target) {
            target = m_root.append_child("StructReg");
            copyChildren(source, target);
        }
        copyElement(entry.element, target);
    }

    void copyElement(const pugi::xml_node& source, pugi::xml_node& parent)
    {
        pugi::xml_node target = parent.append_child(source.name());
        target.append_attribute("Name") = source.attribute("Name").value();
        copyChildren(source, target);
        if (source.name() == std::string_view("MaskedIntReg") && sharesReadableRegister(source)) {
            target.child("AccessMode").text() = "RW";
        }
    }

    /// Bits that can only be written are written together with the register's other bits, which
    /// have to be read first: the node map would take zeros for them.
    bool sharesReadableRegister(const pugi::xml_node& source)
    {
        if (childText(source, "AccessMode") != "WO" || childText(source, "Address").empty()) {
            return false;
        }
        if (m_readable.empty()) {
            for (const DescriptionNode& node : m_description.nodes()) {
                const std::string_view mode = childText(node.element, "AccessMode");
                if (mode == "RW" || mode == "RO") {
                    m_readable.insert(childText(node.element, "Address"));
                }
            }
        }
        return m_readable.count(childText(source, "Address")) != 0;
    }

    void copyChildren(const pugi::xml_node& source, pugi::xml_node& target)
    {
        std::vector<const Rule*> written;
        for (const pugi::xml_node& child : source.children()) {
            const Rule* rule = ruleFor(child.name());
            if (rule == nullptr || (rule->isOnce && isAmong(written, rule))) {
                continue; // of several, the first counts here and the last below
            }
            written.push_back(rule);
            copyChild(*rule, child, target);
        }
    }

    static bool isAmong(const std::vector<const Rule*>& rules, const Rule* rule)
    {
        return std::find(rules.begin(), rules.end(), rule) != rules.end();
    }

    void copyChild(const Rule& rule, const pugi::xml_node& child, pugi::xml_node& target)
    {
        const std::string_view tag = child.name();
        switch (rule.what) {
        case Rule::Text:
            if (tag != "Length" || !child.parent().child("pLength")) {
                copyText(child, target);
            }
            break;
        case Rule::Reference:
            copyReference(child, target);
            break;
        case Rule::Length:
            copyLength(child.parent().name(), child, target);
            break;
        case Rule::Element:
            if (tag != "EnumEntry" || child.child("Value")) {
                copyElement(child, target);
            }
            break;
        }
    }

    static pugi::xml_node copyShell(const pugi::xml_node& source, pugi::xml_node& parent)
    {
        pugi::xml_node target = parent.append_child(source.name());
        for (const char* name : { "Name", "Offset", "Index" }) {
            if (const pugi::xml_attribute attribute = source.attribute(name)) {
                target.append_copy(attribute);
            }
        }
        return target;
    }

    void copyText(const pugi::xml_node& source, pugi::xml_node& parent)
    {
        pugi::xml_node target = copyShell(source, parent);
        const std::string text(elementText(source));
        if (!isFormula(source.name())) {
            target.text() = text.c_str();
            return;
        }
        target.text() = guardDivisions(text, formulaKind(source.parent().name())).c_str();
    }

    /// A limit or a condition that cannot be evaluated is dropped: the feature is then unlimited,
    /// implemented, available or unlocked as far as the description can tell.
    void copyReference(const pugi::xml_node& source, pugi::xml_node& parent)
    {
        const std::string name(elementText(source));
        if (!canBeEvaluated(m_description.find(name))) {
            return;
        }
        pugi::xml_node target = copyShell(source, parent);
        target.text() = name.c_str();
        if (const pugi::xml_attribute offset = source.attribute("pOffset")) {
            target.append_copy(offset);
        }
    }

    /// The camera tells the length of a text, and the node map would ask for that much memory.
    void copyLength(std::string_view kind, const pugi::xml_node& source, pugi::xml_node& parent)
    {
        const std::string name(elementText(source));
        const std::size_t target = m_description.find(name);
        if (!canBeEvaluated(target)) {
            return;
        }
        if (kind != "StringReg" && kind != "Register") {
            const pugi::xml_node fixed = m_description.node(target).element.child("Value");
            parent.append_child("Length").text() = std::string(elementText(fixed)).c_str();
            return;
        }
        std::string& guard = m_lengths[name];
        if (guard.empty()) {
            guard = "ZQLength" + std::to_string(m_lengths.size());
            pugi::xml_node knife = m_root.append_child("IntSwissKnife");
            knife.append_attribute("Name") = guard.c_str();
            pugi::xml_node variable = knife.append_child("pVariable");
            variable.append_attribute("Name") = "L";
            variable.text() = name.c_str();
            const std::string most = std::to_string(maxRegisterLength);
            knife.append_child("Formula").text()
                = ("(L<0)?0:((L>" + most + ")?" + most + ":L)").c_str();
        }
        parent.append_child("pLength").text() = guard.c_str();
    }

    const Description& m_description;
    pugi::xml_document m_document;
    pugi::xml_node m_root;
    std::unordered_map<std::size_t, pugi::xml_node> m_structs;
    std::unordered_map<std::string, std::string> m_lengths;
    std::unordered_set<std::string_view> m_readable; ///< addresses of registers that can be read
};

} // namespace

std::string nodeMapXml(const Description& description)
{
    return Writer(description).write();
}

} // namespace zqcameralib
