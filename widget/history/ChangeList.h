// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QSortFilterProxyModel>

QT_BEGIN_NAMESPACE
class QPushButton;
class QTableView;
QT_END_NAMESPACE

namespace featurebrowser {

class ChangeLog;

/// A window with the changes of the session: follows while it is open, filters, and copies lines as
/// text with tabs between the columns. Deletes itself when it is closed.
class ChangeList : public QDialog {
    Q_OBJECT

public:
    /// `log` is not owned and has to outlive the window.
    ChangeList(ChangeLog* log, QWidget* parent);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void makeTable();
    void arrange();
    /// The selected lines, or all that are to be seen.
    void copy() const;

    QSortFilterProxyModel m_shown;
    QTableView* m_table;
    QPushButton* m_copy = nullptr;
    bool m_isAtEnd = true;
};

} // namespace featurebrowser
