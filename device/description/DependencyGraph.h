// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"

#include <vector>

namespace zqcameralib {

/// Which nodes can change when one is written or run: through values, limits, increments,
/// conditions, addresses, indices, lengths, formulas, selectors and declared invalidations, and
/// through registers that overlap.
class DependencyGraph {
public:
    explicit DependencyGraph(const Description& description);

    /// Marks, by node index, everything that can change when `node` is written: transitively, with
    /// `node` itself and what the write passes through.
    std::vector<bool> affectedBy(std::size_t node) const;
    /// The same for several nodes that change together.
    std::vector<bool> affectedBy(const std::vector<std::size_t>& nodes) const;

    /// Whether reading the node can touch a register with a variable address: then only running
    /// shows what it overlaps with.
    bool readsVariableAddress(std::size_t node) const { return m_readsVariableAddress[node]; }

private:
    using Nodes = std::vector<std::size_t>;

    void addReferences(std::size_t node);
    void addReference(std::size_t node, const Reference& reference);
    void addOverlaps();
    void findVariableAddresses();

    const Description& m_description;
    std::vector<Nodes> m_dependents; ///< by node: who changes with it
    std::vector<Nodes> m_written; ///< by node: what a write passes on to
    /// By node: who changes in the camera, with the registers behind, as the description declares.
    std::vector<Nodes> m_declared;
    std::vector<bool> m_readsVariableAddress;
};

} // namespace zqcameralib
