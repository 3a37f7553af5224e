#pragma once

#include "formats/ImageLines.h"
#include "rows/BayerRows.h"
#include "rows/Pixel.h"

namespace featurebrowser {

/// Pixels of an image's lines, whatever its format.
class PixelRows {
public:
    /// `lines` has to outlive this.
    explicit PixelRows(const ImageLines& lines);

    /// `count` pixels of line `y` from column `first` on.
    void readRun(int y, int first, int count, Pixel* out);
    /// The pixels of line `y` in these columns, for a picture smaller than the image.
    void readSparse(int y, const int* columns, int count, Pixel* out);

private:
    template <class Columns> void read(int y, Columns columns, int count, Pixel* out);

    const ImageLines& m_lines;
    BayerInterpolation m_bayer;
};

} // namespace featurebrowser
