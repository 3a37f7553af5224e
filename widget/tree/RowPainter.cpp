#include "tree/RowPainter.h"

#include "look/ThemeColors.h"
#include "model/RowRoles.h"
#include "text/ValueText.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <optional>

namespace featurebrowser {

namespace {

constexpr int margin = 4;

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

// Camera texts are shown in one line, control characters as blanks.
QString oneLine(QString text)
{
    const auto isControl = [](QChar c) {
        return c.unicode() < 0x20 || c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
    };
    std::replace_if(text.begin(), text.end(), isControl, QLatin1Char(' '));
    return text;
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
    , m_rest(option.rect.adjusted(margin, 0, -margin, 0))
{
    if (row.isCategory()) {
        m_option.font.setBold(true);
    } else if (!row.isEditable()) {
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
        return colors::categoryBackground(palette);
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
    const QString& wanted = m_around.wanted;
    if (wanted.isEmpty() || m_option.state.testFlag(QStyle::State_Selected)) {
        return;
    }
    const QString shown = oneLine(text);
    for (int at = shown.indexOf(wanted, 0, Qt::CaseInsensitive); at >= 0;
         at = shown.indexOf(wanted, at + wanted.size(), Qt::CaseInsensitive)) {
        const int start = m_option.fontMetrics.horizontalAdvance(shown.left(at));
        const int width = m_option.fontMetrics.horizontalAdvance(shown.mid(at, wanted.size()));
        const QRect match(m_rest.left() + start, m_rest.top() + 3, width, m_rest.height() - 6);
        m_painter.fillRect(QStyle::visualRect(m_option.direction, m_option.rect, match & m_rest),
            colors::matchBackground(m_option.palette));
    }
}

void RowPainter::paintName()
{
    const QString name = toText(m_row.name);
    paintMatches(name);
    const bool gone = m_row.state == FEATURE_NOT_AVAILABLE;
    paintText(name,
        gone ? textColor()
            : m_option.state.testFlag(QStyle::State_Selected)
            ? m_option.palette.color(QPalette::HighlightedText)
            : m_option.palette.color(QPalette::Text));
    if (!m_around.context.isEmpty()) {
        m_rest.setLeft(m_rest.left() + 2 * margin);
        paintText(m_around.context, dimColor());
    }
}

void RowPainter::paintValue()
{
    paintSigns();
    if (m_row.kind == RowKind::Command) {
        paintButton();
        return;
    }
    if (m_row.kind == RowKind::Boolean && m_row.hasValue) {
        paintCheckBox();
    }
    const QString text = valueText(m_row);
    paintMatches(text);
    paintText(text, textColor());
    const QString unit = rowUnit(m_row);
    if (m_row.hasValue && !unit.isEmpty()) {
        m_rest.setLeft(m_rest.left() + margin);
        paintText(unit, dimColor());
    }
}

// At the trailing edge: why the row is as it is, and that it opens a list.
void RowPainter::paintSigns()
{
    const int side = m_option.fontMetrics.height() - 2;
    const auto sign = [&](Glyph glyph, const QColor& color) {
        const QRect area(m_rest.right() - side, m_rest.center().y() - side / 2, side, side);
        drawGlyph(m_painter, glyph, QStyle::visualRect(m_option.direction, m_option.rect, area),
            m_option.state.testFlag(QStyle::State_Selected) ? dimColor() : color);
        m_rest.setRight(area.left() - margin);
    };
    if (opensList(m_row)) {
        sign(Glyph::Chevron, dimColor());
    }
    if (const auto glyph = stateGlyph(m_row)) {
        sign(*glyph, *glyph == Glyph::Warning ? colors::alarm(m_option.palette) : dimColor());
    }
    if (m_row.hasMessage()) {
        sign(Glyph::Warning, colors::alarm(m_option.palette));
    }
}

QRect RowPainter::buttonRect(const QStyleOptionViewItem& cell, const FeatureRow& row)
{
    const QRect inside = cell.rect.adjusted(margin, 1, -margin, -1);
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

void RowPainter::paintButton()
{
    QStyleOptionButton button;
    button.initFrom(&m_view);
    button.rect = QStyle::visualRect(
        m_option.direction, m_option.rect, buttonRect(m_option, m_row).intersected(m_rest));
    button.text = oneLine(valueText(m_row)).replace(QLatin1Char('&'), QLatin1String("&&"));
    button.state
        = m_row.isEditable() ? QStyle::State_Enabled | QStyle::State_Raised : QStyle::State_None;
    button.state.setFlag(QStyle::State_HasFocus, m_option.state.testFlag(QStyle::State_HasFocus));
    button.palette.setCurrentColorGroup(m_row.isEditable() ? QPalette::Active : QPalette::Disabled);
    m_painter.setFont(m_view.font());
    m_view.style()->drawControl(QStyle::CE_PushButton, &button, &m_painter, &m_view);
}

void RowPainter::paintCheckBox()
{
    const auto& choice = std::get<ChoiceValue>(m_row.value);
    QStyleOptionButton box;
    box.initFrom(&m_view);
    const QRect area = buttonRect(m_option, m_row);
    box.rect = QStyle::visualRect(m_option.direction, m_option.rect, area);
    box.state = choice.index == 0 ? QStyle::State_Off
        : choice.index == 1       ? QStyle::State_On
                                  : QStyle::State_NoChange;
    box.state.setFlag(QStyle::State_Enabled, m_row.isEditable());
    box.palette.setCurrentColorGroup(m_row.isEditable() ? QPalette::Active : QPalette::Disabled);
    m_view.style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &m_painter, &m_view);
    // Some styles leave the frame nearly invisible on dark palettes.
    m_painter.setPen(dimColor());
    m_painter.setBrush(Qt::NoBrush);
    m_painter.drawRect(box.rect.adjusted(0, 0, -1, -1));
    m_rest.setLeft(area.right() + margin + 2);
}

} // namespace featurebrowser
