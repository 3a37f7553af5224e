// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>

namespace zqcameralib {

/// Brightness of a pixel in 16 bits.
struct Levels {
    std::uint16_t red = 0;
    std::uint16_t green = 0;
    std::uint16_t blue = 0;
    std::uint16_t grey = 0; ///< where colours are not told apart
};

/// Puts pixels into images of one format, which its PFNC code tells. Of a code that is not known,
/// the bits of a pixel decide.
class PixelWriter {
public:
    PixelWriter(std::uint32_t pixelFormat, std::int64_t width);

    /// Whether pixels are only grey.
    bool isGrey() const { return m_format.kind == Kind::Grey; }
    /// What lies beyond the image's `size` bytes is left out.
    void put(std::uint8_t* image, std::size_t size, std::int64_t column, std::int64_t row,
        const Levels& levels) const;

    enum class Kind : std::uint8_t { Grey, Bayer, Colours, Yuv };
    enum class Packing : std::uint8_t {
        Bytes, ///< one or two, little endian
        Bits, ///< without gaps, from the lowest bit on
        Pairs, ///< two in three bytes, the upper bits of each in a byte of their own
    };
    enum class Coding : std::uint8_t { Full601, Limited601, Limited709 };
    struct Format {
        Kind kind;
        std::uint8_t bits; ///< of one component
        Packing packing;
        /// Components as they follow; for Bayer those of two rows of two, for YUV those of a group.
        const char* order;
        Coding coding;
    };

private:
    void store(std::uint8_t* image, std::size_t size, std::uint64_t pixel, std::size_t component,
        std::uint16_t level) const;
    void putYuv(
        std::uint8_t* image, std::size_t size, std::uint64_t pixel, const Levels& levels) const;

    Format m_format;
    std::uint64_t m_pixelBits;
    std::int64_t m_width;
};

} // namespace zqcameralib
