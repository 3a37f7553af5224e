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
    std::vector<Condition> availableIf; ///< pIsImplemented and pIsAvailable
};

/// The entries that have a value, in the order of the description.
std::vector<EnumEntry> enumEntries(ArvGcEnumeration* enumeration, const DescriptionNode& node);

} // namespace zqcameralib
