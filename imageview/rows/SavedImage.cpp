#include "rows/SavedImage.h"

#include "rows/ComponentRow.h"
#include "rows/PixelRows.h"
#include "rows/ScreenRow.h"

#include <QRgba64>

#include <algorithm>
#include <vector>

namespace featurebrowser {

namespace {

/// To 16 bits, so that black and white of the format become those of the image.
class WordScale {
public:
    explicit WordScale(const PixelFormat& format)
        : m_maximum(format.maximum())
        , m_left(16 - format.bits)
        , m_right(2 * format.bits - 16)
    {
    }
    quint16 operator()(std::uint32_t value) const
    {
        value = std::min(value, m_maximum);
        return static_cast<quint16>(value << m_left | value >> m_right);
    }

private:
    std::uint32_t m_maximum;
    int m_left;
    int m_right;
};

QImage::Format formatOf(const ImageLines& lines)
{
    const bool isDeep = lines.format().bits > 8;
    if (lines.kind() == PixelKind::Mono)
        return isDeep ? QImage::Format_Grayscale16 : QImage::Format_Grayscale8;
    return isDeep ? QImage::Format_RGBX64 : QImage::Format_RGB32;
}

template <class Value> Value* lineOf(QImage& image, int y)
{
    return reinterpret_cast<Value*>(image.scanLine(y));
}

void fillGrey(const ImageLines& lines, QImage& image)
{
    std::vector<std::uint16_t> row(static_cast<std::size_t>(lines.width()));
    const WordScale scale(lines.format());
    for (int y = 0; y < lines.height(); ++y) {
        readComponents(lines, y, 0, lines.width(), row.data());
        if (image.format() == QImage::Format_Grayscale8)
            std::transform(row.begin(), row.end(), lineOf<uchar>(image, y),
                [](std::uint16_t value) { return static_cast<uchar>(value); });
        else
            std::transform(row.begin(), row.end(), lineOf<quint16>(image, y), scale);
    }
}

void fillColours(const ImageLines& lines, QImage& image)
{
    PixelRows rows(lines);
    std::vector<Pixel> row(static_cast<std::size_t>(lines.width()));
    const WordScale words(lines.format());
    const ScreenScale bytes = screenScale(lines.format(), false);
    for (int y = 0; y < lines.height(); ++y) {
        rows.readRun(y, 0, lines.width(), row.data());
        if (image.format() == QImage::Format_RGB32)
            toScreen(row.data(), lines.width(), bytes, lineOf<QRgb>(image, y));
        else
            std::transform(
                row.begin(), row.end(), lineOf<QRgba64>(image, y), [&](const Pixel& pixel) {
                    return QRgba64::fromRgba64(
                        words(pixel.red), words(pixel.green), words(pixel.blue), 0xFFFF);
                });
    }
}

} // namespace

QImage savedImage(const ImageLines& lines)
{
    QImage image(lines.width(), lines.height(), formatOf(lines));
    if (image.isNull())
        return image;
    if (lines.kind() == PixelKind::Mono)
        fillGrey(lines, image);
    else
        fillColours(lines, image);
    return image;
}

} // namespace featurebrowser
