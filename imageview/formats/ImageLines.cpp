// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "formats/ImageLines.h"

#include "featurebrowser/ZQImage.h"

namespace featurebrowser {

namespace {

constexpr int longestSide = 1'000'000;

// Lines of YUV groups begin on a byte; all other packed ones are joined when nothing pads them.
bool areLinesJoined(const ZQImage& image, const PixelFormat& format)
{
    return image.lineStride == 0 && format.kind != PixelKind::Yuv;
}

std::uint64_t bytesOf(std::uint64_t pixels, const PixelFormat& format)
{
    return (pixels * static_cast<std::uint64_t>(format.pixelBits()) + 7) / 8;
}

std::uint64_t bytesOfLine(const ZQImage& image, const PixelFormat& format)
{
    return bytesOf(static_cast<std::uint64_t>(image.width), format);
}

bool isAbsurd(int side)
{
    return side < 1 || side > longestSide;
}

// A line without one whole group of pixels has no colours.
bool isTooNarrow(const ZQImage& image, const PixelFormat& format)
{
    switch (format.layout) {
    case Layout::YUYV:
    case Layout::UYVY:
        return image.width < 2;
    case Layout::UYYVYY:
    case Layout::YYUYYV:
        return image.width < 4;
    default:
        return false;
    }
}

} // namespace

std::uint64_t neededBytes(const ZQImage& image, const PixelFormat& format)
{
    const auto width = static_cast<std::uint64_t>(image.width);
    const auto height = static_cast<std::uint64_t>(image.height);
    if (areLinesJoined(image, format)) {
        return bytesOf(width * height, format);
    }
    const std::uint64_t line = bytesOfLine(image, format);
    return (height - 1) * (image.lineStride ? image.lineStride : line) + line;
}

ImageFault faultOf(const ZQImage& image)
{
    if (!image.data && image.size == 0) {
        return ImageFault::Empty;
    }
    const PixelFormat* format = findFormat(image.pixelFormat);
    if (!format) {
        return ImageFault::UnknownFormat;
    }
    if (isAbsurd(image.width) || isAbsurd(image.height) || isTooNarrow(image, *format)) {
        return ImageFault::AbsurdSize;
    }
    if (image.lineStride != 0 && image.lineStride < bytesOfLine(image, *format)) {
        return ImageFault::ShortLines;
    }
    // The first comparison keeps the product in the second one within 64 bits.
    const bool isStrideTooLong = image.height > 1 && image.lineStride > image.size;
    if (!image.data || isStrideTooLong || neededBytes(image, *format) > image.size) {
        return ImageFault::TooFewBytes;
    }
    return ImageFault::None;
}

ImageLines::ImageLines(const ZQImage& image)
    : m_format(findFormat(image.pixelFormat))
    , m_data(image.data)
    , m_width(image.width)
    , m_height(image.height)
    , m_stride(areLinesJoined(image, *m_format) ? 0
              : image.lineStride                ? image.lineStride
                                                : bytesOfLine(image, *m_format))
{
}

PixelKind ImageLines::kind() const
{
    const bool hasCells = m_width > 1 && m_height > 1;
    return m_format->kind == PixelKind::Bayer && !hasCells ? PixelKind::Mono : m_format->kind;
}

Line ImageLines::line(int y) const
{
    const auto row = static_cast<std::size_t>(y);
    if (m_stride != 0) {
        return { m_data + row * m_stride, 0 };
    }
    const int components = m_width * m_format->components();
    return { m_data, row * static_cast<std::size_t>(components) };
}

} // namespace featurebrowser
