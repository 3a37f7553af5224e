// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/ImageLines.h"
#include "formats/Packing.h"
#include "rows/ComponentRow.h"
#include "rows/Pixel.h"

#include <QRgb>

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

/// Colours of all cells of two lines of single bytes. One after the other, which the compiler does
/// several at a time, costs less than picking single ones, as long as most of them are wanted.
/// `redX`: column of red in its cell.
template <int redX, class Sink>
void readByteCells(const std::uint8_t* redLine, const std::uint8_t* blueLine, int cells, Sink sink)
{
    for (int i = 0; i < cells; ++i) {
        const std::uint8_t red = redLine[2 * i + redX];
        const std::uint8_t green = redLine[2 * i + 1 - redX];
        const std::uint8_t green2 = blueLine[2 * i + redX];
        const std::uint8_t blue = blueLine[2 * i + 1 - redX];
        sink.putBytes(i,
            { red, static_cast<std::uint16_t>(mean(green, green2)), blue,
                std::max(std::max(red, blue), std::max(green, green2)) });
    }
}

/// Where the cells around a line are.
struct BayerCells {
    BayerCells(const ImageLines& lines, int y)
        : phase(bayerPhase(lines.format().layout))
        , red(lines.line((std::min(y, lines.height() - 2) & ~1) + phase.redY))
        , blue(lines.line((std::min(y, lines.height() - 2) & ~1) + 1 - phase.redY))
        , last(lines.width() - 2)
    {
    }
    /// Left column of the cell around a column.
    int leftOf(int column) const { return std::min(column, last) & ~1; }

    BayerPhase phase;
    Line red, blue; ///< its lines
    int last; ///< column where a cell can begin
};

/// As readBayerCells(), for columns in order, of a format of single bytes. `colours` is for its own
/// use. False, and nothing is done, where the columns are too far apart for that.
template <class Sink>
bool readNearByteCells(const ImageLines& lines, int y, const int* columns, int count, Sink sink,
    std::vector<QRgb>& colours)
{
    constexpr int worthwhile = 4; // cells for a column
    const BayerCells cells(lines, y);
    const auto [from, to]
        = std::minmax({ cells.leftOf(columns[0]), cells.leftOf(columns[count - 1]) });
    const int wanted = (to - from) / 2 + 1;
    if (lines.format().packing != Packing::Bytes || wanted > worthwhile * count) {
        return false;
    }
    colours.resize(static_cast<std::size_t>(wanted));
    QRgb* const out = sink.line();
    sink.setLine(colours.data());
    const std::uint8_t* const reds = cells.red.data + cells.red.first + from;
    const std::uint8_t* const blues = cells.blue.data + cells.blue.first + from;
    if (cells.phase.redX == 0) {
        readByteCells<0>(reds, blues, wanted, sink);
    } else {
        readByteCells<1>(reds, blues, wanted, sink);
    }
    for (int i = 0; i < count; ++i) {
        out[i] = colours[static_cast<std::size_t>((cells.leftOf(columns[i]) - from) / 2)];
    }
    return true;
}

/// Colours of a Bayer image by the cell of four pixels around each place.
template <class Sink>
void readBayerCells(const ImageLines& lines, int y, const int* columns, int count, Sink sink)
{
    const BayerCells cells(lines, y);
    const auto redX = static_cast<std::size_t>(cells.phase.redX);
    withReader(lines.format(), [=](auto reader) {
        const auto at = [](const Line& line, std::size_t n) {
            return decltype(reader)::at(line.data, line.first + n);
        };
        for (int i = 0; i < count; ++i) {
            const auto left = static_cast<std::size_t>(cells.leftOf(columns[i]));
            const std::uint16_t red = at(cells.red, left + redX);
            const std::uint16_t green = at(cells.red, left + 1 - redX);
            const std::uint16_t green2 = at(cells.blue, left + redX);
            const std::uint16_t blue = at(cells.blue, left + 1 - redX);
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
