// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/PixelFormat.h"

#include <cstddef>
#include <cstdint>

namespace featurebrowser {

struct ZQImage;

enum class ImageFault { None, Empty, UnknownFormat, AbsurdSize, ShortLines, TooFewBytes };

/// Whether every pixel that the image claims to have lies within its bytes.
ImageFault faultOf(const ZQImage& image);
/// Bytes that an image of that format and size needs, not more than 8 TB.
std::uint64_t neededBytes(const ZQImage& image, const PixelFormat& format);

/// A line as a run of components: its first is component `first` from `data` on.
struct Line {
    const std::uint8_t* data;
    std::size_t first;
};

/// The lines of an image without fault, whose bytes have to outlive this.
class ImageLines {
public:
    explicit ImageLines(const ZQImage& image);

    const PixelFormat& format() const { return *m_format; }
    /// As the format, but Mono for Bayer images too small to hold a cell of four colours.
    PixelKind kind() const;
    int width() const { return m_width; }
    int height() const { return m_height; }
    Line line(int y) const;

private:
    const PixelFormat* m_format;
    const std::uint8_t* m_data;
    int m_width;
    int m_height;
    std::size_t m_stride; ///< 0: lines are joined within bytes
};

} // namespace featurebrowser
