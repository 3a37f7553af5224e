// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "rows/SavedImage.h"

#include "rows/ComponentRow.h"
#include "rows/PixelRows.h"

#include <algorithm>
#include <vector>

namespace featurebrowser {

namespace {

QImage::Format formatOf(const ImageLines& lines)
{
    const bool isDeep = lines.format().bits > 8;
    if (lines.kind() == PixelKind::Mono) {
        return isDeep ? QImage::Format_Grayscale16 : QImage::Format_Grayscale8;
    }
    return isDeep ? QImage::Format_RGBX64 : QImage::Format_RGB32;
}

template <class Value> Value* lineOf(QImage& image, int y)
{
    return reinterpret_cast<Value*>(image.scanLine(y));
}

void fillGrey(const ImageLines& lines, QImage& image)
{
    std::vector<std::uint16_t> row(static_cast<std::size_t>(lines.width()));
    const WordSink scale(lines.format());
    for (int y = 0; y < lines.height(); ++y) {
        readComponents(lines, y, 0, lines.width(), row.data());
        if (image.format() == QImage::Format_Grayscale8) {
            std::transform(row.begin(), row.end(), lineOf<uchar>(image, y),
                [](std::uint16_t value) { return static_cast<uchar>(value); });
        } else {
            std::transform(row.begin(), row.end(), lineOf<quint16>(image, y),
                [&](std::uint16_t value) { return scale.toWord(value); });
        }
    }
}

template <class Sink> void fillColours(const ImageLines& lines, Sink sink, QImage& image)
{
    PixelRows rows(lines);
    for (int y = 0; y < lines.height(); ++y) {
        sink.setLineOf(image, y);
        rows.readRun(y, 0, lines.width(), sink);
    }
}

} // namespace

QImage savedImage(const ImageLines& lines)
{
    QImage image(lines.width(), lines.height(), formatOf(lines));
    if (image.isNull()) {
        return image;
    }
    if (lines.kind() == PixelKind::Mono) {
        fillGrey(lines, image);
    } else if (image.format() == QImage::Format_RGB32) {
        fillColours(lines, ScreenSink<false>(lines.format()), image);
    } else {
        fillColours(lines, WordSink(lines.format()), image);
    }
    return image;
}

} // namespace featurebrowser
