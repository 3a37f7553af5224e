#include "features/Feature.h"

#include "nodemap/AccessMode.h"

#include "featurebrowser/FeatureItem.h"
#include "featurebrowser/FeatureTypes.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <unordered_map>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

/// Nodes looked at to tell where a value comes from.
constexpr std::size_t maxValueNodes = 200;

using ParentNames = std::unordered_map<std::size_t, std::string>;

ArvGcFeatureNode* featureNode(ArvGc* nodeMap, std::string_view name)
{
    ArvGcNode* node = arv_gc_get_node(nodeMap, std::string(name).c_str());
    return ARV_IS_GC_FEATURE_NODE(node) ? ARV_GC_FEATURE_NODE(node) : nullptr;
}

std::uint8_t featureType(const DescriptionNode& node, std::uint16_t access)
{
    static const std::unordered_map<std::string_view, std::uint8_t> types {
        { "Category", FEATURE_CATEGORY }, { "Float", FEATURE_FLOAT }, { "FloatReg", FEATURE_FLOAT },
        { "SwissKnife", FEATURE_FLOAT }, { "Converter", FEATURE_FLOAT },
        { "Boolean", FEATURE_BOOLEAN }, { "Enumeration", FEATURE_ENUMERATION },
        { "String", FEATURE_STRING }, { "StringReg", FEATURE_STRING },
        { "Command", FEATURE_COMMAND }, { "Register", FEATURE_READ_ONLY_STRING }
    };
    const auto found = types.find(node.kind);
    const auto type = found == types.end() ? std::uint8_t { FEATURE_INTEGER } : found->second;
    if (type == FEATURE_STRING && access == ACCESS_READ_ONLY) {
        return FEATURE_READ_ONLY_STRING;
    }
    return type;
}

/// The core shows "Gev" integers of the address representation as IPv4 and "MAC" ones as MAC, so
/// only those that the description calls an address may carry it.
std::uint16_t representation(const DescriptionNode& node)
{
    const std::string_view text = childText(node.element, "Representation");
    if (text == "IPV4Address") {
        return REPRESENTATION_IPV4;
    }
    const bool isMac = text == "MACAddress" && node.name.find("MAC") != std::string_view::npos;
    return isMac ? REPRESENTATION_ADDRESS : REPRESENTATION_NUMBER;
}

bool hasReference(const DescriptionNode& node, std::string_view tag)
{
    return std::any_of(node.references.begin(), node.references.end(),
        [tag](const Reference& r) { return r.tag == tag && r.target != Description::absent; });
}

/// What a node or an entry says by `tag`.
Condition conditionOf(ArvGcFeatureNode* gc, const Reference& reference)
{
    const auto check = reference.tag == "pIsImplemented" ? arv_gc_feature_node_is_implemented
        : reference.tag == "pIsAvailable"                ? arv_gc_feature_node_is_available
                                                         : arv_gc_feature_node_is_locked;
    return { gc, check, reference.target };
}

/// Conditions of the entries of an enumeration stand inside it and are not its own. Of several
/// the first one counts.
void addCondition(std::vector<Condition>& conditions, const DescriptionNode& node,
    ArvGcFeatureNode* gc, std::string_view tag)
{
    for (const Reference& reference : node.references) {
        if (reference.tag == tag && reference.target != Description::absent
            && reference.element.parent() == node.element) {
            conditions.push_back(conditionOf(gc, reference));
            return;
        }
    }
}

std::int64_t number(std::string_view text)
{
    return static_cast<std::int64_t>(std::strtoll(std::string(text).c_str(), nullptr, 0));
}

/// Bits of the register that holds an integer; 0 when it is none or its width is not fixed.
int registerBits(const DescriptionNode& node)
{
    if (node.kind == "IntReg") {
        const std::int64_t length = number(childText(node.element, "Length"));
        return length >= 1 && length <= 8 ? static_cast<int>(8 * length) : 0;
    }
    if (node.kind != "MaskedIntReg" && node.kind != "StructEntry") {
        return 0;
    }
    if (node.element.child("Bit")) {
        return 1;
    }
    const std::int64_t width
        = std::abs(number(childText(node.element, "MSB")) - number(childText(node.element, "LSB")))
        + 1;
    return width >= 1 && width <= 64 ? static_cast<int>(width) : 0;
}

/// Whether a value comes, directly or through formulas, from a register on such a port.
bool readsChunkOrEventPort(const Description& description, const DescriptionNode& start)
{
    std::vector<const DescriptionNode*> pending { &start };
    for (std::size_t at = 0; at < pending.size() && at < maxValueNodes; ++at) {
        if (isOnChunkOrEventPort(description, *pending[at])) {
            return true;
        }
        for (const Reference& r : pending[at]->references) {
            if ((r.tag == "pValue" || r.tag == "pVariable") && r.target != Description::absent) {
                pending.push_back(&description.node(r.target));
            }
        }
    }
    return false;
}

void addChainFacts(Feature& feature, const Description& description, ArvGc* nodeMap)
{
    bool isDirect = true; // no formula between the feature and its register
    for (const DescriptionNode* link : valueChain(description, *feature.node)) {
        isDirect = isDirect && link->kind != "IntConverter" && link->kind != "Converter";
        if (isDirect && feature.type == FEATURE_INTEGER) {
            const RegisterRange range = registerRange(*link);
            feature.registerMin = std::max(feature.registerMin, range.minimum);
            feature.registerMax = std::min(feature.registerMax, range.maximum);
        }
        feature.endsInRegister = link->isRegister();
        feature.isIntegerFormula = link->kind == "IntSwissKnife";
        feature.hasFloatIncrement = feature.hasFloatIncrement || link->element.child("Inc")
            || hasReference(*link, "pInc");
        ArvGcFeatureNode* gc = featureNode(nodeMap, link->name);
        if (gc == nullptr) {
            continue;
        }
        if (link->kind == "StringReg" && ARV_IS_GC_REGISTER(gc)) {
            feature.textRegister = ARV_GC_REGISTER(gc);
        }
        addCondition(feature.implementedIf, *link, gc, "pIsImplemented");
        addCondition(feature.availableIf, *link, gc, "pIsAvailable");
        addCondition(feature.lockedIf, *link, gc, "pIsLocked");
    }
}

/// The conditions of the entries, by their element. Of several of a kind the first one counts.
std::unordered_map<std::size_t, std::vector<const Reference*>> entryConditions(
    const DescriptionNode& node)
{
    std::unordered_map<std::size_t, std::vector<const Reference*>> conditions;
    for (const Reference& reference : node.references) {
        if ((reference.tag == "pIsImplemented" || reference.tag == "pIsAvailable")
            && reference.target != Description::absent && reference.element.parent() != node.element
            && reference.element == reference.element.parent().child(reference.element.name())) {
            conditions[reference.element.parent().hash_value()].push_back(&reference);
        }
    }
    return conditions;
}

std::string_view nameOf(ArvGcFeatureNode* node)
{
    const char* name = arv_gc_feature_node_get_name(node);
    return name == nullptr ? "" : name;
}

/// The entry, or the first after it that the node map has: those with a value.
pugi::xml_node firstUsable(pugi::xml_node entry)
{
    while (entry && !entry.child("Value")) {
        entry = entry.next_sibling("EnumEntry");
    }
    return entry;
}

std::vector<EnumEntry> enumEntries(ArvGcEnumeration* enumeration, const DescriptionNode& node)
{
    std::vector<ArvGcFeatureNode*> nodes;
    for (const GSList* at = arv_gc_enumeration_get_entries(enumeration); at != nullptr;
         at = at->next) {
        if (ARV_IS_GC_ENUM_ENTRY(at->data)) {
            nodes.push_back(ARV_GC_FEATURE_NODE(at->data));
        }
    }
    const auto conditions = entryConditions(node);
    std::vector<EnumEntry> entries;
    pugi::xml_node element = firstUsable(node.element.child("EnumEntry"));
    // The node map collects them by prepending.
    if (!nodes.empty()
        && std::string_view(element.attribute("Name").value()) != nameOf(nodes.front())) {
        std::reverse(nodes.begin(), nodes.end());
    }
    for (ArvGcFeatureNode* gc : nodes) {
        EnumEntry entry;
        entry.name = nameOf(gc);
        entry.value = arv_gc_enum_entry_get_value(ARV_GC_ENUM_ENTRY(gc), nullptr);
        const auto own = conditions.find(element.hash_value());
        if (own != conditions.end()) {
            for (const Reference* reference : own->second) {
                entry.availableIf.push_back(conditionOf(gc, *reference));
            }
        }
        element = firstUsable(element.next_sibling("EnumEntry"));
        entries.push_back(std::move(entry));
    }
    return entries;
}

bool isBackedByRegister(const Description& description, const DescriptionNode& node)
{
    const std::vector<const DescriptionNode*> chain = valueChain(description, node);
    return std::any_of(
        chain.begin(), chain.end(), [](const DescriptionNode* link) { return link->isRegister(); });
}

/// A command is done when the value it has written has gone again, if that can be read. A zero
/// cannot go, and a value kept in the node map stays.
void setCommandFacts(Feature& feature, const Description& description, ArvGc* nodeMap)
{
    const std::int64_t value = number(childText(feature.node->element, "CommandValue"));
    for (const Reference& reference : feature.node->references) {
        if (reference.tag != "pValue" || reference.target == Description::absent || value == 0) {
            continue;
        }
        const DescriptionNode& target = description.node(reference.target);
        ArvGcFeatureNode* gc = featureNode(nodeMap, target.name);
        if (ARV_IS_GC_INTEGER(gc) && isBackedByRegister(description, target)
            && staticAccess(description, reference.target) == ACCESS_READ_WRITE) {
            feature.commandRegister = gc;
            feature.commandValue = value;
        }
    }
}

std::string descriptionText(const DescriptionNode& node)
{
    std::string text(childText(node.element, "Description"));
    if (text.empty()) {
        text = childText(node.element, "ToolTip");
    }
    const std::string_view values = childText(node.element, "ValidValueSet");
    if (!values.empty()) {
        text += (text.empty() ? "Values: " : "\nValues: ") + std::string(values);
    }
    const std::string_view unit = childText(node.element, "Unit");
    if (!unit.empty()) {
        text += (text.empty() ? "Unit: " : "\nUnit: ") + std::string(unit);
    }
    return text;
}

ParentNames selectorNames(const Description& description, const std::vector<ListedNode>& tree)
{
    ParentNames names;
    for (const ListedNode& entry : tree) {
        const DescriptionNode& selector = description.node(entry.node);
        for (const Reference& reference : selector.references) {
            if (reference.tag == "pSelected" && reference.target != Description::absent) {
                std::string& list = names[reference.target];
                list += (list.empty() ? "" : ",") + std::string(selector.name);
            }
        }
    }
    return names;
}

Feature describe(const Description& description, const ListedNode& entry, ArvGc* nodeMap)
{
    Feature feature;
    feature.node = &description.node(entry.node);
    feature.name = feature.node->name;
    feature.depth = entry.depth;
    feature.level = std::max<std::uint8_t>(featureLevel(*feature.node), LEVEL_BEGINNER);
    feature.access = staticAccess(description, entry.node);
    feature.type = featureType(*feature.node, feature.access);
    feature.description = descriptionText(*feature.node);
    feature.caption = childText(feature.node->element, "DisplayName");
    if (feature.caption.empty()) {
        feature.caption = feature.name;
    }
    if (entry.isCategory || feature.node->isBroken()) {
        return feature;
    }
    feature.gc = featureNode(nodeMap, feature.name);
    feature.representation = representation(*feature.node);
    feature.isSelector = hasReference(*feature.node, "pSelected");
    addChainFacts(feature, description, nodeMap);
    feature.isChunkOrEventData = readsChunkOrEventPort(description, *feature.node);
    if (feature.type == FEATURE_COMMAND) {
        setCommandFacts(feature, description, nodeMap);
    }
    if (feature.type == FEATURE_ENUMERATION && ARV_IS_GC_ENUMERATION(feature.gc)) {
        feature.entries = enumEntries(ARV_GC_ENUMERATION(feature.gc), *feature.node);
    }
    return feature;
}

} // namespace

bool Feature::isReadable() const
{
    return gc != nullptr && (access == ACCESS_READ_ONLY || access == ACCESS_READ_WRITE);
}

RegisterRange registerRange(const DescriptionNode& node)
{
    const int bits = registerBits(node);
    if (bits == 0 || bits == 64) {
        return {};
    }
    const bool isSigned = childText(node.element, "Sign") == "Signed";
    const std::int64_t span = (std::int64_t(1) << (isSigned ? bits - 1 : bits)) - 1;
    return { isSigned ? -span - 1 : 0, span };
}

std::vector<const DescriptionNode*> valueChain(
    const Description& description, const DescriptionNode& start)
{
    std::vector<const DescriptionNode*> chain { &start };
    for (std::size_t at = 0; at < chain.size(); ++at) {
        for (const Reference& reference : chain[at]->references) {
            if (reference.tag != "pValue" || reference.target == Description::absent) {
                continue;
            }
            const DescriptionNode* next = &description.node(reference.target);
            if (std::find(chain.begin(), chain.end(), next) == chain.end()) {
                chain.push_back(next);
            }
        }
    }
    return chain;
}

bool isOnChunkOrEventPort(const Description& description, const DescriptionNode& node)
{
    return std::any_of(
        node.references.begin(), node.references.end(), [&description](const Reference& r) {
            if (r.tag != "pPort" || r.target == Description::absent) {
                return false;
            }
            const pugi::xml_node port = description.node(r.target).element;
            return port.child("ChunkID") || port.child("EventID") || port.child("pChunkID")
                || port.child("pEventID");
        });
}

std::vector<Feature> collectFeatures(
    const Description& description, const std::vector<ListedNode>& tree, ArvGc* nodeMap)
{
    const ParentNames parents = selectorNames(description, tree);
    std::vector<Feature> features;
    features.reserve(tree.size());
    for (const ListedNode& entry : tree) {
        features.push_back(describe(description, entry, nodeMap));
        const auto parent = parents.find(entry.node);
        if (parent != parents.end()) {
            features.back().selectorParent = parent->second;
        }
    }
    return features;
}

} // namespace zqcameralib
