// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/NumberText.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>

namespace zqcameralib {

namespace {

template <typename Number> std::string toText(Number value)
{
    std::array<char, 64> text {};
    const std::to_chars_result end = std::to_chars(text.data(), text.data() + text.size(), value);
    return { text.data(), end.ptr };
}

constexpr std::size_t maxHexBytes = 64;

/// Leading zeros do not make a number of a description octal.
unsigned baseOf(const std::string& text)
{
    const std::size_t digits = text.find_first_not_of(" \t\r\n+-");
    const bool isHexadecimal = digits != std::string::npos && text[digits] == '0'
        && g_ascii_tolower(text.c_str()[digits + 1]) == 'x';
    return isHexadecimal ? 16 : 10;
}

} // namespace

std::string integerText(std::int64_t value)
{
    return toText(value);
}

std::string floatText(double value)
{
    return std::isfinite(value) ? toText(value) : std::string();
}

std::string hexText(const std::uint8_t* bytes, std::size_t size)
{
    constexpr std::array<char, 17> digits { "0123456789ABCDEF" };
    std::string text;
    for (std::size_t i = 0; i < std::min(size, maxHexBytes); ++i) {
        text += i == 0 ? "" : " ";
        text += digits[bytes[i] >> 4U];
        text += digits[bytes[i] & 0xFU];
    }
    return size <= maxHexBytes ? text : text + " ... (" + std::to_string(size) + " bytes)";
}

std::int64_t leadingInteger(std::string_view text)
{
    const std::string copy(text);
    return g_ascii_strtoll(copy.c_str(), nullptr, baseOf(copy));
}

std::uint64_t leadingUnsigned(std::string_view text, unsigned base)
{
    const std::string copy(text);
    return g_ascii_strtoull(copy.c_str(), nullptr, base == 0 ? baseOf(copy) : base);
}

std::optional<std::int64_t> wholeInteger(std::string_view text)
{
    const std::string copy(text);
    char* end = nullptr;
    const std::int64_t value = g_ascii_strtoll(copy.c_str(), &end, baseOf(copy));
    return !copy.empty() && *end == '\0' ? std::optional(value) : std::nullopt;
}

double finiteMinimum(double value)
{
    return std::isnan(value) ? -DBL_MAX : std::clamp(value, -DBL_MAX, DBL_MAX);
}

double finiteMaximum(double value)
{
    return std::isnan(value) ? DBL_MAX : std::clamp(value, -DBL_MAX, DBL_MAX);
}

} // namespace zqcameralib
