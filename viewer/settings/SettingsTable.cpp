// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsTable.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace zqviewer {

namespace {

constexpr int narrowestCharacters = 16;
constexpr int widestCharacters = 40;

} // namespace

SettingsTable::SettingsTable(const QStringList& headings, QWidget* parent)
    : QWidget(parent)
    , m_filter(new QLineEdit(this))
    , m_table(new QTableView(this))
{
    m_model.setHorizontalHeaderLabels(headings);
    m_shown.setSourceModel(&m_model);
    m_shown.setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_shown.setFilterKeyColumn(-1);
    m_filter->setObjectName(QStringLiteral("settingsFilter"));
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setClearButtonEnabled(true);
    m_table->setObjectName(QStringLiteral("settingsTable"));
    m_table->setAccessibleName(tr("Settings"));
    m_table->setModel(&m_shown);
    m_table->setSelectionBehavior(QTableView::SelectRows);
    m_table->setEditTriggers(QTableView::NoEditTriggers);
    m_table->setWordWrap(false);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    auto* copyLines = new QAction(tr("&Copy"), m_table);
    copyLines->setShortcut(QKeySequence::Copy);
    copyLines->setShortcutContext(Qt::WidgetShortcut);
    m_table->addAction(copyLines);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_filter);
    layout->addWidget(m_table, 1);
    connect(copyLines, &QAction::triggered, this, &SettingsTable::copy);
    connect(
        m_filter, &QLineEdit::textChanged, &m_shown, &QSortFilterProxyModel::setFilterFixedString);
    connect(&m_model, &QStandardItemModel::itemChanged, this, &SettingsTable::checksChanged);
}

void SettingsTable::addRow(const QStringList& cells, bool isCheckable)
{
    QList<QStandardItem*> row;
    for (const QString& cell : cells) {
        auto* item = new QStandardItem(cell);
        item->setToolTip(QStringLiteral("<p>%1</p>").arg(cell.toHtmlEscaped()));
        row.append(item);
    }
    if (isCheckable) {
        row.first()->setCheckable(true);
        row.first()->setCheckState(Qt::Checked);
    }
    m_model.appendRow(row);
}

void SettingsTable::fitColumns()
{
    m_table->resizeColumnsToContents();
    const int character = fontMetrics().averageCharWidth();
    for (int column = 0; column + 1 < m_model.columnCount(); ++column) {
        m_table->setColumnWidth(column,
            std::clamp(m_table->columnWidth(column), narrowestCharacters * character,
                widestCharacters * character));
    }
}

std::vector<int> SettingsTable::checkedRows() const
{
    std::vector<int> rows;
    for (int row = 0; row < m_model.rowCount(); ++row) {
        if (m_model.item(row)->checkState() == Qt::Checked) {
            rows.push_back(row);
        }
    }
    return rows;
}

void SettingsTable::checkShown(bool isChecked)
{
    for (int row = 0; row < m_shown.rowCount(); ++row) {
        QStandardItem* item = m_model.itemFromIndex(m_shown.mapToSource(m_shown.index(row, 0)));
        if (item->isCheckable()) {
            item->setCheckState(isChecked ? Qt::Checked : Qt::Unchecked);
        }
    }
}

/// The selected lines, or all that are to be seen.
void SettingsTable::copy() const
{
    QString text;
    for (int row = 0; row < m_shown.rowCount(); ++row) {
        const bool isWanted = !m_table->selectionModel()->hasSelection()
            || m_table->selectionModel()->isRowSelected(row, {});
        QStringList cells;
        for (int column = 0; column < m_shown.columnCount(); ++column) {
            cells.append(m_shown.index(row, column).data().toString().simplified());
        }
        text += isWanted ? cells.join(QLatin1Char('\t')) + QLatin1Char('\n') : QString();
    }
    QGuiApplication::clipboard()->setText(text);
}

} // namespace zqviewer
