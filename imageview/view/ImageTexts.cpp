// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "view/ImageTexts.h"

#include "featurebrowser/ZQImageView.h"
#include "formats/ImageLines.h"

#include <QLocale>
#include <QStringList>

namespace featurebrowser {

namespace {

QString number(std::uint64_t value)
{
    return QLocale().toString(static_cast<qulonglong>(value));
}

QString sizeText(const ZQImage& image)
{
    return QStringLiteral("%1 \u00D7 %2").arg(image.width).arg(image.height);
}

QString unknownText(std::uint32_t code)
{
    const QString hex = QStringLiteral("0x%1")
                            .arg(code, 8, 16, QLatin1Char('0'))
                            .toUpper()
                            .replace(QLatin1Char('X'), QLatin1Char('x'));
    const char* name = nameOfOther(code);
    if (!name) {
        return ZQImageView::tr("The pixel format %1 is unknown.").arg(hex);
    }
    return ZQImageView::tr("Images in the pixel format %1 (%2) cannot be shown.")
        .arg(QLatin1String(name), hex);
}

QString tooFewText(const ZQImage& image)
{
    const std::uint64_t needed = neededBytes(image, *findFormat(image.pixelFormat));
    return ZQImageView::tr("The image is damaged: it has %1 bytes, but %2 pixels in %3 need %4.")
        .arg(number(image.size), sizeText(image),
            QLatin1String(findFormat(image.pixelFormat)->name), number(needed));
}

} // namespace

QString problemText(const ZQImage& image)
{
    switch (faultOf(image)) {
    case ImageFault::None:
        return {};
    case ImageFault::Empty:
        return ZQImageView::tr("No image");
    case ImageFault::UnknownFormat:
        return unknownText(image.pixelFormat);
    case ImageFault::AbsurdSize:
        return ZQImageView::tr("An image of %1 pixels cannot be shown.").arg(sizeText(image));
    case ImageFault::ShortLines:
        return ZQImageView::tr("The image is damaged: lines of %1 bytes cannot hold %2 pixels.")
            .arg(number(image.lineStride), number(static_cast<std::uint64_t>(image.width)));
    case ImageFault::TooFewBytes:
        break;
    }
    return tooFewText(image);
}

QString componentsText(const std::vector<ZQPixelComponent>& components)
{
    const bool isGrey = components.size() == 1 && components.front().name[0] == 'Y';
    if (isGrey) {
        return QString::number(components.front().value);
    }
    QStringList words;
    for (const ZQPixelComponent& component : components) {
        words.append(
            QStringLiteral("%1 %2").arg(QLatin1String(component.name)).arg(component.value));
    }
    return words.join(QLatin1String("  "));
}

} // namespace featurebrowser
