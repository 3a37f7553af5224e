#include "nodemap/NodeMapXml.h"

#include "description/FeatureListing.h"
#include "description/ReferenceWalk.h"
#include "description/RegisterPlace.h"
#include "nodemap/ElementRule.h"
#include "nodemap/FormulaGuard.h"

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

FormulaKind formulaKind(NodeKind owner)
{
    return owner == NodeKind::IntSwissKnife ? FormulaKind::IntegerNode
        : owner == NodeKind::IntConverter   ? FormulaKind::IntegerConverter
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
        NodeWalk walk(m_description.nodes().size());
        const auto need = [&](std::size_t node) {
            if (canBeEvaluated(node)) {
                walk.reach(node);
            }
        };
        need(m_description.find("TLParamsLocked"));
        for (const ListedNode& listed : listFeatures(m_description)) {
            if (!listed.isCategory) {
                need(listed.node);
            }
        }
        walk.run(
            [&](std::size_t node) { m_description.node(node).forEachTarget(isEvaluated, need); });
        return walk.isReached();
    }

    void writeNode(const DescriptionNode& node)
    {
        if (node.kind == NodeKind::StructEntry) {
            writeStruct(node);
        } else if (isContainer(nodeKind(node.element.parent().name()))) {
            copyElement(node.element, m_root); // formulas may stand within a register
        }
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
        if (nodeKind(source.name()) == NodeKind::MaskedIntReg && sharesReadableRegister(source)) {
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
        std::vector<std::string_view> written;
        for (const pugi::xml_node& child : source.children()) {
            const std::string_view name = child.name();
            const ElementRule rule = elementRule(name);
            if (rule.isOnce && std::find(written.begin(), written.end(), name) != written.end()) {
                continue; // of several, the first counts here and the last below
            }
            written.push_back(name);
            copyChild(rule.use, child, target);
        }
    }

    void copyChild(ElementRule::Use use, const pugi::xml_node& child, pugi::xml_node& target)
    {
        switch (use) {
        case ElementRule::Use::None:
            break;
        case ElementRule::Use::Text:
            copyText(child, target);
            break;
        case ElementRule::Use::Formula:
            copyFormula(child, target);
            break;
        case ElementRule::Use::Reference:
            copyReference(child, target);
            break;
        case ElementRule::Use::Length:
            copyLength(nodeKind(child.parent().name()), child, target);
            break;
        case ElementRule::Use::Element:
            if (child.name() != std::string_view("EnumEntry") || child.child("Value")) {
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

    /// Where a reference tells the length, a number does not count.
    void copyText(const pugi::xml_node& source, pugi::xml_node& parent)
    {
        if (source.name() != std::string_view("Length") || !source.parent().child("pLength")) {
            copyShell(source, parent).text() = std::string(elementText(source)).c_str();
        }
    }

    void copyFormula(const pugi::xml_node& source, pugi::xml_node& parent)
    {
        const FormulaKind kind = formulaKind(nodeKind(source.parent().name()));
        copyShell(source, parent).text() = guardDivisions(elementText(source), kind).c_str();
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

    void copyLength(NodeKind kind, const pugi::xml_node& source, pugi::xml_node& parent)
    {
        const std::string name(elementText(source));
        const std::size_t target = m_description.find(name);
        if (!canBeEvaluated(target)) {
            return;
        }
        if (isByteRegister(kind)) {
            parent.append_child("pLength").text() = guardedLength(name).c_str();
            return;
        }
        const pugi::xml_node fixed = m_description.node(target).element.child("Value");
        parent.append_child("Length").text() = std::string(elementText(fixed)).c_str();
    }

    /// The camera tells the length of a text, and the node map would ask for that much memory: the
    /// name of a node that keeps it within bounds.
    const std::string& guardedLength(const std::string& name)
    {
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
        return guard;
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
