#include "validation/DescriptionCheck.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <initializer_list>

namespace zqcameralib {

namespace {

// Real descriptions reach 28,686 elements in 6 levels, chains of 40 nodes, and 24,000 visits of
// nodes to evaluate one feature.
constexpr std::size_t maxElements = 400000;
constexpr int maxElementDepth = 32;
constexpr std::uint64_t maxCost = 100000;
constexpr std::uint64_t maxTotalCost = 2000000;
constexpr std::uint32_t maxChain = 400;
constexpr std::size_t maxFormulaLength = 20000;
constexpr std::size_t maxNameLength = 1000;

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> list)
{
    return std::find(list.begin(), list.end(), text) != list.end();
}

bool hasNumber(std::string_view kind)
{
    return isOneOf(kind,
        { "Integer", "IntReg", "MaskedIntReg", "StructEntry", "IntSwissKnife", "IntConverter",
            "Float", "FloatReg", "SwissKnife", "Converter", "Boolean", "Enumeration" });
}

bool hasValue(std::string_view kind)
{
    return hasNumber(kind) || isOneOf(kind, { "String", "StringReg", "Register", "Command" });
}

/// Text of an integer as descriptions write it; false for anything else.
bool parseInteger(std::string_view text, std::int64_t& value)
{
    const std::string copy(text);
    char* end = nullptr;
    value = std::strtoll(copy.c_str(), &end, 0);
    return !copy.empty() && *end == '\0';
}

/// An integer child: `fallback` when absent; -1 when it is no number.
std::int64_t integerChild(const pugi::xml_node& element, const char* tag, std::int64_t fallback)
{
    std::int64_t value = 0;
    if (!element.child(tag)) {
        return fallback;
    }
    return parseInteger(childText(element, tag), value) ? value : -1;
}

bool isPossibleLength(std::string_view kind, std::int64_t length)
{
    if (kind == "FloatReg") {
        return length == 4 || length == 8;
    }
    if (isOneOf(kind, { "IntReg", "MaskedIntReg", "StructEntry" })) {
        return length >= 1 && length <= 8;
    }
    return length >= 1 && length <= maxRegisterLength;
}

/// The length of a register as far as the description fixes it; `told` when the camera tells it.
constexpr std::int64_t told = -2;

std::int64_t registerLength(const Description& description, const pugi::xml_node& element)
{
    const pugi::xml_node reference = element.child("pLength");
    if (!reference) {
        return integerChild(element, "Length", 4);
    }
    const std::size_t target = description.find(elementText(reference));
    if (target == Description::absent) {
        return told;
    }
    const DescriptionNode& node = description.node(target);
    return node.kind == "Integer" && node.element.child("Value")
        ? integerChild(node.element, "Value", -1)
        : told;
}

std::string registerFault(const Description& description, const DescriptionNode& node)
{
    const bool isEntry = node.kind == "StructEntry";
    const pugi::xml_node element = isEntry ? node.element.parent() : node.element;
    if (isEntry && element.name() != std::string_view("StructReg")) {
        return "it stands outside of a register";
    }
    const std::size_t port = description.find(childText(element, "pPort"));
    if (port == Description::absent || description.node(port).kind != "Port") {
        return "its register has no port";
    }
    const std::int64_t length = registerLength(description, element);
    const bool isText = node.kind == "StringReg" || node.kind == "Register";
    if (!isPossibleLength(node.kind, length) && !(isText && length == told)) {
        return "its register has an impossible length";
    }
    if (node.kind == "MaskedIntReg" || isEntry) {
        const std::int64_t bits = 8 * length;
        for (const char* tag : { "LSB", "MSB", "Bit" }) {
            const std::int64_t bit = integerChild(node.element, tag, 0);
            if (bit < 0 || bit >= bits) {
                return "its bits lie outside of its register";
            }
        }
    }
    return {};
}

/// What holds the value of a node that is neither a register nor a formula.
std::string sourceFault(const DescriptionNode& node)
{
    if (node.isRegister() || isOneOf(node.kind, { "IntSwissKnife", "SwissKnife" })) {
        return {};
    }
    const bool isConverter = isOneOf(node.kind, { "IntConverter", "Converter" });
    const pugi::xml_node& element = node.element;
    const bool canBeIndexed = isOneOf(node.kind, { "Integer", "Float" });
    const bool hasSource = element.child("pValue") || (!isConverter && element.child("Value"))
        || (canBeIndexed && (element.child("ValueIndexed") || element.child("pValueIndexed")));
    if (node.kind == "Command" && !element.child("CommandValue")
        && !element.child("pCommandValue")) {
        return "it has no value to write";
    }
    return hasSource ? "" : "it has no value";
}

std::string formulaFault(const DescriptionNode& node)
{
    for (const char* tag : { "Formula", "FormulaTo", "FormulaFrom" }) {
        if (childText(node.element, tag).size() > maxFormulaLength) {
            return "its formula is too long";
        }
    }
    for (const pugi::xml_node& child : node.element.children()) {
        if (isOneOf(child.name(), { "pVariable", "Constant", "Expression" })
            && child.attribute("Name").empty()) {
            return "its formula has a variable without a name";
        }
    }
    return {};
}

std::string referenceFault(const Description& description, const DescriptionNode& node)
{
    for (const Reference& reference : node.references) {
        if (!isValueReference(reference.tag)) {
            continue;
        }
        if (reference.target == Description::absent) {
            return "it refers to " + std::string(elementText(reference.element))
                + ", which does not exist";
        }
        const DescriptionNode& target = description.node(reference.target);
        const bool isText = node.kind == "String" && reference.tag == "pValue";
        if (isText ? !isOneOf(target.kind, { "String", "StringReg" }) : !hasNumber(target.kind)) {
            return "it refers to " + std::string(target.name) + ", which has no such value";
        }
    }
    return {};
}

std::string ownFault(const Description& description, const DescriptionNode& node)
{
    if (!hasValue(node.kind)) {
        return {};
    }
    if (node.name.size() > maxNameLength) {
        return "its name is too long";
    }
    std::string fault = node.isRegister() ? registerFault(description, node) : sourceFault(node);
    fault = fault.empty() ? formulaFault(node) : fault;
    return fault.empty() ? referenceFault(description, node) : fault;
}

bool checkSize(const Description& description, std::string& error)
{
    struct Counter : pugi::xml_tree_walker {
        std::size_t elements = 0;
        int deepest = 0;
        bool for_each(pugi::xml_node&) override
        {
            deepest = std::max(deepest, depth());
            return ++elements <= maxElements && deepest <= maxElementDepth;
        }
    };
    Counter counter;
    description.root().traverse(counter);
    if (counter.deepest > maxElementDepth) {
        error = "not a camera description: elements nested too deeply";
        return false;
    }
    if (counter.elements > maxElements) {
        error = "the description is too large: more than " + std::to_string(maxElements)
            + " elements";
        return false;
    }
    return true;
}

/// Visits nodes after all those that their value needs; what is left over depends on itself.
class Evaluation {
public:
    explicit Evaluation(Description& description)
        : m_nodes(description.nodes())
        , m_needed(m_nodes.size(), 0)
        , m_users(m_nodes.size())
        , m_cost(m_nodes.size(), 1)
        , m_chain(m_nodes.size(), 1)
    {
        for (std::size_t i = 0; i < m_nodes.size(); ++i) {
            if (!hasValue(m_nodes[i].kind)) {
                continue; // a port or a category is what it is, whatever it refers to
            }
            for (const Reference& reference : m_nodes[i].references) {
                if (isValueReference(reference.tag) && reference.target != Description::absent) {
                    ++m_needed[i];
                    m_users[reference.target].push_back(i);
                }
            }
        }
    }

    void run()
    {
        std::vector<std::size_t> ready;
        for (std::size_t i = 0; i < m_nodes.size(); ++i) {
            if (m_needed[i] == 0) {
                ready.push_back(i);
            }
        }
        for (std::size_t at = 0; at < ready.size(); ++at) {
            finish(ready[at]);
            for (const std::size_t user : m_users[ready[at]]) {
                passOn(ready[at], user);
                if (--m_needed[user] == 0) {
                    ready.push_back(user);
                }
            }
        }
        for (std::size_t i = 0; i < m_nodes.size(); ++i) {
            if (m_needed[i] != 0 && !m_nodes[i].isBroken()) {
                m_nodes[i].broken = "its value depends on itself";
            }
        }
    }

    /// Visits for all features once: values, limits and conditions.
    std::uint64_t totalCost() const
    {
        std::uint64_t total = 0;
        for (const DescriptionNode& node : m_nodes) {
            for (const Reference& reference : node.references) {
                if (reference.tag == "pFeature" && reference.target != Description::absent) {
                    total += readCost(reference.target);
                }
            }
        }
        return total;
    }

private:
    std::uint64_t readCost(std::size_t node) const
    {
        std::uint64_t cost = m_cost[node];
        for (const Reference& reference : m_nodes[node].references) {
            if (!isValueReference(reference.tag) && reference.target != Description::absent
                && reference.tag != "pFeature" && !m_nodes[reference.target].isBroken()) {
                cost += reference.tag.substr(0, 3) == "pIs" || reference.tag == "pMin"
                        || reference.tag == "pMax" || reference.tag == "pInc"
                    ? m_cost[reference.target]
                    : 0;
            }
        }
        return cost;
    }

    void finish(std::size_t node)
    {
        if (!m_nodes[node].isBroken() && (m_cost[node] > maxCost || m_chain[node] > maxChain)) {
            m_nodes[node].broken = "it takes too long to evaluate";
        }
        if (m_nodes[node].isBroken()) {
            m_cost[node] = 1;
        }
    }

    void passOn(std::size_t node, std::size_t user)
    {
        if (m_nodes[node].isBroken() && !m_nodes[user].isBroken()) {
            m_nodes[user].broken
                = "it needs " + std::string(m_nodes[node].name) + ", which cannot be read";
        }
        m_cost[user] = std::min(m_cost[user] + m_cost[node], maxCost + 1);
        m_chain[user] = std::max(m_chain[user], m_chain[node] + 1);
    }

    std::vector<DescriptionNode>& m_nodes;
    std::vector<std::size_t> m_needed;
    std::vector<std::vector<std::size_t>> m_users;
    std::vector<std::uint64_t> m_cost;
    std::vector<std::uint32_t> m_chain;
};

} // namespace

bool isValueReference(std::string_view tag)
{
    return isOneOf(tag,
        { "pValue", "pAddress", "pIndex", "pOffset", "pLength", "pVariable", "pValueIndexed",
            "pValueDefault", "pCommandValue" });
}

bool checkDescription(Description& description, std::string& error)
{
    if (!checkSize(description, error)) {
        return false;
    }
    for (DescriptionNode& node : description.nodes()) {
        node.broken = ownFault(description, node);
    }
    Evaluation evaluation(description);
    evaluation.run();
    if (evaluation.totalCost() > maxTotalCost) {
        error = "the description takes too long to evaluate";
        return false;
    }
    return true;
}

} // namespace zqcameralib
