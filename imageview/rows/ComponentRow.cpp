// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "rows/ComponentRow.h"

#include "formats/Packing.h"

namespace featurebrowser {

std::uint16_t componentOf(const ImageLines& lines, int y, std::size_t n)
{
    const Line line = lines.line(y);
    if (lines.format().packing == Packing::Words) { // as it was sent, be it beyond the maximum
        return WordReader<16>::at(line.data, line.first + n);
    }
    return withReader(lines.format(),
        [&](auto reader) { return decltype(reader)::at(line.data, line.first + n); });
}

void readComponents(const ImageLines& lines, int y, int first, int count, std::uint16_t* out)
{
    const Line line = lines.line(y);
    const std::size_t start = line.first + static_cast<std::size_t>(first);
    withReader(lines.format(), [&](auto reader) {
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
            out[i] = decltype(reader)::at(line.data, start + i);
        }
    });
}

RgbOrder rgbOrder(Layout layout)
{
    if (layout == Layout::BGR || layout == Layout::BGRa) {
        return { 2, 1, 0 };
    }
    return { 0, 1, 2 };
}

BayerPhase bayerPhase(Layout layout)
{
    switch (layout) {
    case Layout::GR:
        return { 1, 0 };
    case Layout::GB:
        return { 0, 1 };
    case Layout::BG:
        return { 1, 1 };
    default:
        return { 0, 0 };
    }
}

} // namespace featurebrowser
