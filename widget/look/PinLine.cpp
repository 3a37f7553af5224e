// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "look/PinLine.h"

#include "look/GlyphButton.h"
#include "look/Sparkline.h"
#include "look/ThemeColors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <algorithm>

namespace featurebrowser {

PinLine::PinLine(const QString& name, QWidget* parent)
    : QWidget(parent)
    , m_name(name)
    , m_line(new Sparkline(this))
    , m_unpin(new GlyphButton(Glyph::Close, tr("Unpin %1").arg(name), this))
{
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    m_line->setObjectName(QStringLiteral("graph"));
    m_line->setAccessibleName(tr("Recent values of %1").arg(name));
    m_unpin->setToolTip(tr("Unpin"));
    m_unpin->setFocusPolicy(Qt::NoFocus); // Delete does the same
    m_unpin->setCursor(Qt::ArrowCursor);
    connect(m_unpin, &QToolButton::clicked, this, &PinLine::unpinWanted);
}

void PinLine::showValue(const QString& value, bool isDim, const QString& explanation)
{
    setToolTip(explanation);
    if (value == m_value && isDim == m_isDim) {
        return;
    }
    m_value = value;
    m_isDim = isDim;
    setAccessibleName(m_name + QStringLiteral(", ") + value);
    update();
}

void PinLine::setValueStart(int start)
{
    m_valueStart = start;
    place();
    update();
}

QSize PinLine::sizeHint() const
{
    return { fontMetrics().height() * 10,
        std::max(fontMetrics().height(), m_unpin->sizeHint().height()) + 3 };
}

void PinLine::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    place();
}

void PinLine::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    place();
}

void PinLine::place()
{
    const QSize button = m_unpin->sizeHint();
    const QRect end(width() - button.width(), (height() - button.height()) / 2, button.width(),
        button.height());
    // Where there is little, the value needs it more.
    const int room = std::clamp((end.left() - m_valueStart) / 2, 0, m_line->sizeHint().width());
    const QRect line(end.left() - room - margin, 1, room, height() - 2);
    m_unpin->setGeometry(QStyle::visualRect(layoutDirection(), rect(), end));
    m_line->setGeometry(QStyle::visualRect(layoutDirection(), rect(), line));
}

void PinLine::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    // Names and values are technical text: only their place is mirrored, not their order.
    painter.setLayoutDirection(Qt::LeftToRight);
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const auto draw = [&](const QString& text, int from, int to) {
        const QRect place(from + margin, 0, std::max(to - from - 2 * margin, 0), height());
        painter.drawText(QStyle::visualRect(layoutDirection(), rect(), place),
            static_cast<int>(Qt::AlignVCenter | (isMirrored ? Qt::AlignRight : Qt::AlignLeft)),
            fontMetrics().elidedText(text, Qt::ElideRight, place.width()));
    };
    const int end = isMirrored ? width() - m_line->geometry().right() : m_line->x();
    painter.setPen(palette().color(QPalette::WindowText));
    draw(m_name, 0, std::min(m_valueStart, end));
    if (m_isDim) {
        painter.setPen(colors::dim(palette()));
    }
    draw(m_value, m_valueStart, end);
    if (hasFocus()) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect().adjusted(1, 0, -1, -1);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void PinLine::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT rowWanted();
        return;
    case Qt::Key_Delete:
        Q_EMIT unpinWanted();
        return;
    case Qt::Key_Up:
    case Qt::Key_Down:
        Q_EMIT neighbourWanted(event->key() == Qt::Key_Down);
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void PinLine::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->pos())) {
        Q_EMIT rowWanted();
    }
}

void PinLine::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void PinLine::focusOutEvent(QFocusEvent* event)
{
    QWidget::focusOutEvent(event);
    update();
}

} // namespace featurebrowser
