// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "look/Glyphs.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace featurebrowser {

namespace {

// All signs are drawn in a square of 16 units.
void padlock(QPainter& painter, const QColor& color)
{
    painter.drawArc(QRectF(4.7, 2, 6.6, 8), 0, 180 * 16);
    painter.drawLine(QPointF(4.7, 6), QPointF(4.7, 8));
    painter.drawLine(QPointF(11.3, 6), QPointF(11.3, 8));
    painter.setBrush(color);
    painter.drawRoundedRect(QRectF(3.2, 7.6, 9.6, 6.6), 1, 1);
}

void crossed(QPainter& painter)
{
    painter.drawEllipse(QRectF(2.5, 2.5, 11, 11));
    painter.drawLine(QPointF(4.4, 11.6), QPointF(11.6, 4.4));
}

void warning(QPainter& painter)
{
    QPainterPath triangle(QPointF(8, 2));
    triangle.lineTo(14.5, 13.5);
    triangle.lineTo(1.5, 13.5);
    triangle.closeSubpath();
    painter.drawPath(triangle);
    painter.drawLine(QPointF(8, 6.5), QPointF(8, 9.5));
    painter.drawPoint(QPointF(8, 11.6));
}

// Points down from `top`, or up when `height` is negative.
void chevron(QPainter& painter, double top, double height)
{
    painter.drawLine(QPointF(4, top), QPointF(8, top + height));
    painter.drawLine(QPointF(8, top + height), QPointF(12, top));
}

void cross(QPainter& painter)
{
    painter.drawLine(QPointF(4.5, 4.5), QPointF(11.5, 11.5));
    painter.drawLine(QPointF(4.5, 11.5), QPointF(11.5, 4.5));
}

} // namespace

void drawGlyph(QPainter& painter, Glyph glyph, const QRectF& area, const QColor& color)
{
    const double side = std::min(area.width(), area.height());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(area.center().x() - side / 2, area.center().y() - side / 2);
    painter.scale(side / 16, side / 16);
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    switch (glyph) {
    case Glyph::Padlock:
        padlock(painter, color);
        break;
    case Glyph::Crossed:
        crossed(painter);
        break;
    case Glyph::Warning:
        warning(painter);
        break;
    case Glyph::Chevron:
        chevron(painter, 6, 4.5);
        break;
    case Glyph::ExpandAll:
        chevron(painter, 3, 4);
        chevron(painter, 9, 4);
        break;
    case Glyph::CollapseAll:
        chevron(painter, 7, -4);
        chevron(painter, 13, -4);
        break;
    case Glyph::Next:
        painter.drawLine(QPointF(8, 2.5), QPointF(8, 13));
        chevron(painter, 9, 4);
        break;
    case Glyph::Close:
        cross(painter);
        break;
    }
    painter.restore();
}

} // namespace featurebrowser
