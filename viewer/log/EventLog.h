// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractTableModel>
#include <QDateTime>

#include <deque>

namespace zqviewer {

/// Something that happened to a camera, in words.
struct LogLine {
    enum class Kind { Written, Refused, Command, Lost, Found, Note };

    QDateTime time;
    int source = 0; ///< which window it is of
    QString camera;
    Kind kind = Kind::Note;
    QString feature; ///< with where its selectors stood; empty where it is about the camera
    QString from; ///< as shown, with the unit, as the next
    QString to; ///< as read back; empty where no answer has come
    QString words; ///< how it went
};

/// What happened to all cameras since the program began, the newest last; 20,000 lines at most.
class EventLog : public QAbstractTableModel {
    Q_OBJECT

public:
    static constexpr int sourceRole = Qt::UserRole;
    enum Column {
        TimeColumn,
        CameraColumn,
        KindColumn,
        FeatureColumn,
        FromColumn,
        ToColumn,
        WordsColumn,
        EndColumn
    };

    using QAbstractTableModel::QAbstractTableModel;

    void add(const LogLine& line);
    /// Replaces the newest line of that source and feature, if it is one that was written;
    /// otherwise as add().
    void follow(const LogLine& line);
    static QString words(LogLine::Kind kind);
    /// A line of text with tabs between the columns, with date.
    QString text(int row) const;
    static QString header();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    static QString cell(const LogLine& line, int column);

    std::deque<LogLine> m_lines;
};

} // namespace zqviewer
