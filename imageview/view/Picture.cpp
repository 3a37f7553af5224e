// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "view/Picture.h"

#include "rows/PixelRows.h"
#include "rows/PixelSinks.h"

#include <QTransform>

#include <algorithm>

namespace featurebrowser {

namespace {

QRgb* lineOf(QImage& picture, int y)
{
    return reinterpret_cast<QRgb*>(picture.scanLine(y));
}

/// Smaller than the image: one pixel of it for one of the screen.
template <class Sink>
void shrink(
    const ImageLines& lines, const ViewMapping::Samples& samples, Sink sink, QImage& picture)
{
    PixelRows rows(lines);
    const auto count = static_cast<int>(samples.columns.size());
    int y = 0;
    for (const int line : samples.lines) {
        sink.setLineOf(picture, y++);
        rows.readSparse(line, samples.columns.data(), count, sink);
    }
}

/// Larger than the image: each pixel of it is converted once and repeated.
template <class Sink>
void enlarge(
    const ImageLines& lines, const ViewMapping::Samples& samples, Sink sink, QImage& picture)
{
    const auto [least, most] = std::minmax(samples.columns.front(), samples.columns.back());
    const int first = least;
    const int count = most - least + 1;
    PixelRows rows(lines);
    std::vector<QRgb> colours(static_cast<std::size_t>(count));
    sink.setLine(colours.data());
    int done = -1;
    int y = 0;
    for (const int line : samples.lines) {
        if (line != done) {
            rows.readRun(line, first, count, sink);
            done = line;
        }
        std::transform(samples.columns.begin(), samples.columns.end(), lineOf(picture, y++),
            [&](int column) { return colours[static_cast<std::size_t>(column - first)]; });
    }
}

template <bool isMarking>
void fill(
    const ImageLines& lines, const ViewMapping::Samples& samples, double zoom, QImage& picture)
{
    const ScreenSink<isMarking> sink(lines.format());
    if (zoom < 1) {
        shrink(lines, samples, sink, picture);
    } else {
        enlarge(lines, samples, sink, picture);
    }
}

} // namespace

QImage renderPicture(const ImageLines& lines, const ViewMapping& mapping, const QRect& area,
    bool isOverexposureShown)
{
    ViewMapping::Samples samples = mapping.samples(area);
    const bool isUpright = mapping.orientation().isUpright();
    // Turned by a quarter afterwards, the last line becomes the first column.
    if (isUpright) {
        std::reverse(samples.lines.begin(), samples.lines.end());
    }
    QImage picture(static_cast<int>(samples.columns.size()), static_cast<int>(samples.lines.size()),
        QImage::Format_RGB32);
    if (isOverexposureShown) {
        fill<true>(lines, samples, mapping.zoom(), picture);
    } else {
        fill<false>(lines, samples, mapping.zoom(), picture);
    }
    return isUpright ? picture.transformed(QTransform().rotate(90)) : picture;
}

} // namespace featurebrowser
