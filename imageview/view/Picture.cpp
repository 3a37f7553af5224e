#include "view/Picture.h"

#include "rows/PixelRows.h"
#include "rows/ScreenRow.h"

#include <QTransform>

#include <algorithm>

namespace featurebrowser {

namespace {

QRgb* lineOf(QImage& picture, int y)
{
    return reinterpret_cast<QRgb*>(picture.scanLine(y));
}

/// Smaller than the image: one pixel of it for one of the screen.
void shrink(const ImageLines& lines, const ViewMapping::Samples& samples, const ScreenScale& scale,
    QImage& picture)
{
    PixelRows rows(lines);
    std::vector<Pixel> pixels(samples.columns.size());
    const auto count = static_cast<int>(pixels.size());
    int y = 0;
    for (const int line : samples.lines) {
        rows.readSparse(line, samples.columns.data(), count, pixels.data());
        toScreen(pixels.data(), count, scale, lineOf(picture, y++));
    }
}

/// Larger than the image: each pixel of it is converted once and repeated.
void enlarge(const ImageLines& lines, const ViewMapping::Samples& samples, const ScreenScale& scale,
    QImage& picture)
{
    const auto [least, most] = std::minmax(samples.columns.front(), samples.columns.back());
    const int first = least;
    const int count = most - least + 1;
    PixelRows rows(lines);
    std::vector<Pixel> pixels(static_cast<std::size_t>(count));
    std::vector<QRgb> colours(pixels.size());
    int done = -1;
    int y = 0;
    for (const int line : samples.lines) {
        if (line != done) {
            rows.readRun(line, first, count, pixels.data());
            toScreen(pixels.data(), count, scale, colours.data());
            done = line;
        }
        std::transform(samples.columns.begin(), samples.columns.end(), lineOf(picture, y++),
            [&](int column) { return colours[static_cast<std::size_t>(column - first)]; });
    }
}

} // namespace

QImage renderPicture(const ImageLines& lines, const ViewMapping& mapping, const QRect& area,
    bool isOverexposureShown)
{
    ViewMapping::Samples samples = mapping.samples(area);
    const bool isUpright = mapping.orientation().isUpright();
    // Turned by a quarter afterwards, the last line becomes the first column.
    if (isUpright)
        std::reverse(samples.lines.begin(), samples.lines.end());
    QImage picture(static_cast<int>(samples.columns.size()), static_cast<int>(samples.lines.size()),
        QImage::Format_RGB32);
    const ScreenScale scale = screenScale(lines.format(), isOverexposureShown);
    if (mapping.zoom() < 1)
        shrink(lines, samples, scale, picture);
    else
        enlarge(lines, samples, scale, picture);
    return isUpright ? picture.transformed(QTransform().rotate(90)) : picture;
}

} // namespace featurebrowser
