// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "view/Orientation.h"

#include <QPointF>
#include <QRectF>

#include <vector>

namespace featurebrowser {

/// Where the image lies in the view. All places of the view are in pixels of the screen.
class ViewMapping {
public:
    /// An image of another size is fitted anew where the present one is.
    void setImageSize(const QSize& size);
    void setViewSize(const QSize& size);
    void setOrientation(const Orientation& orientation);
    const Orientation& orientation() const { return m_orientation; }
    const QSize& imageSize() const { return m_image; }

    /// Pixels of the screen for one of the image.
    double zoom() const { return m_zoom; }
    bool isFitted() const { return m_isFitted; }
    void fit();
    /// Keeps the part of the picture that is at `about` there, unless that would leave
    /// a gap.
    void setZoom(double zoom, const QPointF& about);
    /// The next step of the zoom, up or down.
    double nextZoom(bool isLarger) const;
    void moveBy(const QPointF& distance);
    QPointF middle() const { return { m_view.width() / 2.0, m_view.height() / 2.0 }; }

    /// The image's pixel at a place, beyond the image where that is beside it.
    QPoint pixelAt(const QPointF& place) const;
    QRectF rectOf(const QRect& pixels) const;
    /// The screen's pixels that show the picture.
    QRect pictureRect() const;

    /// For each column and line of the screen in `area` (within pictureRect()) the image's column
    /// or line; of an upright image the other way round.
    struct Samples {
        std::vector<int> columns;
        std::vector<int> lines;
    };
    Samples samples(const QRect& area) const;

private:
    double fittedZoom() const;
    QSizeF pictureSize() const;
    void keepInView();
    int shownAt(double place, double origin) const;
    std::vector<int> axis(int first, int count, double origin, int size, bool isReversed) const;

    QSize m_image;
    QSize m_view;
    Orientation m_orientation;
    bool m_isFitted = true;
    double m_zoom = 1;
    QPointF m_origin; ///< the picture's top left corner
};

} // namespace featurebrowser
