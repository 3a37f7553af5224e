// What keys and mouse do in the tree.
#include "tree/FeatureTreeView.h"

#include "events/ValueWriter.h"
#include "tree/FeatureDelegate.h"
#include "tree/RowButton.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QToolTip>

namespace featurebrowser {

void FeatureTreeView::activate(const FeatureRow& row)
{
    const QModelIndex index = m_features->indexOf(&row);
    if (row.isCategory()) {
        setExpanded(index, !isExpanded(index));
    } else if (!row.isEditable()) {
        explain(row);
    } else if (row.kind == RowKind::Command) {
        m_writer->press(row.name);
    } else if (row.kind == RowKind::Boolean) {
        m_writer->toggle(row.name);
    } else {
        edit(index.siblingAtColumn(ValueColumn));
    }
}

// Says why nothing happens.
void FeatureTreeView::explain(const FeatureRow& row)
{
    const QPoint below = visualRect(m_features->indexOf(&row, ValueColumn)).bottomLeft();
    QToolTip::showText(viewport()->mapToGlobal(below),
        m_features->indexOf(&row).data(Qt::ToolTipRole).toString(), viewport());
}

void FeatureTreeView::editNeighbour(const FeatureRow& row, bool forward)
{
    QModelIndex index = m_features->indexOf(&row);
    do {
        index = forward ? indexBelow(index) : indexAbove(index);
    } while (index.isValid() && !FeatureModel::row(index)->isEditable());
    if (!index.isValid()) {
        return;
    }
    const std::string name = FeatureModel::row(index)->name;
    setCurrentIndex(index.siblingAtColumn(ValueColumn));
    // Selecting told the application, which may have changed anything.
    const FeatureRow* next = m_features->find(name);
    if (next != nullptr && !next->isButton()) {
        activate(*next);
    }
}

void FeatureTreeView::keyPressEvent(QKeyEvent* event)
{
    const FeatureRow* row = currentRow();
    const bool activates = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter
        || event->key() == Qt::Key_F2 || event->key() == Qt::Key_Space;
    if (row != nullptr && activates && event->modifiers() == Qt::NoModifier) {
        activate(*row);
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        Q_EMIT dismissed();
    }
    QTreeView::keyPressEvent(event);
}

// With the focus the first row becomes current: nobody has selected it.
void FeatureTreeView::focusInEvent(QFocusEvent* event)
{
    const QScopedValueRollback<bool> quiet(m_isQuiet, true);
    QTreeView::focusInEvent(event);
}

bool FeatureTreeView::isOnButton(const QModelIndex& index, const QPoint& position) const
{
    QStyleOptionViewItem cell = viewOptions();
    cell.widget = this;
    cell.rect = visualRect(index);
    const FeatureRow& row = *FeatureModel::row(index);
    QRect area = buttonRect(cell, row);
    if (row.kind == RowKind::Boolean) { // its text acts too, as beside a check box of a form
        area.setWidth(
            area.width() + 8 + fontMetrics().horizontalAdvance(index.data(ValueRole).toString()));
    }
    return QStyle::visualRect(layoutDirection(), cell.rect, area)
        .adjusted(-3, -3, 3, 3)
        .contains(position);
}

void FeatureTreeView::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    QTreeView::mousePressEvent(event);
}

// Acts on release, as buttons do, so that a press can still be taken back.
void FeatureTreeView::mouseReleaseEvent(QMouseEvent* event)
{
    const QModelIndex pressed = m_pressed;
    m_pressed = QModelIndex();
    QTreeView::mouseReleaseEvent(event);
    const bool isClick = event->button() == Qt::LeftButton && pressed.isValid()
        && pressed == indexAt(event->pos()) && pressed.column() == ValueColumn;
    if (!isClick) {
        return;
    }
    const FeatureRow& row = *FeatureModel::row(pressed);
    if (!row.isCategory() && (!row.isButton() || isOnButton(pressed, event->pos()))) {
        activate(row);
    }
}

// The second press of a double click is a press like any other for buttons and boxes.
void FeatureTreeView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->pos());
    if (index.isValid() && !FeatureModel::row(index)->isCategory()) {
        mousePressEvent(event);
    } else {
        QTreeView::mouseDoubleClickEvent(event);
    }
}

} // namespace featurebrowser
