// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/BrowserWindow.h"

#include "events/ValueWriter.h"
#include "history/ChangeList.h"
#include "history/WriteHistory.h"
#include "panes/ChangeStrip.h"
#include "panes/DescriptionPane.h"
#include "panes/FilterBar.h"
#include "panes/PinStrip.h"
#include "panes/SelectorMatrix.h"
#include "tree/FeatureDelegate.h"
#include "tree/FeatureTreeView.h"
#include "window/CommandQuestion.h"
#include "window/MessageCallout.h"
#include "window/RowMenu.h"

#include <QCloseEvent>
#include <QDialog>
#include <QHeaderView>
#include <QScopedValueRollback>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace featurebrowser {

BrowserWindow::~BrowserWindow()
{
    m_isOwnChange = true;
    m_events.setReceiver(nullptr);
}

QByteArrayList BrowserWindow::pinnedFeatures() const
{
    return m_pins->pinned();
}

void BrowserWindow::setPinnedFeatures(const QByteArrayList& names)
{
    m_pins->pinOnly(names);
}

QAbstractItemModel* BrowserWindow::changeLog() const
{
    return &m_history->log();
}

QWidget* BrowserWindow::statusLine() const
{
    return m_changes;
}

QStringList BrowserWindow::confirmedCommands() const
{
    return m_tree->confirmedCommands;
}

void BrowserWindow::setConfirmedCommands(const QStringList& patterns)
{
    m_tree->confirmedCommands = patterns;
}

void BrowserWindow::setLevel(TYPE_LEVEL level)
{
    m_filterBar->setLevel(level);
    applyFilter();
}

void BrowserWindow::levelChosen(TYPE_LEVEL level)
{
    if (level == m_tree->filter().level) {
        return;
    }
    setLevel(level);
    m_events.raise({}, [level](auto& receiver) { receiver.FeatureLevelChanged(level); });
}

void BrowserWindow::applyFilter()
{
    RowFilter filter;
    filter.level = m_filterBar->level();
    filter.setText(m_filterBar->text());
    m_tree->setFilter(filter);
    m_filterBar->setHitsAboveLevel(m_tree->hits().aboveLevel);
    showHits();
}

void BrowserWindow::filterTextChanged()
{
    applyFilter();
    m_callout->follow();
}

void BrowserWindow::showHits()
{
    m_filterBar->setHits(static_cast<int>(m_tree->hits().shown.size()), m_tree->currentHit());
}

void BrowserWindow::goToHit(bool forward)
{
    m_tree->goToHit(forward);
    showHits();
}

void BrowserWindow::setDescription(FeatureRow& row, std::string text)
{
    m_model->setDescription(row, std::move(text));
    const FeatureRow* current = m_tree->currentRow();
    if (current == nullptr || current == &row) {
        m_description->showRow(&row);
    }
}

void BrowserWindow::showDescription()
{
    m_description->showRow(m_tree->currentRow());
}

void BrowserWindow::rowChanged(const QModelIndex& index)
{
    m_callout->follow();
    m_question->follow();
    if (FeatureModel::row(index) == m_tree->currentRow()) {
        showDescription();
    }
}

void BrowserWindow::setSliderSteps(int steps)
{
    m_tree->delegate().setSliderSteps(steps);
}

void BrowserWindow::setValue(FeatureRow& row, RowValue value, bool readOnly, bool hasValue)
{
    m_writer->updated(row, m_model->setValue(row, std::move(value), readOnly, hasValue));
    if (!m_writer->isSwitching()) { // a line of values shows one entry, not all of them
        m_pins->valueSeen(row);
    }
}

void BrowserWindow::written(const WriteResult& result)
{
    if (result.entry == WriteEntry::Switching) {
        return;
    }
    if (m_changes) {
        m_changes->showResult(result);
    }
    const auto mark = [this](const std::string& name) {
        if (const FeatureRow* row = m_model->find(name)) {
            m_tree->marks().mark(row);
        }
    };
    if (!result.isCommand) {
        mark(result.name);
    }
    for (const std::string& name : result.followers) {
        mark(name);
    }
}

void BrowserWindow::rowSelected(FeatureRow* row)
{
    m_description->showRow(row);
    m_question->cancel();
    showHits();
    if (row != nullptr && row->hasMessage()) {
        m_callout->showRow(row); // else one that stands at another row stays to be read
    }
    if (row == nullptr || m_isOwnChange) {
        return;
    }
    const std::string name = row->name;
    m_events.raise(name, [&name](auto& receiver) { receiver.ItemSelectionChanged(name); });
}

void BrowserWindow::columnResized(int column, int width)
{
    if (m_isOwnChange) {
        return;
    }
    m_events.raise(
        {}, [column, width](auto& receiver) { receiver.ItemColumnResized(column, width); });
}

void BrowserWindow::rowsAdded(const QModelIndex& parent, int first, int)
{
    const QScopedValueRollback<bool> own(m_isOwnChange, true);
    m_memory.restore(*m_tree, *FeatureModel::row(m_model->index(first, 0, parent)));
}

void BrowserWindow::clear()
{
    const QScopedValueRollback<bool> own(m_isOwnChange, true);
    m_memory.store(*m_tree);
    m_model->clear();
    m_description->showRow(nullptr);
}

void BrowserWindow::showRow(const FeatureRow& row)
{
    m_tree->showRow(row);
}

void BrowserWindow::showMenu(const QPoint& position)
{
    const QModelIndex index = m_tree->indexAt(position);
    if (!index.isValid()) {
        return;
    }
    const FeatureRow& row = *FeatureModel::row(index);
    const std::string name = row.name;
    const RowMenu::Offer offer { m_pins->isPinned(name), SelectorMatrix::canShow(*m_model, row),
        m_history->undoText(), m_history->redoText() };
    auto* menu = new RowMenu(row, offer, this);
    connect(menu, &RowMenu::pinWanted, m_pins,
        [this, name](bool pinned) { m_pins->setPinned(name, pinned); });
    connect(menu, &RowMenu::matrixWanted, this, [this, name] { showMatrix(name); });
    connect(menu, &RowMenu::undoWanted, this, [this] { takeStep(true); });
    connect(menu, &RowMenu::redoWanted, this, [this] { takeStep(false); });
    connect(menu, &RowMenu::changesWanted, this, &BrowserWindow::showChanges);
    connect(menu, &RowMenu::collapseOthersWanted, m_tree.get(),
        [this, name] { m_tree->collapseOthers(name); });
    connect(menu, &RowMenu::expandAllWanted, m_tree.get(), &QTreeView::expandAll);
    connect(menu, &RowMenu::collapseAllWanted, m_tree.get(), &QTreeView::collapseAll);
    menu->popup(m_tree->viewport()->mapToGlobal(position));
}

void BrowserWindow::showMatrix(const std::string& selector)
{
    const auto open = findChildren<SelectorMatrix*>();
    const auto known = std::find_if(open.begin(), open.end(),
        [&](const SelectorMatrix* matrix) { return matrix->selector() == selector; });
    auto* matrix
        = known != open.end() ? *known : new SelectorMatrix(m_model, m_writer, selector, this);
    matrix->show();
    matrix->raise();
    matrix->activateWindow();
    if (known == open.end()) {
        matrix->fill();
    }
}

void BrowserWindow::takeStep(bool isUndo)
{
    if (m_tree->delegate().editor() == nullptr) {
        isUndo ? m_history->undo() : m_history->redo();
    }
}

void BrowserWindow::showChanges()
{
    auto* list = findChild<ChangeList*>();
    if (list == nullptr) {
        list = new ChangeList(&m_history->log(), this);
    }
    list->show();
    list->raise();
    list->activateWindow();
}

void BrowserWindow::present(Qt::WindowType type)
{
    const bool embedded = parentWidget() != nullptr && !isWindow();
    if (!embedded && windowType() != type) {
        Qt::WindowFlags flags(type);
        flags |= Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint | Qt::WindowTitleHint
            | Qt::WindowSystemMenuHint;
        setWindowFlags(flags);
    }
    if (!embedded && focusWidget() == nullptr) {
        m_tree->setFocus();
    }
    show();
    if (!embedded) {
        raise();
        activateWindow();
    }
}

void BrowserWindow::applySizes(int width, int height, const std::vector<int>& columns)
{
    const QScopedValueRollback<bool> own(m_isOwnChange, true);
    QSize wanted(width > 0 ? width : size().width(), height > 0 ? height : size().height());
    if (isWindow() && !isVisible()) { // never beyond the screen, with its frame
        const int frame = 2 * fontMetrics().height();
        wanted = wanted.boundedTo(screen()->availableSize() - QSize(frame, frame));
    }
    resize(wanted);
    QHeaderView* header = m_tree->header();
    const int count = std::min(header->count(), static_cast<int>(columns.size()));
    for (int column = 0; column < count; ++column) {
        const int columnWidth = columns[static_cast<std::size_t>(column)];
        if (columnWidth <= 0) {
            continue;
        }
        if (column == header->count() - 1) {
            header->setStretchLastSection(false);
        }
        header->resizeSection(column, columnWidth);
    }
}

void BrowserWindow::closeEvent(QCloseEvent* event)
{
    m_tree->delegate().revert();
    const auto windows = findChildren<QDialog*>(QString(), Qt::FindDirectChildrenOnly);
    for (QDialog* window : windows) { // a selector that is being read is set back
        window->close();
    }
    QWidget::closeEvent(event);
    const TYPE_LEVEL level = m_tree->filter().level;
    m_events.raise({}, [&](auto& receiver) {
        receiver.FeatureCloseDialog(size().width(), size().height(), level);
    });
}

} // namespace featurebrowser
