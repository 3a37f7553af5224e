// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/PixelFormat.h"

#include <array>
#include <cstddef>

namespace featurebrowser {

/// Where the components of a group of pixels with common colours lie, in bytes.
struct YuvLayout {
    int pixels;
    std::ptrdiff_t bytes;
    std::array<std::ptrdiff_t, 4> luma;
    std::ptrdiff_t u;
    std::ptrdiff_t v;

    std::ptrdiff_t lumaOf(int x) const
    {
        return x / pixels * bytes + luma[static_cast<std::size_t>(x % pixels)];
    }
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
