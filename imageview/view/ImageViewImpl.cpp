// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "view/ImageViewImpl.h"

#include "formats/ImageLines.h"
#include "view/ImageTexts.h"
#include "view/Picture.h"

#include <QApplication>
#include <QPainter>
#include <QPen>
#include <QWheelEvent>

#include <algorithm>

namespace featurebrowser {

namespace {

constexpr QRgb background = 0xFF202020;
constexpr QRgb words = 0xFFD0D0D0;
constexpr QRgb dimming = 0xA0202020;
constexpr int margin = 16;

} // namespace

ZQImageView::Impl::Impl(ZQImageView* view)
    : m_view(view)
{
}

void ZQImageView::Impl::show(const ZQImage& shown)
{
    image = shown;
    outdated.clear();
    problem = problemText(image);
    if (isShowing()) {
        const QSize size(image.width, image.height);
        mapping.setImageSize(size);
        setRegion(region & QRect(QPoint(0, 0), size));
    }
    mappingChanged();
    Q_EMIT m_view->imageChanged();
}

void ZQImageView::Impl::takePosted()
{
    const std::optional<ZQImage> posted = slot.take();
    if (!posted) {
        return;
    }
    if (m_isPostUnpainted) {
        slot.countReplaced();
    }
    m_isPostUnpainted = true;
    show(*posted);
}

QEvent::Type ZQImageView::Impl::postedType()
{
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

void ZQImageView::Impl::dropPosted()
{
    if (slot.take()) {
        slot.countReplaced();
    }
    if (m_isPostUnpainted) {
        slot.countReplaced();
    }
    m_isPostUnpainted = false;
}

QPointF ZQImageView::Impl::toScreen(const QPointF& position) const
{
    return position * m_view->devicePixelRatioF() + QPointF(0.5, 0.5);
}

QSize ZQImageView::Impl::screenSize() const
{
    return m_view->size() * m_view->devicePixelRatioF();
}

void ZQImageView::Impl::mappingChanged()
{
    m_view->update();
    if (m_toldZoom != mapping.zoom()) {
        m_toldZoom = mapping.zoom();
        Q_EMIT m_view->zoomChanged(m_toldZoom);
    }
    updateHover();
}

void ZQImageView::Impl::zoomTo(double zoom, const QPointF& about)
{
    mapping.setZoom(zoom, about);
    mappingChanged();
}

void ZQImageView::Impl::moveBy(const QPointF& distance)
{
    mapping.moveBy(distance);
    mappingChanged();
}

int ZQImageView::Impl::wheelSteps(int eighths)
{
    if ((eighths > 0) != (m_wheel > 0)) {
        m_wheel = 0;
    }
    m_wheel += eighths;
    const int steps = m_wheel / QWheelEvent::DefaultDeltasPerStep;
    m_wheel %= QWheelEvent::DefaultDeltasPerStep;
    return steps;
}

void ZQImageView::Impl::hover(std::optional<QPointF> place)
{
    m_mouse = place;
    updateHover();
}

void ZQImageView::Impl::updateHover()
{
    QPoint pixel(-1, -1);
    QString text;
    if (m_mouse && isShowing()) {
        const QPoint at = mapping.pixelAt(*m_mouse);
        text = componentsText(componentsAt(image, at.x(), at.y()));
        if (!text.isEmpty()) {
            pixel = at;
        }
    }
    if (pixel == m_toldPixel && text == m_toldText) {
        return;
    }
    m_toldPixel = pixel;
    m_toldText = text;
    Q_EMIT m_view->pixelHovered(pixel, text);
}

void ZQImageView::Impl::startMoving(const QPointF& place)
{
    m_drag = Drag::Move;
    m_dragStart = m_dragLast = place;
    m_view->setCursor(Qt::ClosedHandCursor);
}

void ZQImageView::Impl::startRegion(const QPointF& place)
{
    m_drag = Drag::Region;
    m_dragStart = m_dragLast = place;
    m_regionBefore = region;
    m_view->setCursor(Qt::CrossCursor);
}

void ZQImageView::Impl::drag(const QPointF& place)
{
    const QPointF distance = place - m_dragLast;
    m_dragLast = place;
    if (m_drag == Drag::Move) {
        return moveBy(distance);
    }
    const QPoint from = mapping.pixelAt(m_dragStart);
    const QPoint to = mapping.pixelAt(place);
    const QPoint least(std::min(from.x(), to.x()), std::min(from.y(), to.y()));
    const QPoint most(std::max(from.x(), to.x()), std::max(from.y(), to.y()));
    region = QRect(least, most) & QRect(QPoint(0, 0), mapping.imageSize());
    m_view->update();
}

void ZQImageView::Impl::endDrag(bool isKept)
{
    const Drag ended = m_drag;
    m_drag = Drag::None;
    m_view->unsetCursor();
    if (ended != Drag::Region) {
        return;
    }
    const double moved = (m_dragLast - m_dragStart).manhattanLength();
    const bool isClick = moved < QApplication::startDragDistance();
    const QRect drawn = region;
    region = m_regionBefore;
    if (isKept && !isClick) {
        setRegion(drawn);
    }
    m_view->update();
}

void ZQImageView::Impl::setRegion(const QRect& pixels)
{
    const QRect now = pixels.isEmpty() ? QRect() : pixels;
    if (now == region) {
        return;
    }
    region = now;
    m_view->update();
    Q_EMIT m_view->regionSelected(region);
}

void ZQImageView::Impl::paint(QPainter& painter, const QRect& area)
{
    m_isPostUnpainted = false;
    painter.fillRect(area, QColor(background));
    if (!isShowing()) {
        painter.setPen(QColor(words));
        painter.drawText(m_view->rect().adjusted(margin, margin, -margin, -margin),
            Qt::AlignCenter | Qt::TextWordWrap, problem);
        return;
    }
    paintPicture(painter, area);
    paintRegion(painter);
    if (!outdated.isEmpty()) {
        paintOutdated(painter, area);
    }
}

void ZQImageView::Impl::paintPicture(QPainter& painter, const QRect& area)
{
    const qreal ratio = m_view->devicePixelRatioF();
    const QRect screen
        = QRectF(QPointF(area.topLeft()) * ratio, QSizeF(area.size()) * ratio).toAlignedRect();
    const QRect visible = screen & mapping.pictureRect();
    if (visible.isEmpty()) {
        return;
    }
    QImage picture = renderPicture(ImageLines(image), mapping, visible, isOverexposureShown);
    picture.setDevicePixelRatio(ratio);
    painter.drawImage(QPointF(visible.topLeft()) / ratio, picture);
}

/// The words keep away from the middle, where the subject is.
void ZQImageView::Impl::paintOutdated(QPainter& painter, const QRect& area)
{
    painter.fillRect(area, QColor::fromRgba(dimming));
    const QRect room = m_view->rect().adjusted(margin, margin, -margin, -margin);
    const int flags = Qt::AlignHCenter | Qt::AlignBottom | Qt::TextWordWrap;
    const QRect place = painter.boundingRect(room, flags, outdated);
    painter.fillRect(
        place.adjusted(-margin / 2, -margin / 4, margin / 2, margin / 4), QColor(background));
    painter.setPen(QColor(words));
    painter.drawText(room, flags, outdated);
}

// White on black, so that it is seen on any picture.
void ZQImageView::Impl::paintRegion(QPainter& painter)
{
    if (region.isEmpty()) {
        return;
    }
    const qreal ratio = m_view->devicePixelRatioF();
    const QRectF screen = mapping.rectOf(region);
    const QRectF frame(screen.topLeft() / ratio, screen.size() / ratio);
    const QRect outline = frame.toAlignedRect().adjusted(0, 0, -1, -1);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawRect(outline);
    painter.setPen(QPen(Qt::white, 1, Qt::DashLine));
    painter.drawRect(outline);
}

} // namespace featurebrowser
