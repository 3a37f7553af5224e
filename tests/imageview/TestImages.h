#pragma once

#include "featurebrowser/ZQImageView.h"

#include <QByteArray>
#include <QString>

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

} // namespace featurebrowser
