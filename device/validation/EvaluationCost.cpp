// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "validation/EvaluationCost.h"

#include "words/Words.h"

#include <algorithm>
#include <vector>

namespace zqcameralib {

namespace {

// Real descriptions reach chains of 40 nodes, and 24,000 visits of nodes to evaluate one feature.
constexpr std::uint64_t maxCost = 100000;
constexpr std::uint32_t maxChain = 400;

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
        for (std::size_t user = 0; user < m_nodes.size(); ++user) {
            if (!hasValue(m_nodes[user].kind)) {
                continue; // a port or a category is what it is, whatever it refers to
            }
            m_nodes[user].forEachTarget(isValueReference, [this, user](std::size_t target) {
                ++m_needed[user];
                m_users[target].push_back(user);
            });
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
                m_nodes[i].broken = translated("its value depends on itself");
            }
        }
    }

    std::uint64_t totalCost() const
    {
        std::uint64_t total = 0;
        for (const DescriptionNode& node : m_nodes) {
            node.forEachTarget(only(ReferenceTag::Feature),
                [&](std::size_t feature) { total += readCost(feature); });
        }
        return total;
    }

private:
    std::uint64_t readCost(std::size_t node) const
    {
        std::uint64_t cost = m_cost[node];
        const auto isAskedBeside
            = [](ReferenceTag tag) { return isLimit(tag) || isCondition(tag); };
        m_nodes[node].forEachTarget(isAskedBeside,
            [&](std::size_t target) { cost += m_nodes[target].isBroken() ? 0 : m_cost[target]; });
        return cost;
    }

    void finish(std::size_t node)
    {
        if (!m_nodes[node].isBroken() && (m_cost[node] > maxCost || m_chain[node] > maxChain)) {
            m_nodes[node].broken = translated("it takes too long to evaluate");
        }
        if (m_nodes[node].isBroken()) {
            m_cost[node] = 1;
        }
    }

    void passOn(std::size_t node, std::size_t user)
    {
        if (m_nodes[node].isBroken() && !m_nodes[user].isBroken()) {
            m_nodes[user].broken = worded(
                "it needs %s, which cannot be read", std::string(m_nodes[node].name).c_str());
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

std::uint64_t markUnevaluable(Description& description)
{
    Evaluation evaluation(description);
    evaluation.run();
    return evaluation.totalCost();
}

} // namespace zqcameralib
