// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What keys and mouse do in the tree.
#include "tree/FeatureTreeView.h"

#include "events/ValueWriter.h"
#include "tree/FeatureDelegate.h"
#include "tree/RowButton.h"

#include <QClipboard>
#include <QDir>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QToolTip>

#include <algorithm>

namespace featurebrowser {

namespace {

/// What numbers can begin with beside digits.
bool isSign(QChar c, const FeatureRow& row)
{
    const bool isNumber = row.kind == RowKind::Integer || row.kind == RowKind::Float;
    return isNumber && QStringLiteral("-.,\u2212").contains(c);
}

} // namespace

void FeatureTreeView::activate(const FeatureRow& row)
{
    const QModelIndex index = m_features->indexOf(&row);
    if (row.isCategory()) {
        setExpanded(index, !isExpanded(index));
    } else if (!row.isEditable()) {
        explain(row);
    } else if (row.kind == RowKind::Command) {
        if (QDir::match(confirmedCommands, toText(row.name))) {
            Q_EMIT confirmationWanted(row);
        } else {
            m_writer->press(row.name);
        }
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
    if (activateByKey(*event) || editByKey(*event)) {
        return;
    }
    if (event->key() == Qt::Key_Escape) {
        m_typed.end();
        Q_EMIT dismissed();
    }
    QTreeView::keyPressEvent(event);
}

void FeatureTreeView::keyReleaseEvent(QKeyEvent* event)
{
    m_releasedKey = event->key();
    m_releasedAt = event->timestamp();
    QTreeView::keyReleaseEvent(event);
}

// An X server repeats a key by a release and a press of the same time. On a slow machine they do
// not arrive together, and Qt takes them for the user's.
bool FeatureTreeView::isRepeated(const QKeyEvent& event) const
{
    const bool isOfOneTime = event.timestamp() != 0 && event.timestamp() == m_releasedAt;
    return event.isAutoRepeat() || (isOfOneTime && event.key() == m_releasedKey);
}

// Returns whether the key is done with. A key that is held acts once.
bool FeatureTreeView::activateByKey(const QKeyEvent& event)
{
    const bool isBlank = event.key() == Qt::Key_Space;
    const bool activates = isBlank || event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter
        || event.key() == Qt::Key_F2;
    const bool isKeypad = event.modifiers() == Qt::KeypadModifier;
    if (!activates || (event.modifiers() != Qt::NoModifier && !isKeypad)) {
        return false;
    }
    if (isRepeated(event)) {
        return true;
    }
    if (isBlank && m_typed.isCollecting()) {
        keyboardSearch(event.text());
        return true;
    }
    m_typed.end();
    const FeatureRow* row = currentRow();
    if (row == nullptr) {
        return isBlank; // else Enter is a dialog's
    }
    if (viewport()->rect().contains(visualRect(currentIndex()).center())) {
        activate(*row);
    } else {
        scrollTo(currentIndex()); // first the user sees what it is about
    }
    return true;
}

// A number or a text from the clipboard is meant for the row's value.
bool FeatureTreeView::editByKey(const QKeyEvent& event)
{
    const FeatureRow* row = currentRow();
    if (row == nullptr || !row->isEditable() || row->isButton() || m_typed.isCollecting()) {
        return false;
    }
    const bool isPasted = event.matches(QKeySequence::Paste);
    const QString text = isPasted ? QGuiApplication::clipboard()->text() : event.text();
    const bool isPlain = (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0;
    const bool isNumber
        = isPlain && text.size() == 1 && (text.at(0).isDigit() || isSign(text.at(0), *row));
    if (text.isEmpty() || row->kind == RowKind::Enumeration || !(isPasted || isNumber)) {
        return false;
    }
    activate(*row);
    m_delegate->startWith(text);
    return true;
}

// Names only, whichever column is current.
void FeatureTreeView::keyboardSearch(const QString& typed)
{
    if (!m_typed.isCollecting() && typed.trimmed().isEmpty()) {
        return;
    }
    const QScopedValueRollback<bool> typing(m_isTyping, true);
    m_typed.add(typed);
    QModelIndex start
        = currentIndex().isValid() ? currentIndex().siblingAtColumn(NameColumn) : indexAt({ 0, 0 });
    const QModelIndex first = m_features->index(0, NameColumn);
    const auto following = [&](const QModelIndex& index) {
        const QModelIndex below = indexBelow(index);
        return below.isValid() ? below : isRowHidden(0, {}) ? indexBelow(first) : first;
    };
    if (m_typed.goesOn()) {
        start = following(start);
    }
    QModelIndex index = start;
    do {
        if (!index.isValid()) {
            return;
        }
        if (m_typed.fits(toText(FeatureModel::row(index)->name))) {
            setCurrentIndex(index.siblingAtColumn(std::max(currentIndex().column(), 0)));
            m_typed.wait(); // the camera may have been read meanwhile
            return;
        }
        index = following(index);
    } while (index != start);
}

// With the focus the first row becomes current: nobody has selected it.
void FeatureTreeView::focusInEvent(QFocusEvent* event)
{
    const QScopedValueRollback<bool> quiet(m_isQuiet, true);
    QTreeView::focusInEvent(event);
}

bool FeatureTreeView::isOnButton(const QModelIndex& index, const QPoint& position) const
{
    QStyleOptionViewItem cell;
    cell.initFrom(this);
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
