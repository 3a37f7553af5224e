// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "features/Feature.h"

#include "base/NumberText.h"
#include "description/ReferenceWalk.h"
#include "description/RegisterPlace.h"
#include "nodemap/AccessMode.h"
#include "nodemap/NodeFacts.h"
#include "words/Words.h"

#include "featurebrowser/FeatureItem.h"
#include "featurebrowser/FeatureTypes.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

/// Nodes looked at to tell where a value comes from.
constexpr std::size_t maxValueNodes = 200;

using SelectorNames = std::unordered_map<std::size_t, std::string>;

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

/// The text of the first node on the way of the value that has such an element.
std::string_view chainText(
    const Description& description, const std::vector<std::size_t>& chain, const char* tag)
{
    for (const std::size_t link : chain) {
        const std::string_view text = childText(description.node(link).element, tag);
        if (!text.empty()) {
            return text;
        }
    }
    return {};
}

bool endsWithAny(std::string_view text, std::initializer_list<std::string_view> ends)
{
    return std::any_of(ends.begin(), ends.end(), [text](std::string_view end) {
        return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
    });
}

/// By the names of SFNC 2.7 and of older cameras: their descriptions call nearly all addresses
/// hexadecimal numbers. The core shows those as MAC addresses whose names say so.
std::uint16_t representation(std::string_view name, std::string_view text)
{
    if (text == "IPV4Address"
        || endsWithAny(name,
            { "IPAddress", "SubnetMask", "Gateway", "GevMCDA", "GevSCDA", "MulticastAddress" })) {
        return REPRESENTATION_IPV4;
    }
    const auto contains
        = [name](const char* part) { return name.find(part) != std::string_view::npos; };
    // One that the core would show as an IPv4 address stays a number.
    const bool isMac = endsWithAny(name, { "MACAddress" })
        || (text == "MACAddress" && (contains("MAC") || !contains("Gev")));
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

/// Of each kind the first on the way of the value counts; behind a formula, another one.
void addLimits(
    Feature& feature, const Description& description, const std::vector<std::size_t>& chain)
{
    for (const auto& [reference, number] :
        { std::pair("pMin", "Min"), { "pMax", "Max" }, { "pInc", "Inc" } }) {
        bool isKnown = false;
        for (const std::size_t index : chain) {
            const DescriptionNode& link = description.node(index);
            isKnown = isKnown && !isConverter(link.kind);
            const std::size_t limit = description.find(childText(link.element, reference));
            if (!isKnown && limit != Description::absent) {
                feature.limits.push_back(limit);
            }
            isKnown = isKnown || link.element.child(reference) || link.element.child(number);
        }
    }
}

void addChainFacts(
    Feature& feature, const Description& description, const std::vector<std::size_t>& chain)
{
    for (const std::size_t index : chain) {
        const DescriptionNode& link = description.node(index);
        feature.endsInRegister = isRegister(link.kind);
        feature.isConverted = feature.isConverted || isConverter(link.kind);
        feature.isIndexed = feature.isIndexed || isIndexed(link);
        if (link.kind == NodeKind::StringReg) {
            feature.textRegister = index;
        }
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
void addCommandFacts(Feature& feature, const Description& description)
{
    const pugi::xml_node given = feature.node->element.child("CommandValue");
    if (given && leadingInteger(elementText(given)) == 0) {
        return;
    }
    feature.node->forEachTarget(only(ReferenceTag::Value), [&](std::size_t target) {
        if (endsInRegister(description, target) && feature.access == ACCESS_READ_WRITE) {
            feature.commandRegister = target;
        }
    });
}

void appendLine(std::string& text, const Words& title, std::string_view line)
{
    if (!line.empty()) {
        text += (text.empty() ? "" : "\n") + title.text() + ": " + std::string(line);
    }
}

std::string descriptionText(const DescriptionNode& node, std::string_view unit)
{
    std::string text(childText(node.element, "Description"));
    if (text.empty()) {
        text = childText(node.element, "ToolTip");
    }
    appendLine(text, translated("Values"), childText(node.element, "ValidValueSet"));
    appendLine(text, "Unit", unit); // by which the widget finds it, in every language
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

Feature describe(const Description& description, const ListedNode& listed)
{
    Feature feature;
    feature.node = &description.node(listed.node);
    feature.index = listed.node;
    feature.name = feature.node->name;
    feature.depth = listed.depth;
    feature.level = std::max<std::uint8_t>(listed.level, LEVEL_BEGINNER);
    feature.access = staticAccess(description, listed.node);
    feature.type = featureType(feature.node->kind, feature.access);
    const std::vector<std::size_t> chain = valueChain(description, listed.node);
    feature.description = descriptionText(*feature.node, chainText(description, chain, "Unit"));
    feature.caption = childText(feature.node->element, "DisplayName");
    if (feature.caption.empty()) {
        feature.caption = feature.name;
    }
    feature.conditions = accessConditions(description, listed.node);
    if (!feature.isUsable()) {
        return feature;
    }
    if (feature.type == FEATURE_INTEGER) {
        feature.representation
            = representation(feature.name, chainText(description, chain, "Representation"));
    }
    feature.isSelector = feature.node->refersBy(ReferenceTag::Selected);
    addChainFacts(feature, description, chain);
    addLimits(feature, description, chain);
    feature.isChunkOrEventData = readsChunkOrEventPort(description, listed.node);
    if (feature.type == FEATURE_COMMAND) {
        addCommandFacts(feature, description);
    }
    if (feature.type == FEATURE_ENUMERATION) {
        feature.entries = enumEntries(description, listed.node);
    }
    return feature;
}

/// What is in a category is there as far as the category is.
void inherit(AccessConditions& conditions, const AccessConditions& category)
{
    const auto add = [](std::vector<Condition>& own, const std::vector<Condition>& more) {
        own.insert(own.end(), more.begin(), more.end());
    };
    add(conditions.implementedIf, category.implementedIf);
    add(conditions.availableIf, category.availableIf);
}

} // namespace

bool Feature::isUsable() const
{
    return !node->isBroken();
}

bool Feature::isReadable() const
{
    return access == ACCESS_READ_ONLY || access == ACCESS_READ_WRITE;
}

std::vector<Feature> collectFeatures(
    const Description& description, const std::vector<ListedNode>& listed)
{
    const SelectorNames selectors = selectorNames(description, listed);
    std::vector<Feature> features;
    features.reserve(listed.size());
    std::vector<std::size_t> around; // categories, by depth
    for (const ListedNode& entry : listed) {
        features.push_back(describe(description, entry));
        Feature& feature = features.back();
        around.resize(std::min<std::size_t>(around.size(), entry.depth));
        if (!around.empty()) {
            inherit(feature.conditions, features[around.back()].conditions);
        }
        if (entry.isCategory) {
            around.push_back(features.size() - 1);
        }
        const auto selector = selectors.find(entry.node);
        if (selector != selectors.end()) {
            feature.selectorParent = selector->second;
        }
    }
    return features;
}

} // namespace zqcameralib
