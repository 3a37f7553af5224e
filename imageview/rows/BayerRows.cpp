#include "rows/BayerRows.h"

#include "formats/Packing.h"
#include "rows/ComponentRow.h"

#include <algorithm>

namespace featurebrowser {

namespace {

int mirrored(int at, int size)
{
    if (at < 0)
        return -at;
    return at < size ? at : 2 * size - 2 - at;
}

unsigned mean(unsigned a, unsigned b)
{
    return (a + b + 1) / 2;
}

unsigned mean(unsigned a, unsigned b, unsigned c, unsigned d)
{
    return (a + b + c + d + 2) / 4;
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

template <bool isRedLine>
Pixel pixelOf(unsigned own, unsigned green, unsigned other, unsigned level)
{
    const auto red = static_cast<std::uint16_t>(isRedLine ? own : other);
    const auto blue = static_cast<std::uint16_t>(isRedLine ? other : own);
    return { red, static_cast<std::uint16_t>(green), blue, static_cast<std::uint16_t>(level) };
}

template <bool isRedLine>
void interpolate(const Neighbours& near, bool startsGreen, int count, Pixel* out)
{
    int i = 0;
    const auto green = [&] {
        out[i] = pixelOf<isRedLine>(near.beside(i), near.line[i], near.upright(i), near.line[i]);
        ++i;
    };
    if (startsGreen)
        green();
    while (i < count) {
        out[i] = pixelOf<isRedLine>(near.line[i], near.cross(i), near.corners(i), near.line[i]);
        if (++i < count)
            green();
    }
}

} // namespace

void readBayerCells(const ImageLines& lines, int y, ColumnTable columns, int count, Pixel* out)
{
    const BayerPhase phase = bayerPhase(lines.format().layout);
    const int top = std::min(y, lines.height() - 2) & ~1;
    const Line redLine = lines.line(top + phase.redY);
    const Line blueLine = lines.line(top + 1 - phase.redY);
    const int last = lines.width() - 2;
    const auto redX = static_cast<std::size_t>(phase.redX);
    withReader(lines.format().packing, [&](auto reader) {
        const auto at = [](const Line& line, std::size_t n) {
            return decltype(reader)::at(line.data, line.first + n);
        };
        for (int i = 0; i < count; ++i) {
            const auto left = static_cast<std::size_t>(std::min(columns.at(i), last) & ~1);
            const std::uint16_t red = at(redLine, left + redX);
            const std::uint16_t green = at(redLine, left + 1 - redX);
            const std::uint16_t green2 = at(blueLine, left + redX);
            const std::uint16_t blue = at(blueLine, left + 1 - redX);
            out[i] = { red, static_cast<std::uint16_t>(mean(green, green2)), blue,
                std::max(std::max(red, blue), std::max(green, green2)) };
        }
    });
}

void BayerInterpolation::read(const ImageLines& lines, int y, int first, int count, Pixel* out)
{
    if (first != m_first || count != m_count) {
        m_first = first;
        m_count = count;
        for (Kept& kept : m_kept)
            kept.y = -1;
    }
    const Neighbours near = { lineAt(lines, mirrored(y - 1, lines.height())), lineAt(lines, y),
        lineAt(lines, mirrored(y + 1, lines.height())) };
    const BayerPhase phase = bayerPhase(lines.format().layout);
    const bool isRedLine = y % 2 == phase.redY;
    const int ownX = isRedLine ? phase.redX : 1 - phase.redX;
    const bool startsGreen = first % 2 != ownX;
    if (isRedLine)
        interpolate<true>(near, startsGreen, count, out);
    else
        interpolate<false>(near, startsGreen, count, out);
}

// Three lines that follow each other differ modulo 3; at the edges two of them are the same.
const std::uint16_t* BayerInterpolation::lineAt(const ImageLines& lines, int y)
{
    Kept& kept = m_kept[y % 3];
    if (kept.y != y) {
        kept.y = y;
        kept.values.resize(static_cast<std::size_t>(m_count) + 2);
        std::uint16_t* values = kept.values.data();
        readComponents(lines, y, m_first, m_count, values + 1);
        const auto at = [&](int x) {
            return componentOf(lines, y, static_cast<std::size_t>(mirrored(x, lines.width())));
        };
        values[0] = at(m_first - 1);
        values[m_count + 1] = at(m_first + m_count);
    }
    return kept.values.data() + 1;
}

} // namespace featurebrowser
