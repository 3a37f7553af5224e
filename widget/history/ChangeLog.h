// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractTableModel>
#include <QDateTime>

#include <deque>
#include <string>

namespace featurebrowser {

/// One thing that the user did, in words.
struct ChangeLine {
    QDateTime time;
    QString feature; ///< with where its selectors stood
    QString from; ///< with the unit, as the next
    QString to; ///< as entered
    QString held; ///< as read back; empty where no answer has come, and of commands
    QString result;
    bool isGood = true; ///< taken, be it adjusted
    bool isPassing = false; ///< a taken value that others follow, as of a slider
};

/// The changes of the session, the newest last; 10,000 at most.
///
/// For programs, each index names by role what its line holds (roleNames()): "time" (QDateTime),
/// "feature", "from", "to", "held", "result" (QString) and "isGood" (bool). A line of passing
/// values changes until another one follows.
class ChangeLog : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Role {
        TimeRole = Qt::UserRole + 1,
        FeatureRole,
        FromRole,
        ToRole,
        HeldRole,
        ResultRole,
        GoodRole
    };
    enum Column { TimeColumn, FeatureColumn, FromColumn, ToColumn, ResultColumn, EndColumn };

    using QAbstractTableModel::QAbstractTableModel;

    /// Passing values of one feature that follow each other share a line.
    void add(const ChangeLine& line);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::deque<ChangeLine> m_lines;
};

} // namespace featurebrowser
