// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "view/ViewMapping.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace featurebrowser {

namespace {

constexpr std::array steps
    = { 1 / 64.0, 1 / 32.0, 1 / 16.0, 1 / 12.0, 1 / 8.0, 1 / 6.0, 1 / 4.0, 1 / 3.0, 1 / 2.0,
          2 / 3.0, 1.0, 1.5, 2.0, 3.0, 4.0, 6.0, 8.0, 12.0, 16.0, 24.0, 32.0, 48.0, 64.0 };

// A picture leaves no wider gap than the fitted one does, so that zooming in and out again about
// one place never moves it.
double kept(double origin, double picture, double view, double fittedGap)
{
    const double most = view - picture - fittedGap;
    return std::clamp(origin, std::min(fittedGap, most), std::max(fittedGap, most));
}

} // namespace

void ViewMapping::setImageSize(const QSize& size)
{
    if (size == m_image) {
        return;
    }
    m_image = size;
    if (m_isFitted) {
        fit();
    } else {
        keepInView();
    }
}

void ViewMapping::setViewSize(const QSize& size)
{
    const QPointF before = middle();
    m_view = size;
    if (m_isFitted) {
        return fit();
    }
    m_origin += middle() - before;
    keepInView();
}

void ViewMapping::setOrientation(const Orientation& orientation)
{
    const QPoint centre = pixelAt(middle());
    m_orientation = orientation;
    if (m_isFitted) {
        return fit();
    }
    m_origin += middle() - rectOf({ centre, QSize(1, 1) }).center();
    keepInView();
}

void ViewMapping::fit()
{
    m_isFitted = true;
    if (m_image.isEmpty() || m_view.isEmpty()) {
        return;
    }
    m_zoom = fittedZoom();
    keepInView();
}

void ViewMapping::setZoom(double zoom, const QPointF& about)
{
    zoom = std::clamp(zoom, steps.front(), steps.back());
    const double factor = zoom / m_zoom;
    const QPointF fixed(std::clamp(about.x(), m_origin.x(), m_origin.x() + pictureSize().width()),
        std::clamp(about.y(), m_origin.y(), m_origin.y() + pictureSize().height()));
    m_isFitted = false;
    m_zoom = zoom;
    m_origin = fixed - (fixed - m_origin) * factor;
    keepInView();
}

double ViewMapping::nextZoom(bool isLarger) const
{
    // What is nearly a step counts as that one.
    constexpr double nearly = 1.001;
    if (isLarger) {
        const auto* next = std::upper_bound(steps.begin(), steps.end(), m_zoom * nearly);
        return next == steps.end() ? m_zoom : *next;
    }
    const auto* next = std::lower_bound(steps.begin(), steps.end(), m_zoom / nearly);
    return next == steps.begin() ? m_zoom : *(next - 1);
}

void ViewMapping::moveBy(const QPointF& distance)
{
    m_origin += distance;
    keepInView();
}

QPoint ViewMapping::pixelAt(const QPointF& place) const
{
    return m_orientation.toImage(
        { shownAt(place.x(), m_origin.x()), shownAt(place.y(), m_origin.y()) }, m_image);
}

QRectF ViewMapping::rectOf(const QRect& pixels) const
{
    const QRectF shown = m_orientation.toShown(pixels, m_image);
    return { m_origin + shown.topLeft() * m_zoom, shown.size() * m_zoom };
}

QRect ViewMapping::pictureRect() const
{
    // The screen's pixels whose middle the picture covers.
    const QPoint from(static_cast<int>(std::ceil(m_origin.x() - 0.5)),
        static_cast<int>(std::ceil(m_origin.y() - 0.5)));
    const QSizeF size = pictureSize();
    const QPoint to(static_cast<int>(std::ceil(m_origin.x() + size.width() - 0.5)),
        static_cast<int>(std::ceil(m_origin.y() + size.height() - 0.5)));
    return QRect(from, to - QPoint(1, 1)) & QRect(QPoint(0, 0), m_view);
}

ViewMapping::Samples ViewMapping::samples(const QRect& area) const
{
    const bool isUpright = m_orientation.isUpright();
    const QSize size = m_orientation.shownSize(m_image);
    const bool isAcrossReversed
        = isUpright ? m_orientation.areLinesReversed() : m_orientation.areColumnsReversed();
    const bool isDownReversed
        = isUpright ? m_orientation.areColumnsReversed() : m_orientation.areLinesReversed();
    auto across = axis(area.x(), area.width(), m_origin.x(), size.width(), isAcrossReversed);
    auto down = axis(area.y(), area.height(), m_origin.y(), size.height(), isDownReversed);
    if (isUpright) {
        across.swap(down);
    }
    return { std::move(across), std::move(down) };
}

double ViewMapping::fittedZoom() const
{
    const QSizeF shown = m_orientation.shownSize(m_image);
    return std::min(m_view.width() / shown.width(), m_view.height() / shown.height());
}

QSizeF ViewMapping::pictureSize() const
{
    return QSizeF(m_orientation.shownSize(m_image)) * m_zoom;
}

void ViewMapping::keepInView()
{
    if (m_image.isEmpty() || m_view.isEmpty()) {
        return;
    }
    const QSizeF size = pictureSize();
    const QSizeF gap = (m_view - QSizeF(m_orientation.shownSize(m_image)) * fittedZoom()) / 2;
    m_origin = { kept(m_origin.x(), size.width(), m_view.width(), gap.width()),
        kept(m_origin.y(), size.height(), m_view.height(), gap.height()) };
}

int ViewMapping::shownAt(double place, double origin) const
{
    return static_cast<int>(std::floor((place - origin) / m_zoom));
}

std::vector<int> ViewMapping::axis(
    int first, int count, double origin, int size, bool isReversed) const
{
    std::vector<int> all(static_cast<std::size_t>(std::max(count, 0)));
    for (int& at : all) {
        const int shown = std::clamp(shownAt(first++ + 0.5, origin), 0, size - 1);
        at = isReversed ? size - 1 - shown : shown;
    }
    return all;
}

} // namespace featurebrowser
