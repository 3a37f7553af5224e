// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zqcameralib {

// Texts of numbers and numbers from texts, the same in every locale.

/// Decimal text.
std::string integerText(std::int64_t value);
/// The shortest decimal text that reads back to the same double; empty for NaN and the infinities,
/// which no reader of a decimal number takes.
std::string floatText(double value);
/// Two hex digits per byte, blanks between bytes. Only the first 64 bytes of longer data, then
/// how long it is.
std::string hexText(const std::uint8_t* bytes, std::size_t size);

/// The integer that a text begins with, 0 where it begins with none, and the nearest one that there
/// is beyond 64 bits. Base 0 tells hexadecimal ones by 0x, and octal ones by 0, as C does.
std::int64_t leadingInteger(std::string_view text);
std::uint64_t leadingUnsigned(std::string_view text, unsigned base = 0);
/// The same of a text that is nothing else.
std::optional<std::int64_t> wholeInteger(std::string_view text);

/// Limits as a slider can use them: infinities and NaN become the largest finite doubles.
double finiteMinimum(double value);
double finiteMaximum(double value);

} // namespace zqcameralib
