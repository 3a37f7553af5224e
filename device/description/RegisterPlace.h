// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"

#include <cstdint>
#include <optional>

namespace zqcameralib {

/// Largest register that is read or written.
constexpr long maxRegisterLength = 1L << 20L;

/// A register at a fixed place, or the bits of it that are a node's value.
struct RegisterPlace {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::uint64_t bits = 0; ///< all, or those of the register that are the node's

    std::size_t size() const { return last - first + 1; }
    /// Whether writing the one can change the other.
    bool overlaps(const RegisterPlace& other) const;
};

/// Where a register is, when the description says so in plain numbers. Nothing otherwise, and for
/// nodes that are no registers.
std::optional<RegisterPlace> fixedPlace(const DescriptionNode& node);

/// Whether another node reads the register that this one, at the same place, can only write.
bool isReadableByOthers(const Description& description, std::size_t node);

/// Whether the node is a register on a port that only images or events fill.
bool isOnChunkOrEventPort(const Description& description, const DescriptionNode& node);

} // namespace zqcameralib
