// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "log/CameraLog.h"

#include <QAbstractItemModel>

#include <utility>

namespace zqviewer {

namespace {

int lastSource = 0;

} // namespace

CameraLog::CameraLog(
    OpenedCamera& camera, QAbstractItemModel& changes, std::shared_ptr<EventLog> log)
    : m_camera(camera)
    , m_changes(changes)
    , m_log(std::move(log))
    , m_source(++lastSource)
{
    connect(&m_changes, &QAbstractItemModel::rowsInserted, this,
        [this](const QModelIndex&, int first) { m_log->add(lineOf(first)); });
    connect(&m_changes, &QAbstractItemModel::dataChanged, this,
        [this](const QModelIndex& first) { m_log->follow(lineOf(first.row())); });
}

LogLine CameraLog::newLine()
{
    LogLine line;
    line.time = QDateTime::currentDateTime();
    line.source = m_source;
    line.camera = m_camera.title();
    return line;
}

LogLine CameraLog::lineOf(int row)
{
    const QHash<int, QByteArray> roles = m_changes.roleNames();
    const QModelIndex index = m_changes.index(row, 0);
    const auto text = [&](const char* role) { return index.data(roles.key(role)).toString(); };
    LogLine line = newLine();
    line.time = index.data(roles.key("time")).toDateTime();
    line.feature = text("feature");
    line.from = text("from");
    line.to = text("held");
    line.words = text("result");
    const bool isCommand = text("to").isEmpty() && line.from.isEmpty();
    line.kind = !index.data(roles.key("isGood")).toBool() ? LogLine::Kind::Refused
        : isCommand                                       ? LogLine::Kind::Command
                                                          : LogLine::Kind::Written;
    return line;
}

void CameraLog::add(LogLine::Kind kind, const QString& words)
{
    LogLine line = newLine();
    line.kind = kind;
    line.words = words;
    m_log->add(line);
}

} // namespace zqviewer
