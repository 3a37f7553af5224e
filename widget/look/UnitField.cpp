// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "look/UnitField.h"

#include "look/ThemeColors.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionFrame>

#include <algorithm>

namespace featurebrowser {

namespace {

constexpr int gap = 4; // between a cell's edge, its text and the unit, in pixels
constexpr int ownMargin = 2; // that every line edit has at both sides of its text
constexpr int cursorRoom = 2; // and behind one at its right

} // namespace

UnitField::UnitField(QWidget* parent)
    : QLineEdit(parent)
{
    setFrame(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    makeRoom();
}

void UnitField::setUnit(const QString& unit)
{
    m_unit = unit;
    makeRoom();
    update();
}

int UnitField::unitWidth() const
{
    const int needed = gap + fontMetrics().horizontalAdvance(m_unit);
    return m_unit.isEmpty() || needed > width() / 2 ? 0 : needed;
}

// A line edit takes over the direction of what is typed. Numbers have that of no window's words,
// but stand at their side.
Qt::LayoutDirection UnitField::side() const
{
    return parentWidget()->layoutDirection();
}

void UnitField::makeRoom()
{
    const bool isMirrored = side() == Qt::RightToLeft;
    const int unit = unitWidth();
    const int lead = gap - ownMargin - (isMirrored ? cursorRoom : 0);
    constexpr int top = 1; // editors leave the cell's last line of dots free
    setTextMargins(isMirrored ? 0 : lead, top, isMirrored ? lead + unit : unit, 0);
    setAlignment((isMirrored ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute);
}

void UnitField::resizeEvent(QResizeEvent* event)
{
    QLineEdit::resizeEvent(event);
    makeRoom();
}

void UnitField::changeEvent(QEvent* event)
{
    QLineEdit::changeEvent(event);
    makeRoom();
}

void UnitField::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    const int wanted = unitWidth();
    if (wanted == 0) {
        return;
    }
    const bool isMirrored = side() == Qt::RightToLeft;
    QStyleOptionFrame panel;
    initStyleOption(&panel);
    const QRect inside = style()
                             ->subElementRect(QStyle::SE_LineEditContents, &panel, this)
                             .marginsRemoved(textMargins())
                             .adjusted(ownMargin, 0, -ownMargin - (isMirrored ? cursorRoom : 0), 0);
    const int text = std::min(fontMetrics().horizontalAdvance(displayText()), inside.width());
    QPainter painter(this);
    painter.setPen(colors::dim(palette()));
    // As a line edit places its text.
    const int top = inside.top() + (inside.height() - fontMetrics().height() + 1) / 2;
    // Behind the number in both directions: the two are read in one order.
    const int left = (isMirrored ? inside.right() + 1 : inside.left() + text) + gap;
    painter.drawText(QRect(left, top, wanted - gap, fontMetrics().height()),
        static_cast<int>(Qt::AlignLeft | Qt::TextSingleLine | Qt::TextDontClip), m_unit);
}

} // namespace featurebrowser
