// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "program/PlainIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QPolygonF>

namespace zqviewer {

namespace {

/// In a square of 16.
QPolygonF outline(PlainSign sign)
{
    switch (sign) {
    case PlainSign::Start:
        return QPolygonF({ { 4, 2 }, { 14, 8 }, { 4, 14 } });
    case PlainSign::Stop:
        return QPolygonF({ { 3, 3 }, { 13, 3 }, { 13, 13 }, { 3, 13 } });
    default:
        return QPolygonF({ { 3, 5 }, { 13, 5 }, { 8, 11 } });
    }
}

/// Takes its colour when it is painted, and so follows the palette.
class SignEngine : public QIconEngine {
public:
    explicit SignEngine(PlainSign sign)
        : m_sign(sign)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const auto role
            = mode == QIcon::Selected ? QPalette::HighlightedText : QPalette::ButtonText;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->setPen(Qt::NoPen);
        painter->setBrush(QGuiApplication::palette().brush(group, role));
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / 16.0, rect.height() / 16.0);
        painter->drawPolygon(outline(m_sign));
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new SignEngine(m_sign); }

private:
    PlainSign m_sign;
};

} // namespace

QIcon plainIcon(PlainSign sign)
{
    return QIcon(new SignEngine(sign)); // which owns it
}

} // namespace zqviewer
