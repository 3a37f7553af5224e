// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace zqcameralib {

/// Bits of one pixel, as the pixel format's own code tells; 8 when it does not.
constexpr std::uint64_t bitsPerPixel(std::uint32_t pixelFormat)
{
    const std::uint64_t bits = (pixelFormat >> 16U) & 0xFFU;
    return bits == 0 ? 8 : bits;
}

/// Whole bytes of so many pixels.
constexpr std::uint64_t imageBytes(
    std::uint64_t width, std::uint64_t height, std::uint32_t pixelFormat)
{
    return (width * height * bitsPerPixel(pixelFormat) + 7) / 8;
}

/// How many of `height` rows lie in so many bytes.
constexpr std::int64_t rowsWithin(
    std::size_t bytes, std::int64_t width, std::int64_t height, std::uint32_t pixelFormat)
{
    if (width <= 0 || height <= 0) {
        return 0;
    }
    const std::uint64_t row = static_cast<std::uint64_t>(width) * bitsPerPixel(pixelFormat);
    return static_cast<std::int64_t>(std::min<std::uint64_t>(
        bytes * std::uint64_t(8) / row, static_cast<std::uint64_t>(height)));
}

} // namespace zqcameralib
