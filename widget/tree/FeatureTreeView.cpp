#include "tree/FeatureTreeView.h"

#include "events/ValueWriter.h"
#include "look/ThemeColors.h"
#include "tree/FeatureDelegate.h"
#include "tree/RowPainter.h"

#include <QAccessible>
#include <QHeaderView>
#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>

#include <utility>

namespace featurebrowser {

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
    header()->setSectionsMovable(false);
    header()->setMinimumSectionSize(fontMetrics().averageCharWidth() * 6);
}

void FeatureTreeView::setFilter(const RowFilter& filter)
{
    m_filter = filter;
    m_delegate->setFilterText(filter.text());
    applyFilter();
    viewport()->update(); // the same rows may show longer hits
    if (filter.text().isEmpty()) {
        closeHits();
    } else {
        openHits();
    }
    if (const FeatureRow* row = currentRow(); row != nullptr && !row->hidden) {
        scrollTo(currentIndex());
    }
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

// Categories with hits are opened for as long as the filter lasts.
void FeatureTreeView::openHits()
{
    m_features->forEachCategory([this](const FeatureRow& category) {
        const QModelIndex index = m_features->indexOf(&category);
        if (category.hidden || isExpanded(index)) {
            return;
        }
        m_openedForHits.insert(category.name);
        expand(index);
    });
}

// What holds the current row stays open: the user has found it.
void FeatureTreeView::closeHits()
{
    for (const FeatureRow* row = currentRow(); row != nullptr; row = row->parent) {
        m_openedForHits.erase(row->name);
    }
    for (const std::string& name : std::exchange(m_openedForHits, {})) {
        collapse(m_features->indexOf(m_features->find(name)));
    }
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

void FeatureTreeView::focusFirstHit()
{
    setFocus(Qt::ShortcutFocusReason);
    const FeatureRow* current = currentRow();
    if (current != nullptr && !current->hidden && !current->isCategory()) {
        return;
    }
    QModelIndex index = indexAt(QPoint(viewport()->width() / 2, 0));
    while (index.isValid() && FeatureModel::row(index)->isCategory()) {
        index = indexBelow(index);
    }
    if (index.isValid()) {
        setCurrentIndex(index.siblingAtColumn(ValueColumn));
    }
}

void FeatureTreeView::paintEvent(QPaintEvent* event)
{
    QTreeView::paintEvent(event);
    if (m_hits.shown > 0 || m_filter.text().isEmpty() || m_filterStale) {
        return;
    }
    QPainter painter(viewport());
    painter.setPen(colors::dim(palette()));
    painter.drawText(viewport()->rect().adjusted(12, 12, -12, -12),
        static_cast<int>(Qt::AlignHCenter | Qt::AlignTop) | Qt::TextWordWrap,
        tr("Nothing found for “%1” at this level").arg(m_filter.text()));
}

void FeatureTreeView::applyFilter()
{
    m_filterStale = false;
    m_hits = showHits(*this, *m_features, m_filter);
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
    m_pressed = QModelIndex();
    m_layoutPending = true;
    QTreeView::reset();
}

void FeatureTreeView::rowsInserted(const QModelIndex& parent, int start, int end)
{
    m_filterStale = true;
    m_layoutPending = true;
    QTreeView::rowsInserted(parent, start, end);
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
    const QRect current = visualRect(currentIndex());
    const bool wasInSight = current.top() >= 0 && current.bottom() <= event->oldSize().height();
    if (!current.isEmpty() && wasInSight && current.bottom() > viewport()->height()) {
        scrollTo(currentIndex());
    }
}

void FeatureTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
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
