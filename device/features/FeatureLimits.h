// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "features/Feature.h"
#include "nodemap/NodeMap.h"

#include <cstdint>

namespace zqcameralib {

/// Present limits and increment of a number.
struct IntegerLimits {
    std::int64_t minimum = INT64_MIN;
    std::int64_t maximum = INT64_MAX;
    std::int64_t increment = 1; ///< 0 or less = the description gives none that is possible
};
struct FloatLimits {
    double minimum = 0.0;
    double maximum = 0.0;
    double increment = 0.0; ///< 0 = no grid
};

// All may read registers; a failure says why a limit cannot be told.

/// Of an integer.
Result<IntegerLimits> integerLimits(NodeMap& nodes, const Feature& feature);
/// Of a float.
Result<FloatLimits> floatLimits(NodeMap& nodes, const Feature& feature);
/// Longest text in bytes that fits now, 0 when there is no limit.
Result<std::uint32_t> maxTextLength(NodeMap& nodes, const Feature& feature);

/// Whether the value is one of those that the description lists for the node (ValidValueSet, schema
/// 1.1); true where it lists none.
bool isInValueSet(const DescriptionNode& node, std::int64_t value);

} // namespace zqcameralib
