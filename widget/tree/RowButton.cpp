// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "tree/RowButton.h"

#include "row/FeatureRow.h"
#include "text/RowText.h"
#include "text/ValueText.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace featurebrowser {

namespace {

QStyleOptionButton optionFor(const QStyleOptionViewItem& cell, const FeatureRow& row)
{
    QStyleOptionButton option;
    option.initFrom(cell.widget);
    option.palette.setCurrentColorGroup(row.isEditable() ? QPalette::Active : QPalette::Disabled);
    return option;
}

} // namespace

QRect buttonRect(const QStyleOptionViewItem& cell, const FeatureRow& row)
{
    const QRect inside = cell.rect.adjusted(cellMargin, 1, -cellMargin, -1);
    if (row.kind == RowKind::Command) {
        const int wanted
            = cell.fontMetrics.horizontalAdvance(valueText(row)) + 2 * cell.fontMetrics.height();
        const int width = std::min(inside.width(), std::max(wanted, 5 * cell.fontMetrics.height()));
        return { inside.topLeft(), QSize(width, inside.height()) };
    }
    const QStyle* style = cell.widget != nullptr ? cell.widget->style() : QApplication::style();
    const int side = style->pixelMetric(QStyle::PM_IndicatorWidth, &cell, cell.widget);
    return { inside.left(), inside.center().y() - side / 2, side, side };
}

void drawButton(
    QPainter& painter, const QStyleOptionViewItem& cell, const FeatureRow& row, const QRect& room)
{
    QStyleOptionButton button = optionFor(cell, row);
    button.rect
        = QStyle::visualRect(cell.direction, cell.rect, buttonRect(cell, row).intersected(room));
    button.text = oneLine(valueText(row)).replace(QLatin1Char('&'), QLatin1String("&&"));
    button.state
        = row.isEditable() ? QStyle::State_Enabled | QStyle::State_Raised : QStyle::State_None;
    button.state.setFlag(QStyle::State_HasFocus, cell.state.testFlag(QStyle::State_HasFocus));
    painter.setFont(cell.widget->font());
    cell.widget->style()->drawControl(QStyle::CE_PushButton, &button, &painter, cell.widget);
}

QRect drawCheckBox(
    QPainter& painter, const QStyleOptionViewItem& cell, const FeatureRow& row, const QColor& frame)
{
    const int index = std::get<ChoiceValue>(row.value).index;
    const QRect area = buttonRect(cell, row);
    QStyleOptionButton box = optionFor(cell, row);
    box.rect = QStyle::visualRect(cell.direction, cell.rect, area);
    box.state = index == 0 ? QStyle::State_Off
        : index == 1       ? QStyle::State_On
                           : QStyle::State_NoChange;
    box.state.setFlag(QStyle::State_Enabled, row.isEditable());
    cell.widget->style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, cell.widget);
    // Some styles leave the frame nearly invisible on dark palettes.
    painter.setPen(frame);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.rect.adjusted(0, 0, -1, -1));
    return area;
}

} // namespace featurebrowser
