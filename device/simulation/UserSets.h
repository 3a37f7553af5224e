// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "memory/RegisterMemory.h"

#include <array>
#include <cstddef>

namespace zqcameralib {

/// The simulated camera's stored settings: the default set 0, which is the state at power-up, and
/// two that the user can save. They survive a reset, as does what the camera keeps without power.
class UserSets {
public:
    /// Makes the settings in `memory` the content of all sets.
    void initialise(const RegisterMemory& memory);
    /// Replaces the settings in `memory`; nothing happens for a set that does not exist.
    void load(std::size_t set, RegisterMemory& memory) const;
    /// Nothing happens for the default set or one that does not exist.
    void save(std::size_t set, const RegisterMemory& memory);

    /// Copies the registers that are kept without power.
    static void copyKept(const RegisterMemory& from, RegisterMemory& to);

private:
    std::array<RegisterMemory, 3> m_sets;
};

} // namespace zqcameralib
