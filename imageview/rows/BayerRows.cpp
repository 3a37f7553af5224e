// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "rows/BayerRows.h"

namespace featurebrowser {

namespace {

int mirrored(int at, int size)
{
    if (at < 0) {
        return -at;
    }
    return at < size ? at : 2 * size - 2 - at;
}

} // namespace

Neighbours BayerInterpolation::neighbours(const ImageLines& lines, int y, int first, int count)
{
    if (first != m_first || count != m_count) {
        m_first = first;
        m_count = count;
        for (Kept& kept : m_kept) {
            kept.y = -1;
        }
    }
    return { lineAt(lines, mirrored(y - 1, lines.height())), lineAt(lines, y),
        lineAt(lines, mirrored(y + 1, lines.height())) };
}

// Three lines that follow each other differ modulo 3; at the edges two of them are the same.
const std::uint16_t* BayerInterpolation::lineAt(const ImageLines& lines, int y)
{
    Kept& kept = m_kept[static_cast<std::size_t>(y % 3)];
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
