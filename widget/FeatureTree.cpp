#include "FeatureTree.h"

#include "FeatureDelegate.h"
#include "RowPainter.h"
#include "Tones.h"
#include "ValueWriter.h"

#include <QAccessible>
#include <QHeaderView>
#include <QPainter>

#include <utility>

namespace featurebrowser {

FeatureTree::FeatureTree(FeatureModel* model, ValueWriter* writer, QWidget* parent)
    : QTreeView(parent)
    , m_features(model)
    , m_writer(writer)
    , m_delegate(new FeatureDelegate(this, writer))
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
    header()->setSectionsMovable(false);
    header()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 6);
}

void FeatureTree::setFilter(const RowFilter& filter)
{
    m_filter = filter;
    applyFilter();
    if (const FeatureRow* row = currentRow(); row != nullptr && !row->hidden)
        scrollTo(currentIndex());
}

FeatureRow* FeatureTree::currentRow() const
{
    const QModelIndex index = currentIndex();
    return index.isValid() ? FeatureModel::row(index) : nullptr;
}

void FeatureTree::showRow(const FeatureRow& row)
{
    for (const FeatureRow* above = row.parent; above != nullptr; above = above->parent)
        expand(m_features->indexOf(above));
    const QModelIndex index = m_features->indexOf(&row, FeatureModel::ValueColumn);
    setCurrentIndex(index);
    scrollTo(index);
}

namespace {

// Decides for every row below `row` and returns whether one of them is to be seen.
struct Hider {
    FeatureTree& tree;
    const RowFilter& filter;
    int hitsAboveLevel = 0;

    bool showsFeature(const FeatureRow& row)
    {
        if (filter.passesLevel(row))
            return filter.isHit(row);
        if (!filter.text().isEmpty() && filter.isHit(row))
            ++hitsAboveLevel;
        return false;
    }

    bool shows(FeatureRow& row)
    {
        if (!row.isCategory())
            return showsFeature(row);
        const bool some = apply(row);
        const bool isEmpty = row.children.empty() && filter.text().isEmpty();
        return some || (isEmpty && filter.passesLevel(row));
    }

    bool apply(FeatureRow& parent)
    {
        bool some = false;
        for (const auto& child : parent.children) {
            const bool shown = shows(*child);
            some = some || shown;
            if (std::exchange(child->hidden, !shown) == shown)
                tree.setRowHidden(child->position, tree.features().indexOf(&parent), !shown);
        }
        return some;
    }
};

} // namespace

void FeatureTree::applyFilter()
{
    m_filterStale = false;
    Hider hider { *this, m_filter };
    hider.apply(m_features->root());
    m_hitsAboveLevel = hider.hitsAboveLevel;
}

void FeatureTree::doItemsLayout()
{
    if (m_filterStale)
        applyFilter();
    m_layoutPending = false;
    m_onScreenStale = true;
    QTreeView::doItemsLayout();
}

void FeatureTree::reset()
{
    m_onScreen.clear();
    m_onScreenStale = true;
    m_layoutPending = true;
    QTreeView::reset();
}

void FeatureTree::rowsInserted(const QModelIndex& parent, int start, int end)
{
    m_filterStale = true;
    m_layoutPending = true;
    QTreeView::rowsInserted(parent, start, end);
    scheduleDelayedItemsLayout();
}

void FeatureTree::dataChanged(
    const QModelIndex& topLeft, const QModelIndex& bottomRight, const QVector<int>& roles)
{
    if (topLeft.internalPointer() != bottomRight.internalPointer()) {
        QTreeView::dataChanged(topLeft, bottomRight, roles);
        return;
    }
    if (!topLeft.isValid())
        return;
    m_delegate->rowChanged(*FeatureModel::row(topLeft));
    if (!isVisible() || m_layoutPending)
        return;
    updateRow(*FeatureModel::row(topLeft));
#ifndef QT_NO_ACCESSIBILITY
    if (QAccessible::isActive()) {
        QAccessibleEvent event(this, QAccessible::NameChanged);
        event.setChild(topLeft.row());
        QAccessible::updateAccessibility(&event);
    }
#endif
}

void FeatureTree::updateRow(const FeatureRow& row)
{
    const QRect rect = rowRect(row);
    if (!rect.isEmpty())
        viewport()->update(rect);
}

QRect FeatureTree::rowRect(const FeatureRow& row)
{
    if (m_onScreenStale)
        findRowsOnScreen();
    const auto found = m_onScreen.constFind(&row);
    if (found == m_onScreen.constEnd())
        return {};
    return { 0, *found, viewport()->width(), m_rowHeight };
}

void FeatureTree::findRowsOnScreen()
{
    m_onScreen.clear();
    m_onScreenStale = false;
    QModelIndex index = indexAt(QPoint(viewport()->width() / 2, 0));
    if (!index.isValid())
        return;
    index = index.siblingAtColumn(FeatureModel::NameColumn);
    const QRect first = visualRect(index);
    m_rowHeight = first.height();
    for (int top = first.top(); index.isValid() && top < viewport()->height(); top += m_rowHeight) {
        m_onScreen.insert(FeatureModel::row(index), top);
        index = indexBelow(index);
    }
}

void FeatureTree::scrollContentsBy(int dx, int dy)
{
    m_onScreenStale = true;
    QTreeView::scrollContentsBy(dx, dy);
    Q_EMIT moved();
}

void FeatureTree::updateGeometries()
{
    m_onScreenStale = true;
    QTreeView::updateGeometries();
    Q_EMIT moved();
}

void FeatureTree::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    if (current.internalPointer() != previous.internalPointer())
        Q_EMIT currentRowChanged(current.isValid() ? FeatureModel::row(current) : nullptr);
}

void FeatureTree::drawBranches(QPainter* painter, const QRect& rect, const QModelIndex& index) const
{
    const QBrush background = RowPainter::rowBackground(*this, *FeatureModel::row(index));
    if (background.style() != Qt::NoBrush && !selectionModel()->isSelected(index))
        painter->fillRect(rect, background);
    QTreeView::drawBranches(painter, rect, index);
}

} // namespace featurebrowser
