// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "log/LogPane.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSaveFile>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <array>

namespace zqviewer {

/// Lines that hold all words of the filter anywhere, of one camera or of all.
class LogPane::Filter : public QSortFilterProxyModel {
public:
    explicit Filter(CameraLog& log, QObject* parent)
        : QSortFilterProxyModel(parent)
        , m_log(log)
    {
        setSourceModel(&log.log());
    }

    void setWords(const QString& text)
    {
        m_words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        invalidateFilter();
    }
    void setAllCameras(bool areAll)
    {
        m_areAll = areAll;
        invalidateFilter();
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex&) const override
    {
        const EventLog& log = m_log.log();
        const int source = log.index(row, 0).data(EventLog::sourceRole).toInt();
        if (!m_areAll && source != m_log.source()) {
            return false;
        }
        const QString line = m_words.isEmpty() ? QString() : log.text(row);
        return std::all_of(m_words.begin(), m_words.end(),
            [&line](const QString& word) { return line.contains(word, Qt::CaseInsensitive); });
    }

private:
    CameraLog& m_log;
    QStringList m_words;
    bool m_areAll = false;
};

LogPane::LogPane(CameraLog& log, QWidget* parent)
    : QWidget(parent)
    , m_log(log)
    , m_shown(new Filter(log, this))
    , m_table(new QTableView(this))
    , m_filter(new QLineEdit(this))
    , m_all(new QCheckBox(tr("All cameras"), this))
{
    m_table->setObjectName(QStringLiteral("log"));
    m_table->setAccessibleName(tr("Log"));
    m_filter->setObjectName(QStringLiteral("logFilter"));
    m_filter->setPlaceholderText(tr("Filter"));
    m_filter->setClearButtonEnabled(true);
    makeTable();
    arrange();
    connect(m_filter, &QLineEdit::textChanged, m_shown,
        [this](const QString& text) { m_shown->setWords(text); });
    connect(m_all, &QCheckBox::toggled, m_shown, [this](bool areAll) {
        m_shown->setAllCameras(areAll);
        m_table->setColumnHidden(EventLog::CameraColumn, !areAll);
    });
}

void LogPane::makeTable()
{
    m_table->setModel(m_shown);
    m_table->setSelectionBehavior(QTableView::SelectRows);
    m_table->setWordWrap(false);
    m_table->setTextElideMode(Qt::ElideMiddle);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setColumnHidden(EventLog::CameraColumn, true);
    m_table->verticalHeader()->hide();
    m_table->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    QHeaderView* header = m_table->horizontalHeader();
    header->setStretchLastSection(true);
    header->setHighlightSections(false);
    header->setDefaultAlignment(Qt::AlignLeading | Qt::AlignVCenter);
    const int character = fontMetrics().averageCharWidth();
    const std::array<int, EventLog::WordsColumn> widths { 14, 24, 13, 28, 16, 16 };
    for (std::size_t i = 0; i < widths.size(); ++i) {
        header->resizeSection(static_cast<int>(i), widths[i] * character);
    }
    // Whoever reads further up is not torn away.
    const QScrollBar* bar = m_table->verticalScrollBar();
    connect(m_shown, &QAbstractItemModel::rowsAboutToBeInserted, this,
        [this, bar] { m_isAtEnd = bar->value() == bar->maximum(); });
    const auto follow = [this] {
        if (m_isAtEnd) {
            m_table->scrollToBottom();
        }
    };
    // Later, when the table has its new height.
    connect(m_shown, &QAbstractItemModel::rowsInserted, m_table, follow, Qt::QueuedConnection);
}

void LogPane::arrange()
{
    auto* copyLines = new QAction(tr("&Copy"), m_table);
    copyLines->setShortcut(QKeySequence::Copy);
    copyLines->setShortcutContext(Qt::WidgetShortcut);
    m_table->addAction(copyLines);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    auto* copyButton = new QPushButton(tr("Copy"), this);
    auto* saveButton = new QPushButton(tr("Save\u2026"), this);
    saveButton->setObjectName(QStringLiteral("saveLog"));
    auto* line = new QHBoxLayout;
    line->addWidget(m_filter, 1);
    line->addWidget(m_all);
    line->addWidget(copyButton);
    line->addWidget(saveButton);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(line);
    layout->addWidget(m_table, 1);
    connect(copyLines, &QAction::triggered, this, &LogPane::copy);
    connect(copyButton, &QPushButton::clicked, this, &LogPane::copy);
    connect(saveButton, &QPushButton::clicked, this, &LogPane::save);
}

QString LogPane::text() const
{
    QModelIndexList rows = m_table->selectionModel()->selectedRows();
    if (rows.isEmpty()) {
        for (int row = 0; row < m_shown->rowCount(); ++row) {
            rows.append(m_shown->index(row, 0));
        }
    }
    std::sort(rows.begin(), rows.end());
    QString text = EventLog::header() + QLatin1Char('\n');
    for (const QModelIndex& row : rows) {
        text += m_log.log().text(m_shown->mapToSource(row).row()) + QLatin1Char('\n');
    }
    return text;
}

void LogPane::copy() const
{
    QGuiApplication::clipboard()->setText(text());
}

void LogPane::save()
{
    const QString name = QFileDialog::getSaveFileName(this, tr("Save the log"),
        QStringLiteral("zqviewer.log"), tr("Text with tabs (*.log *.tsv *.txt);;All files (*)"));
    if (name.isEmpty()) {
        return;
    }
    const QByteArray bytes = text().toUtf8();
    QSaveFile file(name);
    const bool isSaved
        = file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    Q_EMIT told(isSaved,
        isSaved ? tr("Saved %1.").arg(QFileInfo(name).fileName())
                : tr("Cannot write '%1': %2.").arg(name, file.errorString()));
}

} // namespace zqviewer
