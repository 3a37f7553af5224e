// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "formats/PixelFormat.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace featurebrowser {

namespace {

// Counts the rows of a table.
template <class Row, std::size_t count>
constexpr std::array<Row, count> tableOf(
    const Row (&rows)[count]) // NOLINT(modernize-avoid-c-arrays)
{
    std::array<Row, count> table {};
    for (std::size_t i = 0; i < count; ++i) {
        table[i] = rows[i];
    }
    return table;
}

// clang-format off
constexpr auto formats = tableOf<PixelFormat>({
    { 0x01080001, "Mono8", PixelKind::Mono, 8, Packing::Bytes, Layout::Grey, Coding::None },
    { 0x01100003, "Mono10", PixelKind::Mono, 10, Packing::Words, Layout::Grey, Coding::None },
    { 0x010C0004, "Mono10Packed", PixelKind::Mono, 10, Packing::Pair10, Layout::Grey, Coding::None },
    { 0x010A0046, "Mono10p", PixelKind::Mono, 10, Packing::Lsb10, Layout::Grey, Coding::None },
    { 0x01100005, "Mono12", PixelKind::Mono, 12, Packing::Words, Layout::Grey, Coding::None },
    { 0x010C0006, "Mono12Packed", PixelKind::Mono, 12, Packing::Pair12, Layout::Grey, Coding::None },
    { 0x010C0047, "Mono12p", PixelKind::Mono, 12, Packing::Lsb12, Layout::Grey, Coding::None },
    { 0x01100025, "Mono14", PixelKind::Mono, 14, Packing::Words, Layout::Grey, Coding::None },
    { 0x010E0104, "Mono14p", PixelKind::Mono, 14, Packing::Lsb14, Layout::Grey, Coding::None },
    { 0x01100007, "Mono16", PixelKind::Mono, 16, Packing::Words, Layout::Grey, Coding::None },
    { 0x01080008, "BayerGR8", PixelKind::Bayer, 8, Packing::Bytes, Layout::GR, Coding::None },
    { 0x01080009, "BayerRG8", PixelKind::Bayer, 8, Packing::Bytes, Layout::RG, Coding::None },
    { 0x0108000A, "BayerGB8", PixelKind::Bayer, 8, Packing::Bytes, Layout::GB, Coding::None },
    { 0x0108000B, "BayerBG8", PixelKind::Bayer, 8, Packing::Bytes, Layout::BG, Coding::None },
    { 0x0110000C, "BayerGR10", PixelKind::Bayer, 10, Packing::Words, Layout::GR, Coding::None },
    { 0x0110000D, "BayerRG10", PixelKind::Bayer, 10, Packing::Words, Layout::RG, Coding::None },
    { 0x0110000E, "BayerGB10", PixelKind::Bayer, 10, Packing::Words, Layout::GB, Coding::None },
    { 0x0110000F, "BayerBG10", PixelKind::Bayer, 10, Packing::Words, Layout::BG, Coding::None },
    { 0x010C0026, "BayerGR10Packed", PixelKind::Bayer, 10, Packing::Pair10, Layout::GR, Coding::None },
    { 0x010C0027, "BayerRG10Packed", PixelKind::Bayer, 10, Packing::Pair10, Layout::RG, Coding::None },
    { 0x010C0028, "BayerGB10Packed", PixelKind::Bayer, 10, Packing::Pair10, Layout::GB, Coding::None },
    { 0x010C0029, "BayerBG10Packed", PixelKind::Bayer, 10, Packing::Pair10, Layout::BG, Coding::None },
    { 0x010A0056, "BayerGR10p", PixelKind::Bayer, 10, Packing::Lsb10, Layout::GR, Coding::None },
    { 0x010A0058, "BayerRG10p", PixelKind::Bayer, 10, Packing::Lsb10, Layout::RG, Coding::None },
    { 0x010A0054, "BayerGB10p", PixelKind::Bayer, 10, Packing::Lsb10, Layout::GB, Coding::None },
    { 0x010A0052, "BayerBG10p", PixelKind::Bayer, 10, Packing::Lsb10, Layout::BG, Coding::None },
    { 0x01100010, "BayerGR12", PixelKind::Bayer, 12, Packing::Words, Layout::GR, Coding::None },
    { 0x01100011, "BayerRG12", PixelKind::Bayer, 12, Packing::Words, Layout::RG, Coding::None },
    { 0x01100012, "BayerGB12", PixelKind::Bayer, 12, Packing::Words, Layout::GB, Coding::None },
    { 0x01100013, "BayerBG12", PixelKind::Bayer, 12, Packing::Words, Layout::BG, Coding::None },
    { 0x010C002A, "BayerGR12Packed", PixelKind::Bayer, 12, Packing::Pair12, Layout::GR, Coding::None },
    { 0x010C002B, "BayerRG12Packed", PixelKind::Bayer, 12, Packing::Pair12, Layout::RG, Coding::None },
    { 0x010C002C, "BayerGB12Packed", PixelKind::Bayer, 12, Packing::Pair12, Layout::GB, Coding::None },
    { 0x010C002D, "BayerBG12Packed", PixelKind::Bayer, 12, Packing::Pair12, Layout::BG, Coding::None },
    { 0x010C0057, "BayerGR12p", PixelKind::Bayer, 12, Packing::Lsb12, Layout::GR, Coding::None },
    { 0x010C0059, "BayerRG12p", PixelKind::Bayer, 12, Packing::Lsb12, Layout::RG, Coding::None },
    { 0x010C0055, "BayerGB12p", PixelKind::Bayer, 12, Packing::Lsb12, Layout::GB, Coding::None },
    { 0x010C0053, "BayerBG12p", PixelKind::Bayer, 12, Packing::Lsb12, Layout::BG, Coding::None },
    { 0x01100109, "BayerGR14", PixelKind::Bayer, 14, Packing::Words, Layout::GR, Coding::None },
    { 0x0110010A, "BayerRG14", PixelKind::Bayer, 14, Packing::Words, Layout::RG, Coding::None },
    { 0x0110010B, "BayerGB14", PixelKind::Bayer, 14, Packing::Words, Layout::GB, Coding::None },
    { 0x0110010C, "BayerBG14", PixelKind::Bayer, 14, Packing::Words, Layout::BG, Coding::None },
    { 0x010E0105, "BayerGR14p", PixelKind::Bayer, 14, Packing::Lsb14, Layout::GR, Coding::None },
    { 0x010E0106, "BayerRG14p", PixelKind::Bayer, 14, Packing::Lsb14, Layout::RG, Coding::None },
    { 0x010E0107, "BayerGB14p", PixelKind::Bayer, 14, Packing::Lsb14, Layout::GB, Coding::None },
    { 0x010E0108, "BayerBG14p", PixelKind::Bayer, 14, Packing::Lsb14, Layout::BG, Coding::None },
    { 0x0110002E, "BayerGR16", PixelKind::Bayer, 16, Packing::Words, Layout::GR, Coding::None },
    { 0x0110002F, "BayerRG16", PixelKind::Bayer, 16, Packing::Words, Layout::RG, Coding::None },
    { 0x01100030, "BayerGB16", PixelKind::Bayer, 16, Packing::Words, Layout::GB, Coding::None },
    { 0x01100031, "BayerBG16", PixelKind::Bayer, 16, Packing::Words, Layout::BG, Coding::None },
    { 0x02180014, "RGB8", PixelKind::Rgb, 8, Packing::Bytes, Layout::RGB, Coding::None },
    { 0x02180015, "BGR8", PixelKind::Rgb, 8, Packing::Bytes, Layout::BGR, Coding::None },
    { 0x02200016, "RGBa8", PixelKind::Rgb, 8, Packing::Bytes, Layout::RGBa, Coding::None },
    { 0x02200017, "BGRa8", PixelKind::Rgb, 8, Packing::Bytes, Layout::BGRa, Coding::None },
    { 0x02300018, "RGB10", PixelKind::Rgb, 10, Packing::Words, Layout::RGB, Coding::None },
    { 0x02300019, "BGR10", PixelKind::Rgb, 10, Packing::Words, Layout::BGR, Coding::None },
    { 0x021E005C, "RGB10p", PixelKind::Rgb, 10, Packing::Lsb10, Layout::RGB, Coding::None },
    { 0x021E0048, "BGR10p", PixelKind::Rgb, 10, Packing::Lsb10, Layout::BGR, Coding::None },
    { 0x0230001A, "RGB12", PixelKind::Rgb, 12, Packing::Words, Layout::RGB, Coding::None },
    { 0x0230001B, "BGR12", PixelKind::Rgb, 12, Packing::Words, Layout::BGR, Coding::None },
    { 0x0224005D, "RGB12p", PixelKind::Rgb, 12, Packing::Lsb12, Layout::RGB, Coding::None },
    { 0x02240049, "BGR12p", PixelKind::Rgb, 12, Packing::Lsb12, Layout::BGR, Coding::None },
    { 0x0230005E, "RGB14", PixelKind::Rgb, 14, Packing::Words, Layout::RGB, Coding::None },
    { 0x0230004A, "BGR14", PixelKind::Rgb, 14, Packing::Words, Layout::BGR, Coding::None },
    { 0x02300033, "RGB16", PixelKind::Rgb, 16, Packing::Words, Layout::RGB, Coding::None },
    { 0x0230004B, "BGR16", PixelKind::Rgb, 16, Packing::Words, Layout::BGR, Coding::None },
    { 0x02100032, "YUV422_8", PixelKind::Yuv, 8, Packing::Bytes, Layout::YUYV, Coding::Full601 },
    { 0x0210001F, "YUV422_8_UYVY", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYVY, Coding::Full601 },
    { 0x020C001E, "YUV411_8_UYYVYY", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYYVYY, Coding::Full601 },
    { 0x02180020, "YUV8_UYV", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYV, Coding::Full601 },
    { 0x0218005B, "YCbCr8", PixelKind::Yuv, 8, Packing::Bytes, Layout::YUV, Coding::Full601 },
    { 0x0218003A, "YCbCr8_CbYCr", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYV, Coding::Full601 },
    { 0x0210003B, "YCbCr422_8", PixelKind::Yuv, 8, Packing::Bytes, Layout::YUYV, Coding::Full601 },
    { 0x02100043, "YCbCr422_8_CbYCrY", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYVY, Coding::Full601 },
    { 0x020C005A, "YCbCr411_8", PixelKind::Yuv, 8, Packing::Bytes, Layout::YYUYYV, Coding::Full601 },
    { 0x020C003C, "YCbCr411_8_CbYYCrYY", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYYVYY, Coding::Full601 },
    { 0x0218003D, "YCbCr601_8_CbYCr", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYV, Coding::Limited601 },
    { 0x0210003E, "YCbCr601_422_8", PixelKind::Yuv, 8, Packing::Bytes, Layout::YUYV, Coding::Limited601 },
    { 0x02100044, "YCbCr601_422_8_CbYCrY", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYVY, Coding::Limited601 },
    { 0x020C003F, "YCbCr601_411_8_CbYYCrYY", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYYVYY, Coding::Limited601 },
    { 0x02180040, "YCbCr709_8_CbYCr", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYV, Coding::Limited709 },
    { 0x02100041, "YCbCr709_422_8", PixelKind::Yuv, 8, Packing::Bytes, Layout::YUYV, Coding::Limited709 },
    { 0x02100045, "YCbCr709_422_8_CbYCrY", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYVY, Coding::Limited709 },
    { 0x020C0042, "YCbCr709_411_8_CbYYCrYY", PixelKind::Yuv, 8, Packing::Bytes, Layout::UYYVYY, Coding::Limited709 },
});

struct OtherFormat {
    std::uint32_t code;
    const char* name;
};
constexpr auto others = tableOf<OtherFormat>({
    { 0x01010037, "Mono1p" },
    { 0x01020038, "Mono2p" },
    { 0x01040039, "Mono4p" },
    { 0x01080002, "Mono8s" },
    { 0x01200111, "Mono32" },
    { 0x02180021, "RGB8_Planar" },
    { 0x02300022, "RGB10_Planar" },
    { 0x02300023, "RGB12_Planar" },
    { 0x02300024, "RGB16_Planar" },
    { 0x0220001D, "RGB10p32" },
    { 0x02100035, "RGB565p" },
    { 0x02100036, "BGR565p" },
    { 0x0240005F, "RGBa10" },
    { 0x02400061, "RGBa12" },
    { 0x02400064, "RGBa16" },
    { 0x0240004C, "BGRa10" },
    { 0x0240004E, "BGRa12" },
    { 0x02400051, "BGRa16" },
    { 0x02200065, "YCbCr422_10" },
    { 0x02200066, "YCbCr422_12" },
    { 0x020C0112, "YCbCr420_8_YY_CbCr_Semiplanar" },
    { 0x02100113, "YCbCr422_8_YY_CbCr_Semiplanar" },
    { 0x021000A5, "BiColorRGBG8" },
    { 0x021000A6, "BiColorBGRG8" },
    { 0x026000C0, "Coord3D_ABC32f" },
    { 0x023000B9, "Coord3D_ABC16" },
    { 0x011000B8, "Coord3D_C16" },
    { 0x012000BF, "Coord3D_C32f" },
    { 0x010800B1, "Coord3D_C8" },
});
// clang-format on

template <class Table>
auto find(const Table& table, std::uint32_t code) -> decltype(std::begin(table))
{
    const auto found = std::find_if(
        table.begin(), table.end(), [code](const auto& entry) { return entry.code == code; });
    return found == table.end() ? nullptr : &*found;
}

} // namespace

int PixelFormat::components() const
{
    if (kind != PixelKind::Rgb) {
        return 1;
    }
    return layout == Layout::RGBa || layout == Layout::BGRa ? 4 : 3;
}

std::uint32_t PixelFormat::white() const
{
    const bool isLimited = coding == Coding::Limited601 || coding == Coding::Limited709;
    return isLimited ? 235 : maximum();
}

const PixelFormat* findFormat(std::uint32_t code)
{
    return find(formats, code);
}

const PixelFormat& greyOf(const PixelFormat& format)
{
    const auto isGrey = [&format](const PixelFormat& other) {
        return other.kind == PixelKind::Mono && other.bits == format.bits
            && other.packing == format.packing;
    };
    const auto* const found = std::find_if(std::begin(formats), std::end(formats), isGrey);
    return format.kind == PixelKind::Bayer && found != std::end(formats) ? *found : format;
}

const char* nameOfOther(std::uint32_t code)
{
    const OtherFormat* found = find(others, code);
    return found ? found->name : nullptr;
}

} // namespace featurebrowser
