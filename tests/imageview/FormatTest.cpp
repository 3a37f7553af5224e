// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestImages.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <numeric>
#include <vector>

namespace featurebrowser {

namespace {

std::string valuesOf(const ZQImage& image)
{
    QStringList lines;
    for (int y = 0; y < image.height; ++y) {
        QStringList pixels;
        for (int x = 0; x < image.width; ++x) {
            QString pixel;
            for (const ZQPixelComponent& component : componentsAt(image, x, y)) {
                pixel += QLatin1String(component.name) + QString::number(component.value);
            }
            pixels << pixel;
        }
        lines << pixels.join(QLatin1Char(' '));
    }
    return lines.join(QLatin1String(" | ")).toStdString();
}

struct Values {
    const char* name;
    std::uint32_t format;
    int width;
    int height;
    std::size_t stride;
    const char* bytes;
    const char* expected;
};

// Worked out by hand. Without a stride, lines of odd width are joined within a byte.
const std::vector<Values> values = {
    { "Mono8", 0x01080001, 3, 1, 0, "01 80 FF", "Y1 Y128 Y255" },
    { "Mono10", 0x01100003, 3, 1, 0, "01 00 FF 03 00 02", "Y1 Y1023 Y512" },
    { "Mono10 beyond", 0x01100003, 1, 1, 0, "FF FF", "Y65535" },
    { "Mono10p", 0x010A0046, 3, 1, 0, "01 FC 0F 20", "Y1 Y1023 Y512" },
    { "Mono10Packed", 0x010C0004, 3, 1, 0, "00 31 FF 80 00", "Y1 Y1023 Y512" },
    { "Mono12", 0x01100005, 2, 1, 0, "23 01 BC 0A", "Y291 Y2748" },
    { "Mono12p", 0x010C0047, 3, 1, 0, "23 C1 AB FF 0F", "Y291 Y2748 Y4095" },
    { "Mono12p joined", 0x010C0047, 3, 2, 0, "23 C1 AB FF 1F 00 56 94 78",
        "Y291 Y2748 Y4095 | Y1 Y1110 Y1929" },
    { "Mono12p padded", 0x010C0047, 3, 2, 6, "23 C1 AB FF 0F EE 01 60 45 89 07",
        "Y291 Y2748 Y4095 | Y1 Y1110 Y1929" },
    { "Mono12Packed", 0x010C0006, 3, 1, 0, "12 C3 AB FF 0F", "Y291 Y2748 Y4095" },
    { "Mono12Packed joined", 0x010C0006, 1, 2, 0, "12 C3 AB", "Y291 | Y2748" },
    { "Mono14", 0x01100025, 1, 1, 0, "FF 3F", "Y16383" },
    { "Mono14p", 0x010E0104, 3, 1, 0, "01 C0 FF 0F 00 02", "Y1 Y16383 Y8192" },
    { "Mono16", 0x01100007, 1, 2, 4, "34 12 00 00 FF FF", "Y4660 | Y65535" },
    { "BayerBG10p", 0x010A0052, 3, 1, 0, "01 FC 0F 20", "B1 G1023 B512" },
    { "BayerGR12Packed", 0x010C002A, 2, 2, 0, "12 C3 AB FF 1F 00", "G291 R2748 | B4095 G1" },
    { "RGB8", 0x02180014, 2, 1, 0, "01 02 03 04 05 06", "R1G2B3 R4G5B6" },
    { "BGR8", 0x02180015, 1, 2, 4, "01 02 03 00 04 05 06", "R3G2B1 | R6G5B4" },
    { "RGBa8", 0x02200016, 1, 1, 0, "01 02 03 04", "R1G2B3a4" },
    { "BGRa8", 0x02200017, 1, 1, 0, "01 02 03 04", "R3G2B1a4" },
    { "RGB10", 0x02300018, 1, 1, 0, "01 00 FF 03 00 02", "R1G1023B512" },
    { "BGR12", 0x0230001B, 1, 1, 0, "23 01 BC 0A FF 0F", "R4095G2748B291" },
    { "RGB16", 0x02300033, 1, 1, 0, "34 12 00 00 FF FF", "R4660G0B65535" },
    { "BGR10p", 0x021E0048, 1, 1, 0, "01 FC 0F 20", "R512G1023B1" },
    { "BGR10p joined", 0x021E0048, 1, 2, 0, "01 FC 0F E0 00 01 04 00", "R512G1023B1 | R1G1B3" },
    { "YUV422_8", 0x02100032, 3, 1, 0, "10 80 20 90 30 FF", "Y16U128V144 Y32U128V144 Y48U128V144" },
    { "YUV422_8_UYVY", 0x0210001F, 2, 1, 0, "80 10 90 20", "Y16U128V144 Y32U128V144" },
    { "YUV411_8_UYYVYY", 0x020C001E, 5, 1, 0, "80 01 02 90 03 04 FF 05",
        "Y1U128V144 Y2U128V144 Y3U128V144 Y4U128V144 Y5U128V144" },
    { "YUV8_UYV", 0x02180020, 1, 1, 0, "80 10 90", "Y16U128V144" },
    { "YCbCr8", 0x0218005B, 1, 1, 0, "10 80 90", "Y16Cb128Cr144" },
    { "YCbCr411_8", 0x020C005A, 5, 1, 0, "01 02 80 03 04 90 05 06",
        "Y1Cb128Cr144 Y2Cb128Cr144 Y3Cb128Cr144 Y4Cb128Cr144 Y5Cb128Cr144" },
};

// First line and second line of every Bayer format, in the order GR, RG, GB, BG.
const std::vector<std::vector<std::uint32_t>> bayerFormats = {
    { 0x01080008, 0x01080009, 0x0108000A, 0x0108000B },
    { 0x0110000C, 0x0110000D, 0x0110000E, 0x0110000F },
    { 0x010A0056, 0x010A0058, 0x010A0054, 0x010A0052 },
    { 0x010C0026, 0x010C0027, 0x010C0028, 0x010C0029 },
    { 0x01100010, 0x01100011, 0x01100012, 0x01100013 },
    { 0x010C0057, 0x010C0059, 0x010C0055, 0x010C0053 },
    { 0x010C002A, 0x010C002B, 0x010C002C, 0x010C002D },
    { 0x0110002E, 0x0110002F, 0x01100030, 0x01100031 },
};
constexpr std::array bayerLetters
    = { "G0 R0 | B0 G0", "R0 G0 | G0 B0", "G0 B0 | R0 G0", "B0 G0 | G0 R0" };

TEST(ImageFormats, GiveTheCamerasOwnBits)
{
    for (const Values& row : values) {
        EXPECT_EQ(row.expected,
            valuesOf(testImage(
                row.format, row.width, row.height, QByteArray::fromHex(row.bytes), row.stride)))
            << row.name;
    }
}

TEST(ImageFormats, KnowTheFirstColoursOfBayerImages)
{
    for (const auto& formats : bayerFormats) {
        for (std::size_t i = 0; i < 4; ++i) {
            EXPECT_EQ(bayerLetters[i], valuesOf(testImage(formats[i], 2, 2, QByteArray(8, '\0'))))
                << std::hex << formats[i];
        }
    }
}

TEST(ImageFormats, KeepTheMosaicOfBayerImagesForSaving)
{
    for (const auto& formats : bayerFormats) {
        for (const std::uint32_t format : formats) {
            const ZQImage image = testImage(format, 2, 2, QByteArray::fromHex("0103050709000204"));
            std::string plain = valuesOf(image);
            const auto isColour = [](char letter) { return std::isupper(letter) != 0; };
            std::replace_if(plain.begin(), plain.end(), isColour, 'Y');
            EXPECT_EQ(valuesOf(rawMosaic(image)), plain) << std::hex << format;
            EXPECT_TRUE(convertImage(rawMosaic(image)).isGrayscale());
        }
    }
    EXPECT_EQ(rawMosaic(testImage(0x02180014, 1, 1, QByteArray(3, '\0'))).pixelFormat, 0x02180014U);
}

struct Colour {
    std::uint32_t format;
    QImage::Format kind;
    const char* bytes; ///< of two pixels of the same colour
    QRgba64 expected;
};

QRgba64 rgb(int red, int green, int blue)
{
    return QRgba64::fromArgb32(qRgb(red, green, blue));
}

const std::vector<Colour> colours = {
    { 0x01080001, QImage::Format_Grayscale8, "8080", rgb(128, 128, 128) },
    { 0x01100005, QImage::Format_Grayscale16, "BC0ABC0A", qRgba64(0xABCA, 0xABCA, 0xABCA, 0xFFFF) },
    { 0x01100003, QImage::Format_Grayscale16, "FFFFFFFF", rgb(255, 255, 255) },
    { 0x02180015, QImage::Format_RGB32, "030201030201", rgb(1, 2, 3) },
    { 0x02200016, QImage::Format_RGB32, "0102030001020300", rgb(1, 2, 3) },
    { 0x02300018, QImage::Format_RGBX64, "FF030002 0000 FF030002 0000",
        qRgba64(0xFFFF, 0x8020, 0, 0xFFFF) },
    // Full range with BT.601: red is 76, 85, 255.
    { 0x02100032, QImage::Format_RGB32, "4C554CFF", rgb(254, 0, 0) },
    { 0x0210003B, QImage::Format_RGB32, "FF80FF80", rgb(255, 255, 255) },
    // Limited range: red is 81, 90, 240 with BT.601 and 63, 102, 240 with BT.709.
    { 0x0210003E, QImage::Format_RGB32, "515A51F0", rgb(254, 0, 0) },
    { 0x02100041, QImage::Format_RGB32, "3F663FF0", rgb(255, 1, 0) },
    { 0x0218003D, QImage::Format_RGB32, "80EB8080EB80", rgb(255, 255, 255) },
};

TEST(ImageFormats, BecomeTheColoursThatTheyMean)
{
    for (const Colour& row : colours) {
        const QImage image
            = convertImage(testImage(row.format, 2, 1, QByteArray::fromHex(row.bytes)));
        EXPECT_EQ(row.kind, image.format()) << std::hex << row.format;
        for (int x = 0; x < 2; ++x) {
            EXPECT_EQ(row.expected, image.pixelColor(x, 0).rgba64()) << std::hex << row.format;
        }
    }
}

// Interpolating between the neighbours is exact where colours rise evenly, and everywhere where
// they do not change.
TEST(BayerImages, AreInterpolatedBetweenNeighboursOfTheSameColour)
{
    for (int slope = 0; slope < 2; ++slope) {
        const auto colourAt = [slope](int x, int y) {
            return qRgb(10 + slope * (4 * x + 2 * y), 50 + slope * (2 * x + 4 * y),
                90 + slope * (2 * x + 2 * y));
        };
        for (int phase = 0; phase < 4; ++phase) {
            const QImage image = convertImage(bayerImage(phase, 7, 5, colourAt));
            for (int y = slope; y < 5 - slope; ++y) {
                for (int x = slope; x < 7 - slope; ++x) {
                    EXPECT_EQ(colourAt(x, y), image.pixel(x, y)) << phase << " " << x << "," << y;
                }
            }
        }
    }
}

TEST(BayerImages, AreGreyWithoutAWholeCell)
{
    for (const QSize& size : { QSize(1, 4), QSize(4, 1) }) {
        const auto colourAt = [](int x, int y) { return qRgb(9 * x, 9 * y, 200); };
        const QImage image = convertImage(bayerImage(1, size.width(), size.height(), colourAt));
        EXPECT_TRUE(image.isGrayscale()) << size.width();
    }
}

TEST(Histogram, CountsASampleOfAllColours)
{
    constexpr int width = 1000;
    QByteArray bytes(width * 1000, '\0');
    for (int i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i / width % 2 * 100 + i % 2 * 50); // R 0, G 50 and 100, B 150
    }
    const auto bins = histogramOf(testImage(0x01080009, width, 1000, bytes));
    ASSERT_EQ(256U, bins.size());
    const std::uint32_t all = std::accumulate(bins.begin(), bins.end(), 0U);
    EXPECT_LE(all, 250'000U);
    for (const std::size_t value : { 0U, 50U, 100U, 150U }) {
        EXPECT_NEAR(0.25, double(bins[value]) / all, 0.01) << value;
    }
}

TEST(Histogram, SpansTheRangeOfTheFormat)
{
    const auto bins = histogramOf(testImage(0x02300018, 1, 1, QByteArray::fromHex("0400FF03FF03")));
    EXPECT_EQ(1U, bins[1]);
    EXPECT_EQ(2U, bins[255]);
}

struct Damage {
    std::uint32_t format;
    int width;
    int height;
    int bytes;
    std::size_t stride;
    const char* said;
};

const std::vector<Damage> damages = {
    { 0x01080001, 4, 4, 15, 0, "15 bytes, but 4 \u00D7 4 pixels in Mono8 need 16" },
    { 0x01080001, 4, 4, 18, 5, "need 19" },
    { 0x01080001, 4, 4, 16, 3, "lines of 3 bytes cannot hold 4 pixels" },
    { 0x01080001, 4, 4, 16, ~std::size_t(0), "damaged" },
    { 0x01100007, 1'000'000, 1'000'000, 16, 0, "need 2,000,000,000,000" },
    { 0x01080001, -4, 4, 16, 0, "-4 \u00D7 4 pixels cannot be shown" },
    { 0x01080001, 4, 0, 16, 0, "4 \u00D7 0 pixels cannot be shown" },
    { 0x01080001, 1'000'001, 1, 16, 0, "cannot be shown" },
    { 0x02100032, 1, 1, 2, 0, "cannot be shown" },
    { 0x02180021, 2, 2, 12, 0, "RGB8_Planar (0x02180021)" },
    { 0x0BADF00D, 2, 2, 12, 0, "0x0BADF00D is unknown" },
};

TEST(DamagedImages, AreSaidToBeAndNotRead)
{
    EXPECT_EQ("No image", imageProblem({}).toStdString());
    for (const Damage& row : damages) {
        const ZQImage image = testImage(
            row.format, row.width, row.height, QByteArray(row.bytes, '\x7F'), row.stride);
        EXPECT_NE(std::string::npos, imageProblem(image).toStdString().find(row.said))
            << imageProblem(image).toStdString();
        EXPECT_TRUE(convertImage(image).isNull());
        EXPECT_TRUE(componentsAt(image, 0, 0).empty());
        EXPECT_TRUE(histogramOf(image).empty());
    }
}

TEST(ImageFormats, AreReadToTheirLastByteAndNotBeyond)
{
    std::vector<std::uint32_t> formats = { 0x010E0105, 0x01100109 };
    for (const Values& row : values) {
        formats.push_back(row.format);
    }
    for (const auto& bayer : bayerFormats) {
        formats.insert(formats.end(), bayer.begin(), bayer.end());
    }
    for (const std::uint32_t format : formats) {
        const bool areLinesApart = format >> 24 == 2 && (format >> 16 & 0xFF) <= 16;
        const int bits = static_cast<int>(format >> 16 & 0xFF);
        const int size = areLinesApart ? (5 * bits + 7) / 8 * 3 : (15 * bits + 7) / 8;
        const ZQImage image = testImage(format, 5, 3, QByteArray(size, '\x55'));
        EXPECT_EQ("", imageProblem(image).toStdString()) << std::hex << format;
        EXPECT_FALSE(convertImage(image).isNull());
        EXPECT_FALSE(componentsAt(image, 4, 2).empty());
        EXPECT_TRUE(componentsAt(image, 5, 2).empty() && componentsAt(image, 4, 3).empty());
        EXPECT_TRUE(componentsAt(image, -1, 2).empty() && componentsAt(image, 4, -1).empty());
        EXPECT_FALSE(histogramOf(image).empty());
        for (const int side : { 2, 3, 40 }) { // smaller and larger than the image
            ZQImageView view;
            view.resize(side, side);
            view.setImage(image);
            EXPECT_NE(qRgb(32, 32, 32), view.grab().toImage().pixel(side / 2, side / 3));
        }
        const ZQImage cut = testImage(format, 5, 3, QByteArray(size - 1, '\x55'));
        EXPECT_NE("", imageProblem(cut).toStdString()) << std::hex << format;
    }
}

} // namespace

} // namespace featurebrowser
