// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "rows/PixelFacts.h"

#include "formats/YuvLayout.h"
#include "rows/ComponentRow.h"

#include <algorithm>
#include <cstring>

namespace featurebrowser {

namespace {

using Components = std::vector<ZQPixelComponent>;

const char* bayerColour(Layout layout, int x, int y)
{
    const BayerPhase phase = bayerPhase(layout);
    const bool isRedColumn = x % 2 == phase.redX;
    const bool isRedLine = y % 2 == phase.redY;
    if (isRedColumn != isRedLine) {
        return "G";
    }
    return isRedLine ? "R" : "B";
}

Components rgbComponents(const ImageLines& lines, int x, int y)
{
    const RgbOrder order = rgbOrder(lines.format().layout);
    const auto count = static_cast<std::size_t>(lines.format().components());
    const std::size_t first = static_cast<std::size_t>(x) * count;
    Components all = { { "R", componentOf(lines, y, first + order.red) },
        { "G", componentOf(lines, y, first + order.green) },
        { "B", componentOf(lines, y, first + order.blue) } };
    if (count == 4) {
        all.push_back({ "a", componentOf(lines, y, first + 3) });
    }
    return all;
}

Components yuvComponents(const ImageLines& lines, int x, int y)
{
    const YuvLayout& layout = yuvLayout(lines.format().layout);
    const std::uint8_t* line = lines.line(y).data;
    const int whole = std::min(x / layout.pixels, lines.width() / layout.pixels - 1);
    const std::uint8_t* colours = line + whole * layout.bytes;
    const bool isYuv = std::strncmp(lines.format().name, "YUV", 3) == 0;
    return { { "Y", line[layout.lumaOf(x)] }, { isYuv ? "U" : "Cb", colours[layout.u] },
        { isYuv ? "V" : "Cr", colours[layout.v] } };
}

// An odd step meets all colours of a Bayer image.
int stepOver(const ImageLines& lines)
{
    constexpr std::int64_t mostPixels = 250'000;
    const auto countWith = [&](int step) {
        return std::int64_t { (lines.width() + step - 1) / step }
        * ((lines.height() + step - 1) / step);
    };
    int step = 1;
    while (countWith(step) > mostPixels) {
        step += 2;
    }
    return step;
}

// Where the line's components begin that count for a pixel.
std::size_t firstComponent(const ImageLines& lines, int x)
{
    if (lines.format().kind != PixelKind::Yuv) {
        return static_cast<std::size_t>(x) * static_cast<std::size_t>(lines.format().components());
    }
    return static_cast<std::size_t>(yuvLayout(lines.format().layout).lumaOf(x));
}

} // namespace

Components pixelComponents(const ImageLines& lines, int x, int y)
{
    const PixelFormat& format = lines.format();
    if (format.kind == PixelKind::Rgb) {
        return rgbComponents(lines, x, y);
    }
    if (format.kind == PixelKind::Yuv) {
        return yuvComponents(lines, x, y);
    }
    const bool isBayer = format.kind == PixelKind::Bayer;
    return { { isBayer ? bayerColour(format.layout, x, y) : "Y",
        componentOf(lines, y, static_cast<std::size_t>(x)) } };
}

std::vector<std::uint32_t> valueCounts(const ImageLines& lines)
{
    std::vector<std::uint32_t> bins(256);
    const int step = stepOver(lines);
    const int shift = lines.format().bits - 8;
    const auto components = static_cast<std::size_t>(std::min(lines.format().components(), 3));
    for (int y = 0; y < lines.height(); y += step) {
        for (int x = 0; x < lines.width(); x += step) {
            const std::size_t first = firstComponent(lines, x);
            for (std::size_t n = first; n < first + components; ++n) {
                ++bins[std::min<std::size_t>(componentOf(lines, y, n) >> shift, 255)];
            }
        }
    }
    return bins;
}

} // namespace featurebrowser
