// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace featurebrowser {

/// How an image is turned, and then flipped, to be shown. "Shown" are pixels as the user sees them.
struct Orientation {
    int turns = 0; ///< clockwise quarters, 0 to 3
    bool isLeftRight = false; ///< exchanged
    bool isTopBottom = false;

    /// Whether the image's lines stand upright.
    bool isUpright() const { return turns % 2 != 0; }
    /// Whether the image's columns (lines) are shown in falling order.
    bool areColumnsReversed() const;
    bool areLinesReversed() const;

    QSize shownSize(const QSize& image) const;
    /// Also for places beyond the image.
    QPoint toImage(const QPoint& shown, const QSize& image) const;
    QRect toShown(const QRect& pixels, const QSize& image) const;
};

} // namespace featurebrowser
