// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"
#include "log/EventLog.h"

#include <QObject>

#include <memory>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
QT_END_NAMESPACE

namespace zqviewer {

/// One camera's part of the log: takes over what its browser tells of writes and commands, and what
/// its window has to say.
class CameraLog : public QObject {
    Q_OBJECT

public:
    /// `changes`: the browser's property "changeLog". Nothing is owned; all has to outlive this,
    /// but for the log, which is shared.
    CameraLog(OpenedCamera& camera, QAbstractItemModel& changes, std::shared_ptr<EventLog> log);

    void add(LogLine::Kind kind, const QString& words);
    EventLog& log() { return *m_log; }
    /// As LogLine::source.
    int source() const { return m_source; }

private:
    LogLine newLine();
    LogLine lineOf(int row);

    OpenedCamera& m_camera;
    QAbstractItemModel& m_changes;
    std::shared_ptr<EventLog> m_log;
    int m_source;
};

} // namespace zqviewer
