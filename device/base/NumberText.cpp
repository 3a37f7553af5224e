#include "base/NumberText.h"

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

} // namespace

std::string integerText(std::int64_t value)
{
    return toText(value);
}

std::string floatText(double value)
{
    return std::isfinite(value) ? toText(value) : std::string();
}

double finiteMinimum(double value)
{
    return std::isnan(value) ? -DBL_MAX : std::clamp(value, -DBL_MAX, DBL_MAX);
}

double finiteMaximum(double value)
{
    return std::isnan(value) ? DBL_MAX : std::clamp(value, -DBL_MAX, DBL_MAX);
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

} // namespace zqcameralib
