#pragma once

#include "formats/PixelFormat.h"
#include "rows/Pixel.h"

#include <QRgb>

namespace featurebrowser {

/// How pixels become colours of the screen.
struct ScreenScale {
    int shift; ///< from the format's bits to 8
    std::uint32_t marked; ///< level from which on a pixel is painted red
};
ScreenScale screenScale(const PixelFormat& format, bool isOverexposureShown);

void toScreen(const Pixel* pixels, int count, const ScreenScale& scale, QRgb* out);

} // namespace featurebrowser
