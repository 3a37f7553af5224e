// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace featurebrowser {

enum class PixelKind { Mono, Bayer, Rgb, Yuv };

/// How components lie in the bytes. "Lsb": without gaps from the lowest bit on (names ending in p).
/// "Pair": two in three bytes, high bits in the outer ones (names ending in Packed).
enum class Packing { Bytes, Words, Lsb10, Lsb12, Lsb14, Pair10, Pair12 };

/// Order of colours: of Bayer images in the first two lines, otherwise of a pixel's components.
enum class Layout {
    Grey,
    GR,
    RG,
    GB,
    BG,
    RGB,
    BGR,
    RGBa,
    BGRa,
    YUYV,
    UYVY,
    YUV,
    UYV,
    UYYVYY,
    YYUYYV
};

/// What the components of a YUV image mean.
enum class Coding { None, Full601, Limited601, Limited709 };

struct PixelFormat {
    std::uint32_t code; ///< PFNC
    const char* name;
    PixelKind kind;
    int bits; ///< of a component
    Packing packing;
    Layout layout;
    Coding coding;

    /// Components of a pixel; of a YUV format those that its pixels have on average do not count.
    int components() const;
    /// Bits of a pixel in memory.
    int pixelBits() const { return static_cast<int>(code >> 16 & 0xFF); }
    std::uint32_t maximum() const { return (1U << bits) - 1; }
    /// Value from which on a component is as bright as it can be told.
    std::uint32_t white() const;
};

/// Null when it cannot be shown.
const PixelFormat* findFormat(std::uint32_t code);
/// The grey format whose components lie as those of a Bayer format; the format itself otherwise.
const PixelFormat& greyOf(const PixelFormat& format);
/// Name of a format that is known but cannot be shown; null when it is unknown.
const char* nameOfOther(std::uint32_t code);

} // namespace featurebrowser
