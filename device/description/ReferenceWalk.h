// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"

#include <cstdint>
#include <vector>

namespace zqcameralib {

/// A walk over nodes, given by index, that comes to each of them once, nearest first.
class NodeWalk {
public:
    static constexpr std::size_t unlimited = SIZE_MAX;

    /// Stops at the `most`th node.
    explicit NodeWalk(std::size_t nodes, std::size_t most = unlimited)
        : m_isReached(nodes, false)
        , m_most(most)
    {
    }

    void reach(std::size_t node)
    {
        if (m_order.size() < m_most && !m_isReached[node]) {
            m_isReached[node] = true;
            m_order.push_back(node);
        }
    }

    void reachAll(const std::vector<std::size_t>& nodes)
    {
        for (const std::size_t node : nodes) {
            reach(node);
        }
    }

    /// Goes on from every node reached so far, and from those reached by that: `goOn(node)` reaches
    /// the next ones.
    template <typename GoOn> void run(GoOn goOn)
    {
        while (m_at < m_order.size()) {
            goOn(m_order[m_at++]);
        }
    }

    /// In the order in which they were reached.
    const std::vector<std::size_t>& order() const { return m_order; }
    /// By node: whether it was reached.
    const std::vector<bool>& isReached() const { return m_isReached; }

private:
    std::vector<bool> m_isReached;
    std::vector<std::size_t> m_order;
    std::size_t m_at = 0;
    std::size_t m_most;
};

/// The node and those that it leads to, directly or in the end, over references that are followed;
/// nearest first, each once, at most `most`.
template <typename Follows>
std::vector<std::size_t> reachable(const Description& description, std::size_t start,
    Follows isFollowed, std::size_t most = NodeWalk::unlimited)
{
    NodeWalk walk(description.nodes().size(), most);
    walk.reach(start);
    walk.run([&](std::size_t node) {
        description.node(node).forEachTarget(
            isFollowed, [&walk](std::size_t target) { walk.reach(target); });
    });
    return walk.order();
}

/// The node and those that its value comes from through pValue, nearest first.
inline std::vector<std::size_t> valueChain(const Description& description, std::size_t start)
{
    return reachable(description, start, only(ReferenceTag::Value));
}

} // namespace zqcameralib
