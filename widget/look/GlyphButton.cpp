// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "look/GlyphButton.h"

#include <QPainter>

namespace featurebrowser {

GlyphButton::GlyphButton(Glyph glyph, const QString& words, QWidget* parent)
    : QToolButton(parent)
    , m_glyph(glyph)
{
    setAutoRaise(true);
    setToolTip(words);
    setAccessibleName(words);
    setFocusPolicy(Qt::TabFocus);
}

QSize GlyphButton::sizeHint() const
{
    const int side = fontMetrics().height() * 3 / 2;
    return { side, side };
}

void GlyphButton::paintEvent(QPaintEvent* event)
{
    QToolButton::paintEvent(event);
    QPainter painter(this);
    const int side = fontMetrics().height() - 1;
    QRect area(0, 0, side, side);
    area.moveCenter(rect().center());
    drawGlyph(painter, m_glyph, area, palette().color(QPalette::ButtonText));
    if (hasFocus()) {
        painter.drawRect(rect().adjusted(1, 1, -2, -2));
    }
}

} // namespace featurebrowser
