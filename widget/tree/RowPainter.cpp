// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "tree/RowPainter.h"

#include "look/ThemeColors.h"
#include "model/RowRoles.h"
#include "text/RowText.h"
#include "text/ValueText.h"
#include "tree/RowButton.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <optional>

namespace featurebrowser {

namespace {

std::optional<Glyph> stateGlyph(const FeatureRow& row)
{
    switch (row.state) {
    case FEATURE_LOCKED:
        return Glyph::Padlock;
    case FEATURE_NOT_AVAILABLE:
        return Glyph::Crossed;
    case FEATURE_READ_FAILED:
        return Glyph::Warning;
    default:
        return std::nullopt;
    }
}

bool isTopLevel(const FeatureRow& row)
{
    return row.parent == nullptr || row.parent->parent == nullptr;
}

bool opensList(const FeatureRow& row)
{
    return row.kind == RowKind::Enumeration && row.isEditable();
}

} // namespace

RowPainter::RowPainter(QPainter& painter, const QStyleOptionViewItem& option, const FeatureRow& row,
    const RowSurroundings& around)
    : m_painter(painter)
    , m_option(option)
    , m_view(*option.widget)
    , m_row(row)
    , m_around(around)
    , m_rest(option.rect.adjusted(cellMargin, 0, -cellMargin, 0))
{
    if (row.isCategory()) {
        m_option.font.setBold(true);
    } else if (isGone()) {
        m_option.font.setItalic(true);
    }
    m_option.fontMetrics = QFontMetrics(m_option.font);
}

void RowPainter::paint(int column)
{
    m_painter.save();
    m_painter.setClipRect(m_option.rect, Qt::IntersectClip);
    paintBackground();
    m_painter.setFont(m_option.font);
    // Names and values are technical text: only their place is mirrored, not their order.
    m_painter.setLayoutDirection(Qt::LeftToRight);
    if (column == NameColumn) {
        paintName();
    } else if (!m_row.isCategory()) {
        paintValue();
    }
    m_painter.restore();
}

QBrush RowPainter::rowBackground(
    const QPalette& palette, const FeatureRow& row, double changeStrength)
{
    if (row.isCategory()) {
        return colors::categoryBackground(palette, isTopLevel(row));
    }
    if (row.hasMessage()) {
        return colors::alarmBackground(palette);
    }
    if (changeStrength > 0) {
        return colors::changedBackground(palette, changeStrength);
    }
    return {};
}

void RowPainter::paintBackground()
{
    m_option.backgroundBrush = rowBackground(m_view.palette(), m_row, m_around.changeStrength);
    const QStyle* style = m_view.style();
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &m_option, &m_painter, &m_view);
}

QColor RowPainter::textColor() const
{
    if (m_option.state.testFlag(QStyle::State_Selected)) {
        return m_option.palette.color(QPalette::HighlightedText);
    }
    const bool weak = !m_row.isCategory()
        && (!m_row.isEditable() || m_row.state != FEATURE_AVAILABLE || !m_row.hasValue);
    return weak ? colors::dim(m_option.palette) : m_option.palette.color(QPalette::Text);
}

QColor RowPainter::dimColor() const
{
    return m_option.state.testFlag(QStyle::State_Selected)
        ? m_option.palette.color(QPalette::HighlightedText)
        : colors::dim(m_option.palette);
}

// Draws at the leading edge of what is left and takes the room away.
void RowPainter::paintText(const QString& text, const QColor& color)
{
    const QString shown = m_option.fontMetrics.elidedText(
        oneLine(text), Qt::ElideRight, std::max(0, m_rest.width()));
    m_painter.setPen(color);
    m_painter.drawText(QStyle::visualRect(m_option.direction, m_option.rect, m_rest),
        static_cast<int>(Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextIncludeTrailingSpaces
            | QStyle::visualAlignment(m_option.direction, Qt::AlignLeft)),
        shown);
    m_rest.setLeft(m_rest.left() + m_option.fontMetrics.horizontalAdvance(shown));
}

void RowPainter::paintMatches(const QString& text)
{
    if (m_option.state.testFlag(QStyle::State_Selected)) {
        return;
    }
    const QString shown = oneLine(text);
    const int full = m_option.fontMetrics.horizontalAdvance(shown);
    const QRect block(
        m_rest.left(), m_rest.top() + 3, std::min(full, m_rest.width()), m_rest.height() - 6);
    const QRect area = QStyle::visualRect(m_option.direction, m_option.rect, block);
    for (const QString& wanted : m_around.filterWords) {
        for (auto at = shown.indexOf(wanted, 0, Qt::CaseInsensitive); at >= 0;
             at = shown.indexOf(wanted, at + wanted.size(), Qt::CaseInsensitive)) {
            const int start = m_option.fontMetrics.horizontalAdvance(shown.left(at));
            const int width = m_option.fontMetrics.horizontalAdvance(shown.mid(at, wanted.size()));
            const QRect match(area.left() + start, area.top(), width, area.height());
            m_painter.fillRect(match & area, colors::matchBackground(m_option.palette));
        }
    }
}

void RowPainter::paintName()
{
    if (!m_row.extras().selectors.empty()) {
        paintTie();
    }
    const QString name = toText(m_row.name);
    paintMatches(name);
    const bool isSelected = m_option.state.testFlag(QStyle::State_Selected);
    paintText(name, isGone() || isSelected ? textColor() : m_option.palette.color(QPalette::Text));
}

// A thin rule along the rows that a selector addresses.
void RowPainter::paintTie()
{
    const QRect rule(m_rest.left() + 1, m_option.rect.top(), 1, m_option.rect.height());
    m_painter.fillRect(QStyle::visualRect(m_option.direction, m_option.rect, rule), dimColor());
    m_rest.setLeft(m_rest.left() + 2 * cellMargin);
}

void RowPainter::paintValue()
{
    paintSigns();
    if (m_row.kind == RowKind::Command) {
        drawButton(m_painter, m_option, m_row, m_rest);
        return;
    }
    if (m_row.kind == RowKind::Boolean && m_row.hasValue) {
        const QRect box = drawCheckBox(m_painter, m_option, m_row, dimColor());
        m_rest.setLeft(box.right() + cellMargin + 2);
    }
    const int arrow = opensList(m_row) ? signSide() + cellMargin : 0;
    m_rest.setRight(m_rest.right() - arrow);
    // A number and its unit are read in one order, whatever the direction of the window.
    const bool isMirrored = m_option.direction == Qt::RightToLeft;
    if (isMirrored) {
        paintUnit();
    }
    const QString text = valueText(m_row);
    paintMatches(text);
    paintText(text, textColor());
    if (!isMirrored) {
        paintUnit();
    }
    if (arrow > 0) {
        paintSign(Glyph::Chevron, m_rest.left() + cellMargin, dimColor());
    }
}

void RowPainter::paintUnit()
{
    const QString unit = rowUnit(m_row);
    if (!m_row.hasValue || unit.isEmpty()) {
        return;
    }
    const bool isMirrored = m_option.direction == Qt::RightToLeft;
    m_rest.setLeft(m_rest.left() + (isMirrored ? 0 : cellMargin));
    paintText(unit, dimColor());
    m_rest.setLeft(m_rest.left() + (isMirrored ? cellMargin : 0));
}

int RowPainter::signSide() const
{
    return m_option.fontMetrics.height() - 2;
}

void RowPainter::paintSign(Glyph glyph, int left, const QColor& color)
{
    const int side = signSide();
    const QRect area(left, m_rest.center().y() - side / 2, side, side);
    drawGlyph(m_painter, glyph, QStyle::visualRect(m_option.direction, m_option.rect, area),
        m_option.state.testFlag(QStyle::State_Selected) ? dimColor() : color);
}

// At the trailing edge: why the row is as it is.
void RowPainter::paintSigns()
{
    const auto sign = [this](Glyph glyph, const QColor& color) {
        m_rest.setRight(m_rest.right() - signSide() - cellMargin);
        paintSign(glyph, m_rest.right() + cellMargin, color);
    };
    if (const auto glyph = stateGlyph(m_row)) {
        sign(*glyph, *glyph == Glyph::Warning ? colors::alarm(m_option.palette) : dimColor());
    }
    if (m_row.hasMessage()) {
        sign(Glyph::Warning, colors::alarm(m_option.palette));
    }
}

} // namespace featurebrowser
