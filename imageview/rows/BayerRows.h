// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/ImageLines.h"
#include "formats/Packing.h"
#include "rows/ComponentRow.h"
#include "rows/Pixel.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace featurebrowser {

inline unsigned mean(unsigned a, unsigned b)
{
    return (a + b + 1) / 2;
}

inline unsigned mean(unsigned a, unsigned b, unsigned c, unsigned d)
{
    return (a + b + c + d + 2) / 4;
}

/// Colours of a Bayer image by the cell of four pixels around each place.
template <class Sink>
void readBayerCells(const ImageLines& lines, int y, const int* columns, int count, Sink sink)
{
    const BayerPhase phase = bayerPhase(lines.format().layout);
    const int top = std::min(y, lines.height() - 2) & ~1;
    const Line redLine = lines.line(top + phase.redY);
    const Line blueLine = lines.line(top + 1 - phase.redY);
    const int last = lines.width() - 2;
    const auto redX = static_cast<std::size_t>(phase.redX);
    withReader(lines.format(), [=](auto reader) {
        const auto at = [](const Line& line, std::size_t n) {
            return decltype(reader)::at(line.data, line.first + n);
        };
        for (int i = 0; i < count; ++i) {
            const auto left = static_cast<std::size_t>(std::min(columns[i], last) & ~1);
            const std::uint16_t red = at(redLine, left + redX);
            const std::uint16_t green = at(redLine, left + 1 - redX);
            const std::uint16_t green2 = at(blueLine, left + redX);
            const std::uint16_t blue = at(blueLine, left + 1 - redX);
            sink.put(i,
                { red, static_cast<std::uint16_t>(mean(green, green2)), blue,
                    std::max(std::max(red, blue), std::max(green, green2)) });
        }
    });
}

/// Three lines around a place; `i` is its column.
struct Neighbours {
    const std::uint16_t* above;
    const std::uint16_t* line;
    const std::uint16_t* below;

    unsigned beside(int i) const { return mean(line[i - 1], line[i + 1]); }
    unsigned upright(int i) const { return mean(above[i], below[i]); }
    unsigned cross(int i) const { return mean(line[i - 1], line[i + 1], above[i], below[i]); }
    unsigned corners(int i) const
    {
        return mean(above[i - 1], above[i + 1], below[i - 1], below[i + 1]);
    }
};

/// Colours of a Bayer image interpolated from the neighbours; beyond the edges the image is taken
/// as mirrored, which keeps its pattern. Keeps the lines it has read for the next line.
class BayerInterpolation {
public:
    template <class Sink> void read(const ImageLines& lines, int y, int first, int count, Sink sink)
    {
        const Neighbours near = neighbours(lines, y, first, count);
        const BayerPhase phase = bayerPhase(lines.format().layout);
        if (y % 2 == phase.redY) {
            interpolate<true>(near, first % 2 != phase.redX, count, sink);
        } else {
            interpolate<false>(near, first % 2 == phase.redX, count, sink);
        }
    }

private:
    struct Kept {
        int y = -1;
        std::vector<std::uint16_t> values; ///< with one more on either side
    };
    Neighbours neighbours(const ImageLines& lines, int y, int first, int count);
    const std::uint16_t* lineAt(const ImageLines& lines, int y);

    template <bool isRedLine>
    static Pixel pixelOf(unsigned own, unsigned green, unsigned other, unsigned level)
    {
        const auto red = static_cast<std::uint16_t>(isRedLine ? own : other);
        const auto blue = static_cast<std::uint16_t>(isRedLine ? other : own);
        return { red, static_cast<std::uint16_t>(green), blue, static_cast<std::uint16_t>(level) };
    }

    template <bool isRedLine, class Sink>
    static void interpolate(const Neighbours& near, bool startsGreen, int count, Sink sink)
    {
        int i = 0;
        const auto green = [&] {
            const unsigned own = near.line[i];
            sink.put(i, pixelOf<isRedLine>(near.beside(i), own, near.upright(i), own));
            ++i;
        };
        if (startsGreen) {
            green();
        }
        while (i < count) {
            const unsigned own = near.line[i];
            sink.put(i, pixelOf<isRedLine>(own, near.cross(i), near.corners(i), own));
            if (++i < count) {
                green();
            }
        }
    }

    std::array<Kept, 3> m_kept;
    int m_first = -1;
    int m_count = 0;
};

} // namespace featurebrowser
