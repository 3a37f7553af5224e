// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "editors/ValueSlider.h"

#include <QMouseEvent>
#include <QWheelEvent>

#include <utility>

namespace featurebrowser {

ValueSlider::ValueSlider(QWidget* parent)
    : QSlider(Qt::Horizontal, parent)
{
}

void ValueSlider::letGo()
{
    m_isHeld = false;
    setRepeatAction(SliderNoAction); // of a press beside the handle
    setSliderDown(false);
}

void ValueSlider::mousePressEvent(QMouseEvent* event)
{
    if (!std::exchange(m_isHeld, true)) {
        Q_EMIT held();
    }
    QSlider::mousePressEvent(event);
}

// After letGo() the base class still takes the mouse for one that drags.
void ValueSlider::mouseMoveEvent(QMouseEvent* event)
{
    if (m_isHeld) {
        QSlider::mouseMoveEvent(event);
    }
}

void ValueSlider::mouseReleaseEvent(QMouseEvent* event)
{
    m_isHeld = m_isHeld && event->buttons() != Qt::NoButton;
    QSlider::mouseReleaseEvent(event);
}

void ValueSlider::wheelEvent(QWheelEvent* event)
{
    event->ignore();
}

} // namespace featurebrowser
