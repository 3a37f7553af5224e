// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "history/ChangeList.h"

#include "history/ChangeLog.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QVBoxLayout>

namespace featurebrowser {

ChangeList::ChangeList(ChangeLog* log, QWidget* parent)
    : QDialog(parent)
    , m_table(new QTableView(this))
{
    setObjectName(QStringLiteral("changeList"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Changes of this session"));
    m_shown.setSourceModel(log);
    m_shown.setFilterKeyColumn(-1);
    m_shown.setFilterCaseSensitivity(Qt::CaseInsensitive);
    makeTable();
    arrange();
    m_table->scrollToBottom();
}

void ChangeList::makeTable()
{
    m_table->setModel(&m_shown);
    m_table->setAccessibleName(windowTitle());
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setAlternatingRowColors(true);
    m_table->setShowGrid(false);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(false);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->horizontalHeader()->setHighlightSections(false);
    m_table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    const int letter = fontMetrics().averageCharWidth();
    for (const auto& [column, letters] :
        { std::pair(ChangeLog::TimeColumn, 11), { ChangeLog::FeatureColumn, 40 },
            { ChangeLog::FromColumn, 16 }, { ChangeLog::ToColumn, 16 } }) {
        m_table->setColumnWidth(column, letter * letters);
    }
    const auto* scroll = m_table->verticalScrollBar();
    connect(&m_shown, &QAbstractItemModel::rowsAboutToBeInserted, this,
        [this, scroll] { m_isAtEnd = scroll->value() == scroll->maximum(); });
    connect(&m_shown, &QAbstractItemModel::rowsInserted, this, [this] {
        if (m_isAtEnd) {
            m_table->scrollToBottom();
        }
    });
}

void ChangeList::arrange()
{
    auto* filter = new QLineEdit(this);
    filter->setObjectName(QStringLiteral("changeFilter"));
    filter->setPlaceholderText(tr("Find a change"));
    filter->setAccessibleName(tr("Find a change"));
    filter->setClearButtonEnabled(true);
    connect(
        filter, &QLineEdit::textChanged, &m_shown, &QSortFilterProxyModel::setFilterFixedString);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false); // Return is the filter's
    m_copy = buttons->addButton(tr("&Copy all"), QDialogButtonBox::ActionRole);
    m_copy->setObjectName(QStringLiteral("copyChanges"));
    m_copy->setAutoDefault(false);
    connect(m_copy, &QPushButton::clicked, this, &ChangeList::copy);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::close);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        m_copy->setText(
            m_table->selectionModel()->hasSelection() ? tr("&Copy selection") : tr("&Copy all"));
    });
    m_table->installEventFilter(this);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(filter);
    layout->addWidget(m_table, 1);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * 120, fontMetrics().height() * 24);
    m_table->setFocus();
}

// A table by itself would copy one cell.
bool ChangeList::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        copy();
        return true;
    }
    return QDialog::eventFilter(object, event);
}

void ChangeList::copy() const
{
    const QItemSelectionModel& selection = *m_table->selectionModel();
    QString text;
    const auto addLine = [&text](auto&& cell) {
        for (int column = 0; column < ChangeLog::EndColumn; ++column) {
            text += (column > 0 ? QStringLiteral("\t") : QString())
                + cell(column).toString().replace(QLatin1Char('\t'), QLatin1Char(' '));
        }
        text += QLatin1Char('\n');
    };
    addLine([this](int column) { return m_shown.headerData(column, Qt::Horizontal); });
    for (int row = 0; row < m_shown.rowCount(); ++row) {
        if (!selection.hasSelection() || selection.isRowSelected(row, {})) {
            addLine([this, row](int column) { return m_shown.index(row, column).data(); });
        }
    }
    QGuiApplication::clipboard()->setText(text);
}

} // namespace featurebrowser
