// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace featurebrowser {

/// A pixel in the bits of its format (YUV: converted to 8).
struct Pixel {
    std::uint16_t red;
    std::uint16_t green;
    std::uint16_t blue;
    std::uint16_t level; ///< the brightest component that the camera sent for it
};

/// Which columns of a line are meant: a run of them, or those of a table.
struct ColumnRun {
    int first;
    int at(int i) const { return first + i; }
};
struct ColumnTable {
    const int* columns;
    int at(int i) const { return columns[i]; }
};

} // namespace featurebrowser
