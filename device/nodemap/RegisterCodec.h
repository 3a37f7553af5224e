#pragma once

#include "nodemap/NodeFacts.h"

#include <cstdint>

namespace zqcameralib {

/// What fits an integer register, or its bits; for 64 bits, what fits a signed 64-bit integer.
struct IntegerRange {
    std::int64_t minimum = INT64_MIN;
    std::int64_t maximum = INT64_MAX;
};

// Registers of 1 to 8 bytes, as they lie in the camera.

IntegerRange integerRange(const RegisterFacts& facts, std::size_t length);
std::int64_t decodeInteger(
    const RegisterFacts& facts, const std::uint8_t* bytes, std::size_t length);
/// Puts the value into its bits of `bytes`, and leaves the others.
void encodeInteger(
    const RegisterFacts& facts, std::int64_t value, std::uint8_t* bytes, std::size_t length);

/// `length`: 4 or 8 bytes.
double decodeReal(const RegisterFacts& facts, const std::uint8_t* bytes, std::size_t length);
void encodeReal(const RegisterFacts& facts, double value, std::uint8_t* bytes, std::size_t length);

} // namespace zqcameralib
