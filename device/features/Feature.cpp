#include "features/Feature.h"

#include "base/NumberText.h"
#include "description/ReferenceWalk.h"
#include "description/RegisterPlace.h"
#include "features/RegisterRange.h"
#include "nodemap/AccessMode.h"

#include "featurebrowser/FeatureItem.h"
#include "featurebrowser/FeatureTypes.h"

#include <algorithm>
#include <unordered_map>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

/// Nodes looked at to tell where a value comes from.
constexpr std::size_t maxValueNodes = 200;

using SelectorNames = std::unordered_map<std::size_t, std::string>;

ArvGcFeatureNode* featureNode(ArvGc* nodeMap, std::string_view name)
{
    ArvGcNode* node = arv_gc_get_node(nodeMap, std::string(name).c_str());
    return ARV_IS_GC_FEATURE_NODE(node) ? ARV_GC_FEATURE_NODE(node) : nullptr;
}

std::uint8_t featureType(NodeKind kind, std::uint16_t access)
{
    switch (kind) {
    case NodeKind::Category:
        return FEATURE_CATEGORY;
    case NodeKind::Float:
    case NodeKind::FloatReg:
    case NodeKind::SwissKnife:
    case NodeKind::Converter:
        return FEATURE_FLOAT;
    case NodeKind::Boolean:
        return FEATURE_BOOLEAN;
    case NodeKind::Enumeration:
        return FEATURE_ENUMERATION;
    case NodeKind::String:
    case NodeKind::StringReg:
        return access == ACCESS_READ_ONLY ? FEATURE_READ_ONLY_STRING : FEATURE_STRING;
    case NodeKind::Command:
        return FEATURE_COMMAND;
    case NodeKind::Register:
        return FEATURE_READ_ONLY_STRING;
    default:
        return FEATURE_INTEGER;
    }
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

/// Whether a value comes, directly or through formulas, from images or events.
bool readsChunkOrEventPort(const Description& description, std::size_t node)
{
    const auto sources = reachable(description, node, isValueSource, maxValueNodes);
    return std::any_of(sources.begin(), sources.end(), [&description](std::size_t source) {
        return isOnChunkOrEventPort(description, description.node(source));
    });
}

void addConditions(Feature& feature, const DescriptionNode& node, ArvGcFeatureNode* gc)
{
    addOwnCondition(feature.implementedIf, node, gc, ReferenceTag::IsImplemented);
    addOwnCondition(feature.availableIf, node, gc, ReferenceTag::IsAvailable);
    addOwnCondition(feature.lockedIf, node, gc, ReferenceTag::IsLocked);
}

void limitTo(Feature& feature, const RegisterRange& range)
{
    feature.registerMin = std::max(feature.registerMin, range.minimum);
    feature.registerMax = std::min(feature.registerMax, range.maximum);
}

void addChainFacts(
    Feature& feature, const Description& description, std::size_t node, ArvGc* nodeMap)
{
    bool isDirect = true; // no formula between the feature and its register
    for (const std::size_t index : valueChain(description, node)) {
        const DescriptionNode& link = description.node(index);
        isDirect = isDirect && !isConverter(link.kind);
        if (isDirect && feature.type == FEATURE_INTEGER) {
            limitTo(feature, registerRange(link));
        }
        feature.endsInRegister = isRegister(link.kind);
        feature.isIntegerFormula = link.kind == NodeKind::IntSwissKnife;
        feature.hasFloatIncrement = feature.hasFloatIncrement || link.element.child("Inc")
            || link.refersBy(ReferenceTag::Inc);
        ArvGcFeatureNode* gc = featureNode(nodeMap, link.name);
        if (gc == nullptr) {
            continue;
        }
        if (link.kind == NodeKind::StringReg && ARV_IS_GC_REGISTER(gc)) {
            feature.textRegister = ARV_GC_REGISTER(gc);
        }
        addConditions(feature, link, gc);
    }
}

bool endsInRegister(const Description& description, std::size_t node)
{
    const std::vector<std::size_t> chain = valueChain(description, node);
    return std::any_of(chain.begin(), chain.end(),
        [&](std::size_t link) { return isRegister(description.node(link).kind); });
}

/// A command is done when the value it has written has gone again, if that can be read. A zero
/// cannot go, and a value kept in the node map stays.
void addCommandFacts(Feature& feature, const Description& description, ArvGc* nodeMap)
{
    const std::int64_t value = leadingInteger(childText(feature.node->element, "CommandValue"));
    if (value == 0) {
        return;
    }
    feature.node->forEachTarget(only(ReferenceTag::Value), [&](std::size_t target) {
        ArvGcFeatureNode* gc = featureNode(nodeMap, description.node(target).name);
        if (ARV_IS_GC_INTEGER(gc) && endsInRegister(description, target)
            && staticAccess(description, target) == ACCESS_READ_WRITE) {
            feature.commandRegister = gc;
            feature.commandValue = value;
        }
    });
}

void appendLine(std::string& text, const char* title, std::string_view line)
{
    if (!line.empty()) {
        text += (text.empty() ? "" : "\n") + std::string(title) + ": " + std::string(line);
    }
}

std::string descriptionText(const DescriptionNode& node)
{
    std::string text(childText(node.element, "Description"));
    if (text.empty()) {
        text = childText(node.element, "ToolTip");
    }
    appendLine(text, "Values", childText(node.element, "ValidValueSet"));
    appendLine(text, "Unit", childText(node.element, "Unit"));
    return text;
}

/// By the node that they select.
SelectorNames selectorNames(const Description& description, const std::vector<ListedNode>& listed)
{
    SelectorNames names;
    for (const ListedNode& entry : listed) {
        const DescriptionNode& selector = description.node(entry.node);
        selector.forEachTarget(only(ReferenceTag::Selected), [&](std::size_t selected) {
            std::string& list = names[selected];
            list += (list.empty() ? "" : ",") + std::string(selector.name);
        });
    }
    return names;
}

Feature describe(const Description& description, const ListedNode& listed, ArvGc* nodeMap)
{
    Feature feature;
    feature.node = &description.node(listed.node);
    feature.name = feature.node->name;
    feature.depth = listed.depth;
    feature.level = std::max<std::uint8_t>(featureLevel(*feature.node), LEVEL_BEGINNER);
    feature.access = staticAccess(description, listed.node);
    feature.type = featureType(feature.node->kind, feature.access);
    feature.description = descriptionText(*feature.node);
    feature.caption = childText(feature.node->element, "DisplayName");
    if (feature.caption.empty()) {
        feature.caption = feature.name;
    }
    if (listed.isCategory || feature.node->isBroken()) {
        return feature;
    }
    feature.gc = featureNode(nodeMap, feature.name);
    feature.representation = representation(*feature.node);
    feature.isSelector = feature.node->refersBy(ReferenceTag::Selected);
    addChainFacts(feature, description, listed.node, nodeMap);
    feature.isChunkOrEventData = readsChunkOrEventPort(description, listed.node);
    if (feature.type == FEATURE_COMMAND) {
        addCommandFacts(feature, description, nodeMap);
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

std::vector<Feature> collectFeatures(
    const Description& description, const std::vector<ListedNode>& listed, ArvGc* nodeMap)
{
    const SelectorNames selectors = selectorNames(description, listed);
    std::vector<Feature> features;
    features.reserve(listed.size());
    for (const ListedNode& entry : listed) {
        features.push_back(describe(description, entry, nodeMap));
        const auto selector = selectors.find(entry.node);
        if (selector != selectors.end()) {
            features.back().selectorParent = selector->second;
        }
    }
    return features;
}

} // namespace zqcameralib
