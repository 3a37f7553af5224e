// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLineEdit;
class QTableView;
QT_END_NAMESPACE

namespace zqviewer {

/// A table of settings with a filter above it: lines are found by words anywhere in them, and
/// copied as text with tabs.
class SettingsTable : public QWidget {
    Q_OBJECT

public:
    SettingsTable(const QStringList& headings, QWidget* parent);

    /// Rows of the table, whose first column may be checkable.
    QStandardItemModel& model() { return m_model; }
    void addRow(const QStringList& cells, bool isCheckable = false);
    /// Numbers of the rows that are checked, hidden ones too.
    std::vector<int> checkedRows() const;
    /// Checks, or not, all rows that are to be seen.
    void checkShown(bool isChecked);
    void fitColumns();

Q_SIGNALS:
    void checksChanged();

private:
    void copy() const;

    QStandardItemModel m_model;
    QSortFilterProxyModel m_shown;
    QLineEdit* m_filter;
    QTableView* m_table;
};

} // namespace zqviewer
