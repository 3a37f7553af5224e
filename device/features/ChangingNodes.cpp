// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "features/ChangingNodes.h"

#include "description/ReferenceWalk.h"
#include "description/RegisterPlace.h"

#include <algorithm>

namespace zqcameralib {

namespace {

/// Nodes looked at that one value needs.
constexpr std::size_t maxWalked = 300;

bool canWrite(const DescriptionNode& node)
{
    const std::string_view mode = childText(node.registerElement(), "AccessMode");
    return mode == "RW" || mode == "WO";
}

bool changesByItself(const Description& description, const DescriptionNode& node)
{
    const pugi::xml_node reg = node.registerElement();
    const std::size_t port = node.target(ReferenceTag::Port);
    if (port != Description::absent && description.node(port).refersBy(ReferenceTag::Invalidator)) {
        return true;
    }
    return node.refersBy(ReferenceTag::Invalidator) || reg.child("PollingTime")
        || childText(reg, "Cachable") == "NoCache";
}

} // namespace

ChangingNodes::ChangingNodes(const Description& description)
    : m_description(description)
    , m_isFeature(description.nodes().size(), false)
{
    for (const DescriptionNode& node : description.nodes()) {
        node.forEachTarget(only(ReferenceTag::Feature),
            [this](std::size_t feature) { m_isFeature[feature] = true; });
        const auto place = canWrite(node) ? fixedPlace(node) : std::nullopt;
        if (place) {
            m_written.emplace(place->first, place->last);
        }
    }
    NodeWalk written(m_isFeature.size());
    for (std::size_t i = 0; i < m_isFeature.size(); ++i) {
        if (m_isFeature[i]) {
            written.reach(i);
        }
    }
    written.run([&](std::size_t node) {
        description.node(node).forEachTarget(
            passesWriteOn, [&written](std::size_t target) { written.reach(target); });
    });
    m_isFeature = written.isReached();
    const std::size_t acquisition = description.find("TLParamsLocked");
    if (acquisition != Description::absent) {
        m_isFeature[acquisition] = true;
    }
}

bool ChangingNodes::canChange(std::size_t node) const
{
    const auto sources = reachable(m_description, node, isValueReference, maxWalked);
    return std::any_of(
        sources.begin(), sources.end(), [this](std::size_t source) { return isChanged(source); });
}

bool ChangingNodes::isChanged(std::size_t index) const
{
    const DescriptionNode& node = m_description.node(index);
    if (!isRegister(node.kind)) {
        return m_isFeature[index] && node.element.child("Value");
    }
    const auto place = fixedPlace(node); // what a place depends on is looked at by itself
    return canWrite(node) || changesByItself(m_description, node)
        || (place && m_written.count({ place->first, place->last }) != 0);
}

} // namespace zqcameralib
