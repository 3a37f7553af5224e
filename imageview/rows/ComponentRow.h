// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/ImageLines.h"
#include "rows/Pixel.h"

#include <cstddef>
#include <cstdint>

namespace featurebrowser {

/// Component `n` of line `y` in the camera's bits.
std::uint16_t componentOf(const ImageLines& lines, int y, std::size_t n);
/// `count` components of line `y` from `first` on.
void readComponents(const ImageLines& lines, int y, int first, int count, std::uint16_t* out);

/// Offsets of red, green and blue within an RGB pixel.
struct RgbOrder {
    unsigned red;
    unsigned green;
    unsigned blue;
};
RgbOrder rgbOrder(Layout layout);

/// Column and line, 0 or 1, of the red pixel in the cells of a Bayer image.
struct BayerPhase {
    int redX;
    int redY;
};
BayerPhase bayerPhase(Layout layout);

} // namespace featurebrowser
