// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "tree/FeatureTreeView.h"

#include "events/ValueWriter.h"
#include "look/ThemeColors.h"
#include "text/ValueText.h"
#include "tree/FeatureDelegate.h"
#include "tree/RowButton.h"
#include "tree/RowPainter.h"

#include <QAccessible>
#include <QHeaderView>
#include <QPainter>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace featurebrowser {

namespace {

/// How wide the content of the row's value cell is painted.
int shownWidth(const QTreeView& view, const FeatureRow& row)
{
    const QString text = valueWithUnit(row);
    if (row.isButton()) {
        QStyleOptionViewItem cell;
        cell.initFrom(&view);
        cell.widget = &view;
        cell.rect = { 0, 0, view.width(), view.fontMetrics().height() };
        const int words
            = row.kind == RowKind::Boolean ? 8 + view.fontMetrics().horizontalAdvance(text) : 0;
        return buttonRect(cell, row).right() + words;
    }
    return view.fontMetrics().horizontalAdvance(text);
}

} // namespace

FeatureTreeView::FeatureTreeView(FeatureModel* model, ValueWriter* writer, QWidget* parent)
    : QTreeView(parent)
    , m_features(model)
    , m_writer(writer)
    , m_marks(new ChangeMarks(this))
    , m_delegate(new FeatureDelegate(*model, *writer, *m_marks, this))
    , m_onScreen(*this)
{
    setObjectName(QStringLiteral("featureTree"));
    setAccessibleName(tr("Camera features"));
    setModel(model);
    setItemDelegate(m_delegate);
    setEditTriggers(NoEditTriggers); // see activate
    setExpandsOnDoubleClick(true);
    setUniformRowHeights(true);
    setAlternatingRowColors(true);
    setAllColumnsShowFocus(true);
    setVerticalScrollMode(ScrollPerPixel);
    connect(this, &QTreeView::collapsed, this, &FeatureTreeView::leaveRowsBelow);
    connect(m_delegate, &FeatureDelegate::neighbourWanted, this, &FeatureTreeView::editNeighbour);
    connect(m_marks, &ChangeMarks::strengthChanged, this,
        [this](const FeatureRow* row) { updateRow(*row); });
    connect(
        this, &FeatureTreeView::scrollWanted, this,
        [this](int place) {
            doItemsLayout();
            verticalScrollBar()->setValue(place);
        },
        Qt::QueuedConnection);
    connect(header(), &QHeaderView::sectionResized, this,
        [this](int column, int, int width) { columnResized(column, width); });
    header()->setSectionsMovable(false);
    header()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 6);
}

FeatureRow* FeatureTreeView::currentRow() const
{
    const QModelIndex index = currentIndex();
    return index.isValid() ? FeatureModel::row(index) : nullptr;
}

void FeatureTreeView::showRow(const FeatureRow& row)
{
    for (const FeatureRow* above = row.parent; above != nullptr; above = above->parent) {
        expand(m_features->indexOf(above));
    }
    const QModelIndex index = m_features->indexOf(&row, ValueColumn);
    setCurrentIndex(index);
    scrollTo(index);
}

void FeatureTreeView::collapseOthers(const std::string& name)
{
    std::unordered_set<std::string> kept;
    for (const FeatureRow* row = m_features->find(name); row != nullptr; row = row->parent) {
        kept.insert(row->name);
    }
    m_features->forEachCategory([&](const FeatureRow& category) {
        if (kept.count(category.name) == 0) {
            collapse(m_features->indexOf(&category));
        }
    });
}

void FeatureTreeView::scrollLater(int place)
{
    Q_EMIT scrollWanted(place);
}

void FeatureTreeView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (!m_hits.shown.empty() || m_filter.text().isEmpty() || m_filterStale) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(colors::dim(palette()));
    painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12),
        static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap,
        (m_hits.aboveLevel > 0 ? tr("Nothing found for “%1” at this level")
                               : tr("Nothing found for “%1”"))
            .arg(m_filter.text()));
}

void FeatureTreeView::doItemsLayout()
{
    if (m_filterStale) {
        applyFilter();
    }
    m_layoutPending = false;
    m_onScreen.invalidate();
    QTreeView::doItemsLayout();
}

void FeatureTreeView::reset()
{
    m_onScreen.clear();
    m_marks->clear();
    m_openedForHits.clear();
    m_hits = {};
    m_left.clear();
    m_typed.end();
    m_pressed = QModelIndex();
    m_layoutPending = true;
    QTreeView::reset();
}

void FeatureTreeView::rowsInserted(const QModelIndex& parent, int start, int end)
{
    m_filterStale = true;
    m_layoutPending = true;
    QTreeView::rowsInserted(parent, start, end);
    for (int position = start; position <= end; ++position) {
        if (FeatureModel::row(m_features->index(position, NameColumn, parent))->isCategory()) {
            setFirstColumnSpanned(position, parent, true); // it has no value
        }
    }
    scheduleDelayedItemsLayout();
}

void FeatureTreeView::dataChanged(
    const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles)
{
    if (topLeft.internalPointer() != bottomRight.internalPointer()) {
        QTreeView::dataChanged(topLeft, bottomRight, roles);
        return;
    }
    if (!topLeft.isValid()) {
        return;
    }
    m_delegate->rowChanged(*FeatureModel::row(topLeft));
    if (!isVisible() || m_layoutPending) {
        return;
    }
    updateRow(*FeatureModel::row(topLeft));
#ifndef QT_NO_ACCESSIBILITY
    if (QAccessible::isActive()) {
        QAccessibleTableModelChangeEvent event(this, QAccessibleTableModelChangeEvent::DataChanged);
        event.setFirstRow(topLeft.row());
        event.setLastRow(bottomRight.row());
        event.setFirstColumn(topLeft.column());
        event.setLastColumn(bottomRight.column());
        QAccessible::updateAccessibility(&event);
    }
#endif
}

void FeatureTreeView::updateRow(const FeatureRow& row)
{
    const QRect rect = rowRect(row);
    if (!rect.isEmpty()) {
        viewport()->update(rect);
    }
}

QRect FeatureTreeView::rowRect(const FeatureRow& row)
{
    return m_onScreen.rectOf(row);
}

// The name column keeps its share of the width, so that values are to be seen in narrow windows.
void FeatureTreeView::shareColumns()
{
    if (!header()->stretchLastSection()) {
        return; // an application has fixed all widths
    }
    const QScopedValueRollback<bool> sharing(m_isSharing, true);
    if (m_nameWidth > 0 && isVisible()) {
        m_nameShare = static_cast<double>(std::exchange(m_nameWidth, 0)) / viewport()->width();
    }
    header()->resizeSection(
        NameColumn, m_nameWidth > 0 ? m_nameWidth : qRound(m_nameShare * viewport()->width()));
}

void FeatureTreeView::chooseNameWidth(int width)
{
    if (isVisible()) {
        m_nameShare = static_cast<double>(width) / viewport()->width();
    } else {
        m_nameWidth = width;
    }
}

void FeatureTreeView::columnResized(int column, int width)
{
    const bool follows = header()->stretchLastSection() && column == header()->count() - 1;
    if (m_isSharing || follows) {
        return;
    }
    if (column == NameColumn) {
        chooseNameWidth(width);
    }
    Q_EMIT columnChosen(column, width);
}

int FeatureTreeView::valueWidth(const QRect& area)
{
    int longest = 0;
    for (const FeatureRow* row : m_onScreen.rowsIn(area)) {
        longest = std::max(longest, shownWidth(*this, *row));
    }
    const QRect column(columnViewportPosition(ValueColumn), 0, columnWidth(ValueColumn), 1);
    const int start = QStyle::visualRect(layoutDirection(), viewport()->rect(), column).left();
    return start + 2 * cellMargin + longest;
}

void FeatureTreeView::scrollContentsBy(int dx, int dy)
{
    m_onScreen.invalidate();
    QTreeView::scrollContentsBy(dx, dy);
    Q_EMIT moved();
}

void FeatureTreeView::updateGeometries()
{
    m_onScreen.invalidate();
    QTreeView::updateGeometries();
    Q_EMIT moved();
}

// The strips around the tree come and go with what the user does: the row that they are working on,
// and the message at it, stay in sight.
void FeatureTreeView::resizeEvent(QResizeEvent* event)
{
    QTreeView::resizeEvent(event);
    shareColumns();
    const QRect current = visualRect(currentIndex());
    const bool wasInSight = current.top() >= 0 && current.bottom() <= event->oldSize().height();
    if (!current.isEmpty() && wasInSight && current.bottom() > viewport()->height()) {
        scrollTo(currentIndex());
    }
}

void FeatureTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    m_left.clear();
    if (!m_isTyping) {
        m_typed.end();
    }
    if (!m_isQuiet && current.internalPointer() != previous.internalPointer()) {
        Q_EMIT currentRowChanged(current.isValid() ? FeatureModel::row(current) : nullptr);
    }
}

void FeatureTreeView::drawBranches(
    QPainter* painter, const QRect& rect, const QModelIndex& index) const
{
    const FeatureRow& row = *FeatureModel::row(index);
    const QBrush background = RowPainter::rowBackground(palette(), row, m_marks->strength(&row));
    if (background.style() != Qt::NoBrush && !selectionModel()->isSelected(index)) {
        painter->fillRect(rect, background);
    }
    QTreeView::drawBranches(painter, rect, index);
}

} // namespace featurebrowser
