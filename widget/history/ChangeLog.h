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
    QString result;
    bool isPassing = false; ///< a taken value that others follow, as of a slider
};

/// The changes of the session, the newest last; 10,000 at most.
class ChangeLog : public QAbstractTableModel {
    Q_OBJECT

public:
    enum Column { TimeColumn, FeatureColumn, FromColumn, ToColumn, ResultColumn, EndColumn };

    using QAbstractTableModel::QAbstractTableModel;

    /// Passing values of one feature that follow each other share a line.
    void add(const ChangeLine& line);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    std::deque<ChangeLine> m_lines;
};

} // namespace featurebrowser
