// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zqcameralib {

/// A value on its way between a register and a feature: a 64-bit integer, exact, or a double.
struct Number {
    bool isReal = false;
    std::int64_t integer = 0;
    double real = 0.0;

    static Number of(std::int64_t value) { return { false, value, 0.0 }; }
    static Number of(double value) { return { true, 0, value }; }

    double asReal() const { return isReal ? real : static_cast<double>(integer); }
    /// The nearest integer, halves away from zero; nothing when it does not fit into 64 bits.
    std::optional<std::int64_t> rounded() const;
    bool isZero() const { return isReal ? real == 0.0 : integer == 0; }
    /// Not so for infinities and NaN.
    bool isFinite() const;
};

bool operator==(const Number& a, const Number& b);
bool operator<(const Number& a, const Number& b);

/// The whole text as a number of a description: decimal, with 0x hexadecimal, or a float, with or
/// without a sign. Nothing when it is none or has more than 64 bits. Leading zeros mean nothing.
std::optional<Number> parseNumber(std::string_view text);

} // namespace zqcameralib
