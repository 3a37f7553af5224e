#pragma once

#include "formats/ImageLines.h"
#include "rows/Pixel.h"

#include <cstdint>
#include <vector>

namespace featurebrowser {

/// Colours of a Bayer image by the cell of four pixels around each place.
void readBayerCells(const ImageLines& lines, int y, ColumnTable columns, int count, Pixel* out);

/// Colours of a Bayer image interpolated from the neighbours; beyond the edges the image is taken
/// as mirrored, which keeps its pattern. Keeps the lines it has read for the next line.
class BayerInterpolation {
public:
    void read(const ImageLines& lines, int y, int first, int count, Pixel* out);

private:
    struct Kept {
        int y = -1;
        std::vector<std::uint16_t> values; ///< with one more on either side
    };
    const std::uint16_t* lineAt(const ImageLines& lines, int y);

    Kept m_kept[3];
    int m_first = -1;
    int m_count = 0;
};

} // namespace featurebrowser
