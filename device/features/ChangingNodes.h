// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"

#include <cstdint>
#include <set>
#include <utility>
#include <vector>

namespace zqcameralib {

/// Which nodes' values can change while a camera is connected.
class ChangingNodes {
public:
    /// `description` has to outlive it.
    explicit ChangingNodes(const Description& description);

    /// Not so where all that is read for the value are registers at fixed places that nobody writes
    /// and that the camera does not change by itself, and numbers of the description.
    bool canChange(std::size_t node) const;

private:
    bool isChanged(std::size_t node) const;

    const Description& m_description;
    std::set<std::pair<std::uint64_t, std::uint64_t>> m_written; ///< registers: first and last byte
    std::vector<bool> m_isFeature; ///< by node: whether it is one, or written through one
};

} // namespace zqcameralib
