// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "log/EventLog.h"

#include <QStringList>

#include <algorithm>

namespace zqviewer {

namespace {

constexpr std::size_t mostLines = 20000;

} // namespace

void EventLog::add(const LogLine& line)
{
    if (m_lines.size() == mostLines) {
        beginRemoveRows({}, 0, 0);
        m_lines.pop_front();
        endRemoveRows();
    }
    const int end = rowCount();
    beginInsertRows({}, end, end);
    m_lines.push_back(line);
    endInsertRows();
}

void EventLog::follow(const LogLine& line)
{
    const auto newest = std::find_if(m_lines.rbegin(), m_lines.rend(),
        [&line](const LogLine& known) { return known.source == line.source; });
    if (newest == m_lines.rend() || newest->feature != line.feature
        || newest->kind != LogLine::Kind::Written) {
        return add(line);
    }
    *newest = line;
    const int row = static_cast<int>(std::distance(newest, m_lines.rend())) - 1;
    Q_EMIT dataChanged(index(row, TimeColumn), index(row, WordsColumn));
}

QString EventLog::words(LogLine::Kind kind)
{
    switch (kind) {
    case LogLine::Kind::Written:
        return tr("Written");
    case LogLine::Kind::Refused:
        return tr("Refused");
    case LogLine::Kind::Command:
        return tr("Command");
    case LogLine::Kind::Lost:
        return tr("Lost");
    case LogLine::Kind::Found:
        return tr("Connected");
    case LogLine::Kind::Note:
        break;
    }
    return tr("Note");
}

int EventLog::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int EventLog::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : EndColumn;
}

QString EventLog::cell(const LogLine& line, int column)
{
    switch (column) {
    case TimeColumn:
        return line.time.toString(QStringLiteral("HH:mm:ss.zzz"));
    case CameraColumn:
        return line.camera;
    case KindColumn:
        return words(line.kind);
    case FeatureColumn:
        return line.feature;
    case FromColumn:
        return line.from;
    case ToColumn:
        return line.to;
    default:
        return line.words;
    }
}

QVariant EventLog::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const LogLine& line = m_lines[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole) {
        return cell(line, index.column());
    }
    if (role == sourceRole) {
        return line.source;
    }
    if (role == Qt::ToolTipRole) { // takes what looks like markup for markup
        const QString text = cell(line, index.column());
        return text.isEmpty() ? QVariant() : QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
    }
    return {};
}

QVariant EventLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case CameraColumn:
        return tr("Camera");
    case KindColumn:
        return tr("Event");
    case FeatureColumn:
        return tr("Feature");
    case FromColumn:
        return tr("From");
    case ToColumn:
        return tr("To");
    default:
        return tr("Result");
    }
}

QString EventLog::header()
{
    return QStringList { tr("Time"), tr("Camera"), tr("Event"), tr("Feature"), tr("From"), tr("To"),
        tr("Result") }
        .join(QLatin1Char('\t'));
}

QString EventLog::text(int row) const
{
    const LogLine& line = m_lines[static_cast<std::size_t>(row)];
    QStringList cells { line.time.toString(Qt::ISODateWithMs) };
    for (int column = CameraColumn; column < EndColumn; ++column) {
        cells.append(cell(line, column).simplified()); // a line stays one
    }
    return cells.join(QLatin1Char('\t'));
}

} // namespace zqviewer
