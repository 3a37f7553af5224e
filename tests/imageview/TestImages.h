// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQImageView.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <memory>
#include <vector>

namespace featurebrowser {

/// An image over bytes of its own, as many as given and no more, so that the address sanitizer sees
/// a step beyond them.
inline ZQImage testImage(std::uint32_t format, int width, int height, const QByteArray& bytes,
    std::size_t lineStride = 0)
{
    const auto own = std::make_shared<const std::vector<char>>(bytes.begin(), bytes.end());
    ZQImage image;
    image.data = reinterpret_cast<const std::uint8_t*>(own->data());
    image.size = own->size();
    image.owner = own;
    image.width = width;
    image.height = height;
    image.lineStride = lineStride;
    image.pixelFormat = format;
    return image;
}

/// An RGB8 image whose pixels all differ.
inline ZQImage colourfulImage(int width, int height)
{
    QByteArray bytes;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            bytes.append(static_cast<char>(x)).append(static_cast<char>(y)).append('\x40');
        }
    }
    return testImage(0x02180014, width, height, bytes);
}

/// A Bayer image of 8 bits (0 GR, 1 RG, 2 GB, 3 BG) of a scene with these colours.
template <class ColourAt> ZQImage bayerImage(int phase, int width, int height, ColourAt colourAt)
{
    constexpr std::array cells = { "GRBG", "RGGB", "GBRG", "BGGR" };
    QByteArray bytes;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const QRgb colour = colourAt(x, y);
            const char letter = cells[static_cast<std::size_t>(phase)][y % 2 * 2 + x % 2];
            const int value = letter == 'R' ? qRed(colour)
                : letter == 'G'             ? qGreen(colour)
                                            : qBlue(colour);
            bytes.append(static_cast<char>(value));
        }
    }
    return testImage(0x01080008 + static_cast<std::uint32_t>(phase), width, height, bytes);
}

/// The same Bayer image with 16 bits.
inline ZQImage widened(const ZQImage& image)
{
    QByteArray bytes;
    for (std::size_t i = 0; i < image.size; ++i) {
        bytes.append(2, static_cast<char>(image.data[i]));
    }
    return testImage(image.pixelFormat - 0x01080008 + 0x0110002E, image.width, image.height, bytes);
}

} // namespace featurebrowser
