// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "description/DependencyGraph.h"

#include "description/ReferenceWalk.h"
#include "description/RegisterPlace.h"

#include <algorithm>
#include <utility>

namespace zqcameralib {

namespace {

/// A register overlaps with few others; a description with more is not believed.
constexpr std::size_t maxOverlaps = 256;

using PlacedNode = std::pair<RegisterPlace, std::size_t>;

/// The registers at fixed places, by their addresses.
std::vector<PlacedNode> placedNodes(const Description& description)
{
    std::vector<PlacedNode> placed;
    for (std::size_t node = 0; node < description.nodes().size(); ++node) {
        if (const auto place = fixedPlace(description.node(node))) {
            placed.emplace_back(*place, node);
        }
    }
    std::sort(placed.begin(), placed.end(),
        [](const PlacedNode& a, const PlacedNode& b) { return a.first.first < b.first.first; });
    return placed;
}

} // namespace

DependencyGraph::DependencyGraph(const Description& description)
    : m_description(description)
    , m_dependents(description.nodes().size())
    , m_written(description.nodes().size())
    , m_declared(description.nodes().size())
{
    for (std::size_t node = 0; node < description.nodes().size(); ++node) {
        addReferences(node);
    }
    addOverlaps();
    findVariableAddresses();
}

void DependencyGraph::addReferences(std::size_t node)
{
    for (const Reference& reference : m_description.node(node).references) {
        if (reference.isResolved() && reference.tag == ReferenceTag::Feature) {
            m_dependents[node].push_back(reference.target); // it is there as its category is
        } else if (reference.isResolved() && !isOnlyNaming(reference.tag)) {
            addReference(node, reference);
        }
    }
}

void DependencyGraph::addReference(std::size_t node, const Reference& reference)
{
    if (reference.tag == ReferenceTag::Selected) {
        m_declared[node].push_back(reference.target);
        return;
    }
    if (reference.tag == ReferenceTag::Invalidator) {
        m_declared[reference.target].push_back(node);
        return;
    }
    m_dependents[reference.target].push_back(node);
    if (passesWriteOn(reference.tag)) {
        m_written[node].push_back(reference.target);
    }
}

void DependencyGraph::addOverlaps()
{
    const std::vector<PlacedNode> placed = placedNodes(m_description);
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const auto& [place, node] = placed[i];
        const std::size_t end = std::min(placed.size(), i + maxOverlaps);
        for (std::size_t j = i + 1; j < end && placed[j].first.first <= place.last; ++j) {
            if (place.overlaps(placed[j].first)) {
                m_dependents[node].push_back(placed[j].second);
                m_dependents[placed[j].second].push_back(node);
            }
        }
    }
}

void DependencyGraph::findVariableAddresses()
{
    NodeWalk walk(m_dependents.size());
    for (std::size_t node = 0; node < m_dependents.size(); ++node) {
        const DescriptionNode& candidate = m_description.node(node);
        if (isRegister(candidate.kind) && !fixedPlace(candidate)) {
            walk.reach(node);
        }
    }
    walk.run([&](std::size_t changed) { walk.reachAll(m_dependents[changed]); });
    m_readsVariableAddress = walk.isReached();
}

std::vector<bool> DependencyGraph::affectedBy(std::size_t node) const
{
    return affectedBy(Nodes { node });
}

std::vector<bool> DependencyGraph::affectedBy(const std::vector<std::size_t>& nodes) const
{
    NodeWalk affected(m_dependents.size());
    // A node that changes in the camera changes with all that its value comes from.
    NodeWalk inCamera(m_dependents.size());
    const auto followWrites = [&] {
        inCamera.run([&](std::size_t changed) {
            affected.reach(changed);
            inCamera.reachAll(m_written[changed]);
        });
    };
    inCamera.reachAll(nodes);
    followWrites();
    affected.run([&](std::size_t changed) {
        affected.reachAll(m_dependents[changed]);
        inCamera.reachAll(m_declared[changed]);
        followWrites();
    });
    return affected.isReached();
}

} // namespace zqcameralib
