// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "nodemap/NodeFacts.h"

#include <cstdint>

namespace zqcameralib {

/// What fits an integer register, or its bits; for 64 bits, what fits a signed 64-bit integer.
struct IntegerRange {
    std::int64_t minimum = INT64_MIN;
    std::int64_t maximum = INT64_MAX;
};

// Registers of a possible length, as they lie in the camera.

/// Whether an integer register may have that many bytes; a camera, or a user, may tell another
/// length than the description was checked with.
bool holdsInteger(const RegisterFacts& facts, std::size_t length);
/// The same for a float.
bool holdsReal(std::size_t length);

IntegerRange integerRange(const RegisterFacts& facts, std::size_t length);
std::int64_t decodeInteger(
    const RegisterFacts& facts, const std::uint8_t* bytes, std::size_t length);
/// Puts the value into its bits of `bytes`, and leaves the others.
void encodeInteger(
    const RegisterFacts& facts, std::int64_t value, std::uint8_t* bytes, std::size_t length);

double decodeReal(const RegisterFacts& facts, const std::uint8_t* bytes, std::size_t length);
void encodeReal(const RegisterFacts& facts, double value, std::uint8_t* bytes, std::size_t length);

} // namespace zqcameralib
