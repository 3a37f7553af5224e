// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "features/Conditions.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zqcameralib {

/// One entry of an enumeration.
struct EnumEntry {
    std::string name;
    std::int64_t value = 0;
    bool isInvisible = false; ///< not offered, but shown where it is the present value
    std::vector<Condition> availableIf; ///< pIsImplemented and pIsAvailable
};

/// The entries that have a value, in the order of the description.
std::vector<EnumEntry> enumEntries(const Description& description, std::size_t enumeration);

} // namespace zqcameralib
