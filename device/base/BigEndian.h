// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <glib.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace zqcameralib {

// Numbers of 2, 4 or 8 bytes, integer or floating-point, as bytes in big-endian order: that of the
// protocols and of most registers.

template <typename Number>
using BitsOf = std::conditional_t<sizeof(Number) == 2, std::uint16_t,
    std::conditional_t<sizeof(Number) == 4, std::uint32_t, std::uint64_t>>;

inline std::uint16_t swappedToBigEndian(std::uint16_t bits)
{
    return GUINT16_TO_BE(bits);
}
inline std::uint32_t swappedToBigEndian(std::uint32_t bits)
{
    return GUINT32_TO_BE(bits);
}
inline std::uint64_t swappedToBigEndian(std::uint64_t bits)
{
    return GUINT64_TO_BE(bits);
}

template <typename Number> std::array<std::uint8_t, sizeof(Number)> toBigEndian(Number value)
{
    static_assert(std::is_arithmetic_v<Number> && sizeof(Number) == sizeof(BitsOf<Number>));
    BitsOf<Number> bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    bits = swappedToBigEndian(bits);
    std::array<std::uint8_t, sizeof(Number)> bytes {};
    std::memcpy(bytes.data(), &bits, sizeof bits);
    return bytes;
}

/// `bytes` are as many as the number has.
template <typename Number> Number fromBigEndian(const std::uint8_t* bytes)
{
    static_assert(std::is_arithmetic_v<Number> && sizeof(Number) == sizeof(BitsOf<Number>));
    BitsOf<Number> bits = 0;
    std::memcpy(&bits, bytes, sizeof bits);
    bits = swappedToBigEndian(bits); // swapped again, it is the computer's order
    Number value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

template <typename Number>
Number fromBigEndian(const std::array<std::uint8_t, sizeof(Number)>& bytes)
{
    return fromBigEndian<Number>(bytes.data());
}

} // namespace zqcameralib
