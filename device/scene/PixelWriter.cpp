// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "scene/PixelWriter.h"

#include "frames/FrameSize.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string_view>

namespace zqcameralib {

namespace {

using Format = PixelWriter::Format;
using Kind = PixelWriter::Kind;
using Packing = PixelWriter::Packing;
using Coding = PixelWriter::Coding;

/// Beside these, those of which the bits of a pixel say all.
struct Known {
    std::uint32_t code;
    Format format;
};

constexpr std::array<Known, 37> known { {
    { 0x010C0004, { Kind::Grey, 10, Packing::Pairs, "", {} } },
    { 0x010C0006, { Kind::Grey, 12, Packing::Pairs, "", {} } },
    { 0x01100003, { Kind::Grey, 10, Packing::Bytes, "", {} } },
    { 0x01100005, { Kind::Grey, 12, Packing::Bytes, "", {} } },
    { 0x01100025, { Kind::Grey, 14, Packing::Bytes, "", {} } },
    { 0x02180015, { Kind::Colours, 8, Packing::Bytes, "BGR", {} } },
    { 0x02200016, { Kind::Colours, 8, Packing::Bytes, "RGBA", {} } },
    { 0x02200017, { Kind::Colours, 8, Packing::Bytes, "BGRA", {} } },
    { 0x02300018, { Kind::Colours, 10, Packing::Bytes, "RGB", {} } },
    { 0x02300019, { Kind::Colours, 10, Packing::Bytes, "BGR", {} } },
    { 0x0230001A, { Kind::Colours, 12, Packing::Bytes, "RGB", {} } },
    { 0x0230001B, { Kind::Colours, 12, Packing::Bytes, "BGR", {} } },
    { 0x0230005E, { Kind::Colours, 14, Packing::Bytes, "RGB", {} } },
    { 0x0230004A, { Kind::Colours, 14, Packing::Bytes, "BGR", {} } },
    { 0x0230004B, { Kind::Colours, 16, Packing::Bytes, "BGR", {} } },
    { 0x021E005C, { Kind::Colours, 10, Packing::Bits, "RGB", {} } },
    { 0x021E0048, { Kind::Colours, 10, Packing::Bits, "BGR", {} } },
    { 0x0224005D, { Kind::Colours, 12, Packing::Bits, "RGB", {} } },
    { 0x02240049, { Kind::Colours, 12, Packing::Bits, "BGR", {} } },
    { 0x02100032, { Kind::Yuv, 8, Packing::Bytes, "YUYV", Coding::Full601 } },
    { 0x0210003B, { Kind::Yuv, 8, Packing::Bytes, "YUYV", Coding::Full601 } },
    { 0x0210003E, { Kind::Yuv, 8, Packing::Bytes, "YUYV", Coding::Limited601 } },
    { 0x02100041, { Kind::Yuv, 8, Packing::Bytes, "YUYV", Coding::Limited709 } },
    { 0x0210001F, { Kind::Yuv, 8, Packing::Bytes, "UYVY", Coding::Full601 } },
    { 0x02100043, { Kind::Yuv, 8, Packing::Bytes, "UYVY", Coding::Full601 } },
    { 0x02100044, { Kind::Yuv, 8, Packing::Bytes, "UYVY", Coding::Limited601 } },
    { 0x02100045, { Kind::Yuv, 8, Packing::Bytes, "UYVY", Coding::Limited709 } },
    { 0x020C001E, { Kind::Yuv, 8, Packing::Bytes, "UYYVYY", Coding::Full601 } },
    { 0x020C003C, { Kind::Yuv, 8, Packing::Bytes, "UYYVYY", Coding::Full601 } },
    { 0x020C005A, { Kind::Yuv, 8, Packing::Bytes, "YYUYYV", Coding::Full601 } },
    { 0x02180020, { Kind::Yuv, 8, Packing::Bytes, "UYV", Coding::Full601 } },
    { 0x0218003A, { Kind::Yuv, 8, Packing::Bytes, "UYV", Coding::Full601 } },
    { 0x0218005B, { Kind::Yuv, 8, Packing::Bytes, "YUV", Coding::Full601 } },
    { 0x0218003D, { Kind::Yuv, 8, Packing::Bytes, "UYV", Coding::Limited601 } },
    { 0x02180040, { Kind::Yuv, 8, Packing::Bytes, "UYV", Coding::Limited709 } },
    { 0x020C003F, { Kind::Yuv, 8, Packing::Bytes, "UYYVYY", Coding::Limited601 } },
    { 0x020C0042, { Kind::Yuv, 8, Packing::Bytes, "UYYVYY", Coding::Limited709 } },
} };

constexpr std::array<const char*, 4> mosaics { "GRBG", "RGGB", "GBRG", "BGGR" };

/// Four formats, one for each mosaic: from the first code on, by steps of so much.
struct BayerCodes {
    std::uint32_t first;
    int step;
    std::array<std::uint8_t, 4> order; ///< of the mosaics
    std::uint8_t bits;
    Packing packing;
};

constexpr std::array<std::uint8_t, 4> usualOrder { 0, 1, 2, 3 };
constexpr std::array<std::uint8_t, 4> packedOrder { 3, 2, 0, 1 };
constexpr std::array<BayerCodes, 10> bayer { {
    { 0x01080008, 1, usualOrder, 8, Packing::Bytes },
    { 0x0110000C, 1, usualOrder, 10, Packing::Bytes },
    { 0x01100010, 1, usualOrder, 12, Packing::Bytes },
    { 0x01100109, 1, usualOrder, 14, Packing::Bytes },
    { 0x0110002E, 1, usualOrder, 16, Packing::Bytes },
    { 0x010C0026, 1, usualOrder, 10, Packing::Pairs },
    { 0x010C002A, 1, usualOrder, 12, Packing::Pairs },
    { 0x010E0105, 1, usualOrder, 14, Packing::Bits },
    { 0x010A0052, 2, packedOrder, 10, Packing::Bits },
    { 0x010C0053, 2, packedOrder, 12, Packing::Bits },
} };

/// By the bits of a pixel alone.
Format unknownFormat(std::uint64_t pixelBits)
{
    if (pixelBits == 24 || pixelBits == 32) {
        return { Kind::Colours, 8, Packing::Bytes, "RGB", {} };
    }
    if (pixelBits == 48 || pixelBits == 64) {
        return { Kind::Colours, 16, Packing::Bytes, "RGB", {} };
    }
    const auto bits = static_cast<std::uint8_t>(std::min<std::uint64_t>(pixelBits, 16));
    return { Kind::Grey, bits, bits % 8 == 0 ? Packing::Bytes : Packing::Bits, "", {} };
}

Format formatOf(std::uint32_t code)
{
    for (const Known& one : known) {
        if (one.code == code) {
            return one.format;
        }
    }
    for (const BayerCodes& codes : bayer) {
        for (std::size_t i = 0; i < codes.order.size(); ++i) {
            if (code == codes.first + i * static_cast<unsigned>(codes.step)) {
                return { Kind::Bayer, codes.bits, codes.packing, mosaics.at(codes.order.at(i)),
                    {} };
            }
        }
    }
    return unknownFormat(bitsPerPixel(code));
}

void putBits(
    std::uint8_t* image, std::size_t size, std::uint64_t at, unsigned count, std::uint32_t value)
{
    while (count > 0 && at / 8 < size) {
        const unsigned shift = at % 8;
        const unsigned now = std::min(count, 8 - shift);
        const unsigned mask = ((1U << now) - 1U) << shift;
        const unsigned others = image[at / 8] & ~mask;
        image[at / 8] = static_cast<std::uint8_t>(others | ((value << shift) & mask));
        value >>= now;
        count -= now;
        at += now;
    }
}

/// Two values in three bytes: the upper eight bits of each outside, the rest between.
void putPair(
    std::uint8_t* image, std::size_t size, std::uint64_t pixel, unsigned bits, std::uint32_t value)
{
    const std::uint64_t group = pixel / 2 * 24;
    const unsigned low = bits - 8;
    const bool isSecond = pixel % 2 == 1;
    putBits(image, size, group + (isSecond ? 16 : 0), 8, value >> low);
    putBits(image, size, group + 8 + (isSecond ? 4 : 0), low, value & ((1U << low) - 1U));
}

std::uint16_t component(char letter, const Levels& levels)
{
    switch (letter) {
    case 'R':
        return levels.red;
    case 'G':
        return levels.green;
    case 'B':
        return levels.blue;
    default:
        return 0xFFFF; // opaque
    }
}

struct Yuv {
    std::uint8_t y, u, v;
};

Yuv codedAs(Coding coding, const Levels& levels)
{
    const bool is709 = coding == Coding::Limited709;
    const double ofRed = is709 ? 0.2126 : 0.299;
    const double ofBlue = is709 ? 0.0722 : 0.114;
    const double red = levels.red / 65535.0;
    const double blue = levels.blue / 65535.0;
    const double y = ofRed * red + ofBlue * blue + (1.0 - ofRed - ofBlue) * levels.green / 65535.0;
    const double u = (blue - y) / (2.0 * (1.0 - ofBlue));
    const double v = (red - y) / (2.0 * (1.0 - ofRed));
    const auto byte = [](double value) {
        return static_cast<std::uint8_t>(std::clamp(std::lround(value), 0L, 255L));
    };
    if (coding == Coding::Full601) {
        return { byte(255.0 * y), byte(128.0 + 255.0 * u), byte(128.0 + 255.0 * v) };
    }
    return { byte(16.0 + 219.0 * y), byte(128.0 + 224.0 * u), byte(128.0 + 224.0 * v) };
}

} // namespace

PixelWriter::PixelWriter(std::uint32_t pixelFormat, std::int64_t width)
    : m_format(formatOf(pixelFormat))
    , m_pixelBits(bitsPerPixel(pixelFormat))
    , m_width(width)
{
}

void PixelWriter::store(std::uint8_t* image, std::size_t size, std::uint64_t pixel,
    std::size_t component, std::uint16_t level) const
{
    const std::uint32_t value = std::uint32_t(level) >> (16U - m_format.bits);
    if (m_format.packing == Packing::Pairs) {
        return putPair(image, size, pixel, m_format.bits, value);
    }
    const bool isPacked = m_format.packing == Packing::Bits;
    const unsigned bits = isPacked ? m_format.bits : (m_format.bits + 7U) / 8U * 8U;
    putBits(image, size, pixel * m_pixelBits + component * bits, bits, value);
}

void PixelWriter::putYuv(
    std::uint8_t* image, std::size_t size, std::uint64_t pixel, const Levels& levels) const
{
    const std::string_view group = m_format.order;
    const auto count = std::count(group.begin(), group.end(), 'Y');
    const std::uint64_t shared = count > 0 ? static_cast<std::uint64_t>(count) : 1;
    const std::uint64_t begin = pixel / shared * group.size();
    const std::uint64_t inGroup = pixel % shared;
    const Yuv yuv = codedAs(m_format.coding, levels);
    std::uint64_t brightness = 0;
    for (std::size_t i = 0; i < group.size(); ++i) {
        const bool isOwn = group[i] == 'Y' ? brightness++ == inGroup
            : group[i] == 'U'              ? inGroup == 0
                                           : inGroup == shared / 2;
        if (isOwn && begin + i < size) {
            image[begin + i] = group[i] == 'Y' ? yuv.y : group[i] == 'U' ? yuv.u : yuv.v;
        }
    }
}

void PixelWriter::put(std::uint8_t* image, std::size_t size, std::int64_t column, std::int64_t row,
    const Levels& levels) const
{
    const auto pixel = static_cast<std::uint64_t>(row * m_width + column);
    switch (m_format.kind) {
    case Kind::Grey:
        return store(image, size, pixel, 0, levels.grey);
    case Kind::Bayer:
        return store(
            image, size, pixel, 0, component(m_format.order[row % 2 * 2 + column % 2], levels));
    case Kind::Yuv:
        return putYuv(image, size, pixel, levels);
    case Kind::Colours:
        break;
    }
    for (std::size_t i = 0; m_format.order[i] != '\0'; ++i) {
        store(image, size, pixel, i, component(m_format.order[i], levels));
    }
}

} // namespace zqcameralib
