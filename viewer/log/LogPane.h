// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "log/CameraLog.h"

#include <QSortFilterProxyModel>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QCheckBox;
class QLineEdit;
class QTableView;
QT_END_NAMESPACE

namespace zqviewer {

/// The log of one camera, or of all: filters, follows its end, copies and saves what is to be seen.
class LogPane : public QWidget {
    Q_OBJECT

public:
    /// `log` has to outlive the pane.
    LogPane(CameraLog& log, QWidget* parent);

Q_SIGNALS:
    void told(bool isGood, const QString& text);

private:
    class Filter;

    void makeTable();
    void arrange();
    /// The selected lines, or all that are to be seen.
    QString text() const;
    void copy() const;
    void save();

    CameraLog& m_log;
    Filter* m_shown;
    QTableView* m_table;
    QLineEdit* m_filter;
    QCheckBox* m_all;
    bool m_isAtEnd = true;
};

} // namespace zqviewer
