// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "formula/Number.h"

#include <charconv>
#include <cmath>
#include <string_view>

namespace zqcameralib {

namespace {

constexpr double integerLimit = 9223372036854775808.0; // 2^63

bool isHexadecimal(std::string_view text)
{
    return text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

/// All 64 bits of a hexadecimal number count: what is beyond the largest signed one is negative. A
/// decimal one beyond is real.
std::optional<Number> parseDigits(std::string_view digits, int base, bool isNegative)
{
    std::uint64_t bits = 0;
    const char* const end = digits.data() + digits.size();
    const std::from_chars_result result = std::from_chars(digits.data(), end, bits, base);
    if (result.ec != std::errc() || result.ptr != end) {
        return std::nullopt;
    }
    if (base == 10 && bits > static_cast<std::uint64_t>(INT64_MAX)) {
        return Number::of(isNegative ? -static_cast<double>(bits) : static_cast<double>(bits));
    }
    return Number::of(static_cast<std::int64_t>(isNegative ? 0U - bits : bits));
}

std::optional<Number> parseReal(std::string_view text, bool isNegative)
{
    double value = 0.0;
    const char* const end = text.data() + text.size();
    const std::from_chars_result result = std::from_chars(text.data(), end, value);
    if (result.ec != std::errc() || result.ptr != end || text[0] == '-') {
        return std::nullopt;
    }
    return Number::of(isNegative ? -value : value);
}

} // namespace

std::optional<std::int64_t> Number::rounded() const
{
    if (!isReal) {
        return integer;
    }
    const double nearest = std::round(real);
    return nearest >= -integerLimit && nearest < integerLimit
        ? std::optional(static_cast<std::int64_t>(nearest))
        : std::nullopt;
}

bool Number::isFinite() const
{
    return !isReal || std::isfinite(real);
}

bool operator==(const Number& a, const Number& b)
{
    return a.isReal || b.isReal ? a.asReal() == b.asReal() : a.integer == b.integer;
}

bool operator<(const Number& a, const Number& b)
{
    return a.isReal || b.isReal ? a.asReal() < b.asReal() : a.integer < b.integer;
}

std::optional<Number> parseNumber(std::string_view text)
{
    const bool isNegative = !text.empty() && text[0] == '-';
    if (isNegative || (!text.empty() && text[0] == '+')) {
        text.remove_prefix(1);
    }
    if (text.empty()) {
        return std::nullopt;
    }
    if (isHexadecimal(text)) {
        return parseDigits(text.substr(2), 16, isNegative);
    }
    const bool isInteger = text.find_first_not_of("0123456789") == std::string_view::npos;
    const std::optional<Number> integer
        = isInteger ? parseDigits(text, 10, isNegative) : std::nullopt;
    return integer ? integer : parseReal(text, isNegative);
}

} // namespace zqcameralib
