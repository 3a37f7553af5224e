// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/RowCallout.h"

#include "look/Glyphs.h"
#include "look/ThemeColors.h"
#include "tree/FeatureTreeView.h"

#include <QLayout>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace featurebrowser {

RowCallout::RowCallout(FeatureTreeView* tree)
    : QFrame(tree->viewport())
    , m_tree(tree)
{
    connect(tree, &FeatureTreeView::moved, this, &RowCallout::follow);
    hide();
}

int RowCallout::signWidth() const
{
    return fontMetrics().height() + 14;
}

void RowCallout::setRow(const FeatureRow* row)
{
    m_rowName = row != nullptr ? row->name : std::string();
    follow();
}

void RowCallout::follow()
{
    if (m_rowName.empty() && isHidden()) {
        return;
    }
    const FeatureRow* row = m_rowName.empty() ? nullptr : m_tree->features().find(m_rowName);
    if (row == nullptr || !isWanted(*row)) {
        m_rowName.clear();
        hide();
        return;
    }
    const QRect area = m_tree->rowRect(*row);
    if (area.isEmpty() || row->hidden) {
        hide();
        return;
    }
    showContent(*row);
    setGeometry(place(area));
    show();
    raise();
}

int RowCallout::heightFor(int width) const
{
    return std::max(layout()->hasHeightForWidth() ? layout()->heightForWidth(width) : 0,
        layout()->minimumSize().height());
}

// What other rows show stays to be read as far as there is room.
QRect RowCallout::place(const QRect& row) const
{
    const QSize room = m_tree->viewport()->size();
    const int unit = fontMetrics().averageCharWidth();
    const int wide = std::min(room.width() - 16, unit * 90);
    QRect covered = row; // the more lines, the more rows beside it
    int rest = 0;
    for (int tries = 0; tries < 3; ++tries) {
        rest = std::min(room.width() - m_tree->valueWidth(covered) - 2 * unit - 8, wide);
        covered.setHeight(std::max(row.height(), heightFor(std::max(rest, 0))));
    }
    QRect area;
    if (rest >= std::max(unit * 24, layout()->minimumSize().width())) {
        area = { m_tree->valueWidth(covered) + 2 * unit, row.top(), rest, heightFor(rest) };
        area.moveTop(std::max(0, std::min(row.top(), room.height() - area.height())));
    } else {
        const int height = heightFor(wide);
        const bool isBelow = row.bottom() + 2 + height <= room.height() || row.top() < height;
        area = { room.width() - wide - 8, isBelow ? row.bottom() + 2 : row.top() - height - 1, wide,
            height };
    }
    return QStyle::visualRect(layoutDirection(), m_tree->viewport()->rect(), area);
}

void RowCallout::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QColor alarm = colors::alarm(palette());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(alarm, 1));
    painter.setBrush(colors::alarmBackground(palette()));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
    const int side = fontMetrics().height();
    const QRect sign(8, 7, side, side);
    drawGlyph(painter, Glyph::Warning, QStyle::visualRect(layoutDirection(), rect(), sign), alarm);
}

} // namespace featurebrowser
