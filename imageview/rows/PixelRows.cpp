// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "rows/PixelRows.h"

#include "formats/Packing.h"
#include "formats/YuvLayout.h"
#include "rows/ComponentRow.h"

#include <algorithm>

namespace featurebrowser {

namespace {

// Here and below, copies instead of references: what is written could change what they refer to.
template <class Columns, class Sink>
void readGrey(const ImageLines& lines, int y, Columns columns, int count, Sink sink)
{
    const Line line = lines.line(y);
    withReader(lines.format(), [=](auto reader) {
        for (int i = 0; i < count; ++i) {
            const auto n = line.first + static_cast<std::size_t>(columns.at(i));
            const std::uint16_t value = decltype(reader)::at(line.data, n);
            sink.put(i, { value, value, value, value });
        }
    });
}

template <class Columns, class Sink>
void readRgb(const ImageLines& lines, int y, Columns columns, int count, Sink sink)
{
    const Line line = lines.line(y);
    const RgbOrder order = rgbOrder(lines.format().layout);
    const auto step = static_cast<std::size_t>(lines.format().components());
    withReader(lines.format(), [=](auto reader) {
        for (int i = 0; i < count; ++i) {
            const std::size_t n = line.first + static_cast<std::size_t>(columns.at(i)) * step;
            const std::uint16_t red = decltype(reader)::at(line.data, n + order.red);
            const std::uint16_t green = decltype(reader)::at(line.data, n + order.green);
            const std::uint16_t blue = decltype(reader)::at(line.data, n + order.blue);
            sink.put(i, { red, green, blue, std::max(std::max(red, green), blue) });
        }
    });
}

[[gnu::always_inline]] inline std::uint16_t toByte(int of65536)
{
    return static_cast<std::uint16_t>(std::min(std::max((of65536 + 32768) >> 16, 0), 255));
}

[[gnu::always_inline]] inline Pixel rgbOf(int y, int u, int v, const YuvFactors& factors)
{
    const int luma = (y - factors.black) * factors.luma;
    u -= 128;
    v -= 128;
    return { toByte(luma + factors.redOfV * v),
        toByte(luma + factors.greenOfU * u + factors.greenOfV * v),
        toByte(luma + factors.blueOfU * u), static_cast<std::uint16_t>(y) };
}

// Of a group that its line cuts off, the colours may be missing: those of the one before serve.
template <int pixels, class Columns, class Sink>
void readYuvGroups(const ImageLines& lines, int y, Columns columns, int count, Sink sink)
{
    const YuvLayout layout = yuvLayout(lines.format().layout);
    const YuvFactors factors = yuvFactors(lines.format().coding);
    const std::uint8_t* line = lines.line(y).data;
    const int lastWhole = lines.width() / pixels - 1;
    for (int i = 0; i < count; ++i) {
        const int x = columns.at(i);
        const int group = x / pixels;
        const int luma
            = line[group * layout.bytes + layout.luma[static_cast<std::size_t>(x % pixels)]];
        const std::uint8_t* colours = line + std::min(group, lastWhole) * layout.bytes;
        sink.put(i, rgbOf(luma, colours[layout.u], colours[layout.v], factors));
    }
}

template <class Columns, class Sink>
void readYuv(const ImageLines& lines, int y, Columns columns, int count, Sink sink)
{
    switch (yuvLayout(lines.format().layout).pixels) {
    case 1:
        return readYuvGroups<1>(lines, y, columns, count, sink);
    case 2:
        return readYuvGroups<2>(lines, y, columns, count, sink);
    default:
        return readYuvGroups<4>(lines, y, columns, count, sink);
    }
}

} // namespace

PixelRows::PixelRows(const ImageLines& lines)
    : m_lines(lines)
{
}

template <class Sink> void PixelRows::readRun(int y, int first, int count, Sink sink)
{
    if (m_lines.kind() == PixelKind::Bayer) {
        m_bayer.read(m_lines, y, first, count, sink);
    } else {
        read(y, ColumnRun { first }, count, sink);
    }
}

template <class Sink> void PixelRows::readSparse(int y, const int* columns, int count, Sink sink)
{
    if (m_lines.kind() == PixelKind::Bayer) {
        if (!readNearByteCells(m_lines, y, columns, count, sink, m_colours)) {
            readBayerCells(m_lines, y, columns, count, sink);
        }
    } else {
        read(y, ColumnTable { columns }, count, sink);
    }
}

template <class Columns, class Sink>
void PixelRows::read(int y, Columns columns, int count, Sink sink)
{
    switch (m_lines.kind()) {
    case PixelKind::Rgb:
        return readRgb(m_lines, y, columns, count, sink);
    case PixelKind::Yuv:
        return readYuv(m_lines, y, columns, count, sink);
    default:
        return readGrey(m_lines, y, columns, count, sink);
    }
}

template void PixelRows::readRun(int, int, int, ScreenSink<false>);
template void PixelRows::readRun(int, int, int, ScreenSink<true>);
template void PixelRows::readRun(int, int, int, WordSink);
template void PixelRows::readSparse(int, const int*, int, ScreenSink<false>);
template void PixelRows::readSparse(int, const int*, int, ScreenSink<true>);

} // namespace featurebrowser
