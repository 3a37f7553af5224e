// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/ImageLines.h"
#include "rows/BayerRows.h"
#include "rows/PixelSinks.h"

namespace featurebrowser {

/// Pixels of an image's lines, whatever its format, for the sinks of PixelSinks.h.
class PixelRows {
public:
    /// `lines` has to outlive this.
    explicit PixelRows(const ImageLines& lines);

    /// `count` pixels of line `y` from column `first` on.
    template <class Sink> void readRun(int y, int first, int count, Sink sink);
    /// The pixels of line `y` in these columns, for a picture smaller than the image.
    template <class Sink> void readSparse(int y, const int* columns, int count, Sink sink);

private:
    template <class Columns, class Sink> void read(int y, Columns columns, int count, Sink sink);

    const ImageLines& m_lines;
    BayerInterpolation m_bayer;
    std::vector<QRgb> m_colours; ///< of a line's cells
};

} // namespace featurebrowser
