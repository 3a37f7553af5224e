#include "rows/ScreenRow.h"

#include <algorithm>

namespace featurebrowser {

namespace {

constexpr std::uint32_t never = 0x10000;
constexpr QRgb mark = 0xFFFF0000;

// A camera may send more than its format's maximum in the words of unpacked formats.
unsigned toByte(unsigned value, int shift)
{
    return std::min(value >> shift, 255U);
}

} // namespace

ScreenScale screenScale(const PixelFormat& format, bool isOverexposureShown)
{
    return { format.bits - 8, isOverexposureShown ? format.white() : never };
}

void toScreen(const Pixel* pixels, int count, const ScreenScale& scale, QRgb* out)
{
    const int shift = scale.shift;
    const std::uint32_t marked = scale.marked;
    for (int i = 0; i < count; ++i) {
        const Pixel& pixel = pixels[i];
        const QRgb colour = 0xFF000000U | toByte(pixel.red, shift) << 16
            | toByte(pixel.green, shift) << 8 | toByte(pixel.blue, shift);
        out[i] = pixel.level >= marked ? mark : colour;
    }
}

} // namespace featurebrowser
