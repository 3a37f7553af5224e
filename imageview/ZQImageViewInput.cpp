// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQImageView.h"

#include "view/ImageViewImpl.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace featurebrowser {

namespace {

/// Where an arrow key leads, in parts of the view; null for other keys.
QPointF wayOf(int key)
{
    constexpr double part = 0.125;
    switch (key) {
    case Qt::Key_Left:
        return { part, 0 };
    case Qt::Key_Right:
        return { -part, 0 };
    case Qt::Key_Up:
        return { 0, part };
    case Qt::Key_Down:
        return { 0, -part };
    default:
        return {};
    }
}

QPointF placeOf(const QMouseEvent& event)
{
#if QT_VERSION_MAJOR < 6
    return event.localPos();
#else
    return event.position();
#endif
}

} // namespace

bool ZQImageView::event(QEvent* event)
{
    if (event->type() == Impl::postedType()) {
        m_impl->takePosted();
        return true;
    }
    if (event->type() == QEvent::Leave) {
        m_impl->hover(std::nullopt);
    }
    return QWidget::event(event);
}

void ZQImageView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_impl->mapping.setViewSize(m_impl->screenSize());
    m_impl->mappingChanged();
}

void ZQImageView::wheelEvent(QWheelEvent* event)
{
    const int steps = m_impl->wheelSteps(event->angleDelta().y());
    for (int i = 0; i < std::abs(steps); ++i) {
        m_impl->zoomTo(m_impl->mapping.nextZoom(steps > 0), m_impl->toScreen(event->position()));
    }
    event->accept();
}

void ZQImageView::keyPressEvent(QKeyEvent* event)
{
    const QPointF way = wayOf(event->key());
    if (!way.isNull() && event->modifiers() == (event->modifiers() & Qt::KeypadModifier)) {
        return m_impl->moveBy(
            { way.x() * width() * devicePixelRatioF(), way.y() * height() * devicePixelRatioF() });
    }
    switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal: // the same key without Shift on many keyboards
        return zoomIn();
    case Qt::Key_Minus:
        return zoomOut();
    case Qt::Key_0:
        return fitToWindow();
    case Qt::Key_1:
        return setZoom(1);
    case Qt::Key_Escape:
        if (m_impl->isDragging()) {
            return m_impl->endDrag(false);
        }
        if (!region().isNull()) {
            return clearRegion();
        }
        break;
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

void ZQImageView::mousePressEvent(QMouseEvent* event)
{
    const bool isLeft = event->button() == Qt::LeftButton;
    if (m_impl->isDragging() || !m_impl->isShowing()
        || (!isLeft && event->button() != Qt::MiddleButton)) {
        return QWidget::mousePressEvent(event);
    }
    const QPointF place = m_impl->toScreen(placeOf(*event));
    if (isLeft && event->modifiers().testFlag(Qt::ShiftModifier)) {
        m_impl->startRegion(place);
    } else {
        m_impl->startMoving(place);
    }
}

void ZQImageView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF place = m_impl->toScreen(placeOf(*event));
    if (m_impl->isDragging()) {
        m_impl->drag(place);
    }
    m_impl->hover(place);
}

void ZQImageView::mouseReleaseEvent(QMouseEvent* event)
{
    const bool isHeld
        = event->buttons().testFlag(Qt::LeftButton) || event->buttons().testFlag(Qt::MiddleButton);
    if (!m_impl->isDragging() || isHeld) {
        return QWidget::mouseReleaseEvent(event);
    }
    m_impl->drag(m_impl->toScreen(placeOf(*event)));
    m_impl->endDrag(true);
}

} // namespace featurebrowser
