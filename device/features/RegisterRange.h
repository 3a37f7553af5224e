#pragma once

#include "description/Description.h"

#include <cstdint>

namespace zqcameralib {

/// What fits an integer register; all 64-bit numbers for other nodes.
struct RegisterRange {
    std::int64_t minimum = INT64_MIN;
    std::int64_t maximum = INT64_MAX;
};
RegisterRange registerRange(const DescriptionNode& node);

/// Whether the value is one of those that the description lists for the node (ValidValueSet, schema
/// 1.1); true where it lists none.
bool isInValueSet(const DescriptionNode& node, std::int64_t value);

} // namespace zqcameralib
