#pragma once

#include "features/Feature.h"

#include <cstdint>

namespace zqcameralib {

/// Present limits and increment of a number.
struct IntegerLimits {
    std::int64_t minimum = INT64_MIN;
    std::int64_t maximum = INT64_MAX;
    std::int64_t increment = 0; ///< 0 = no grid known
};
struct FloatLimits {
    double minimum = 0.0;
    double maximum = 0.0;
    double increment = 0.0; ///< 0 = no grid
};

// All may read registers. What cannot be evaluated limits nothing.

/// Of an integer whose node map node is one.
IntegerLimits integerLimits(const Feature& feature);
/// Of a float whose node map node is one.
FloatLimits floatLimits(const Feature& feature);
/// Longest text in bytes that fits now, 0 when there is no limit.
std::uint32_t maxTextLength(const Feature& feature);

} // namespace zqcameralib
