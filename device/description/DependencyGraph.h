#pragma once

#include "description/Description.h"

#include <cstdint>
#include <vector>

namespace zqcameralib {

/// Where a register is, when the description says so in a plain number. False otherwise, and for
/// nodes that are no registers.
bool fixedRegister(const DescriptionNode& node, std::uint64_t& address, std::size_t& size);

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

    /// Whether reading the node can touch a register whose place is not fixed: then only running
    /// shows what it overlaps with.
    bool readsVariableAddress(std::size_t node) const { return m_readsVariableAddress[node]; }

private:
    void addReferences(std::size_t node);
    void addOverlaps();
    void findVariableAddresses();

    const Description& m_description;
    std::vector<std::vector<std::size_t>> m_dependents; ///< by node: who changes with it
    std::vector<std::vector<std::size_t>> m_written; ///< by node: what a write passes on to
    /// By node: who changes in the camera, with the registers behind, as the description declares.
    std::vector<std::vector<std::size_t>> m_declared;
    std::vector<bool> m_readsVariableAddress;
};

} // namespace zqcameralib
