#pragma once

#include "formats/PixelFormat.h"

namespace featurebrowser {

/// Where the components of a group of pixels with common colours lie, in bytes.
struct YuvLayout {
    int pixels;
    int bytes;
    int luma[4];
    int u;
    int v;
};
const YuvLayout& yuvLayout(Layout layout);

/// Factors of 1/65536 from Y - black, U - 128, V - 128 to red, green and blue of 0 to 255.
struct YuvFactors {
    int black;
    int luma;
    int redOfV;
    int greenOfU;
    int greenOfV;
    int blueOfU;
};
const YuvFactors& yuvFactors(Coding coding);

} // namespace featurebrowser
