// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "view/Orientation.h"

namespace featurebrowser {

bool Orientation::areColumnsReversed() const
{
    const bool isFlipped = isUpright() ? isTopBottom : isLeftRight;
    return isFlipped != (turns >= 2);
}

bool Orientation::areLinesReversed() const
{
    const bool isFlipped = isUpright() ? isLeftRight : isTopBottom;
    return isFlipped != (turns == 1 || turns == 2);
}

QSize Orientation::shownSize(const QSize& image) const
{
    return isUpright() ? image.transposed() : image;
}

QPoint Orientation::toImage(const QPoint& shown, const QSize& image) const
{
    const QPoint at = isUpright() ? QPoint(shown.y(), shown.x()) : shown;
    return { areColumnsReversed() ? image.width() - 1 - at.x() : at.x(),
        areLinesReversed() ? image.height() - 1 - at.y() : at.y() };
}

QRect Orientation::toShown(const QRect& pixels, const QSize& image) const
{
    QRect at = pixels;
    if (areColumnsReversed()) {
        at.moveLeft(image.width() - 1 - pixels.right());
    }
    if (areLinesReversed()) {
        at.moveTop(image.height() - 1 - pixels.bottom());
    }
    return isUpright() ? QRect(at.y(), at.x(), at.height(), at.width()) : at;
}

} // namespace featurebrowser
