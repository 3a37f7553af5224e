// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "history/ChangeLog.h"

namespace featurebrowser {

namespace {

constexpr std::size_t mostLines = 10000;

} // namespace

void ChangeLog::add(const ChangeLine& line)
{
    const int count = rowCount();
    if (line.isPassing && count > 0 && m_lines.back().isPassing
        && m_lines.back().feature == line.feature) {
        ChangeLine& last = m_lines.back();
        const QString from = last.from;
        last = line;
        last.from = from;
        Q_EMIT dataChanged(index(count - 1, TimeColumn), index(count - 1, ResultColumn));
        return;
    }
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

int ChangeLog::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_lines.size());
}

int ChangeLog::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : EndColumn;
}

namespace {

QVariant dataForPrograms(const ChangeLine& line, int role)
{
    switch (role) {
    case ChangeLog::TimeRole:
        return line.time;
    case ChangeLog::FeatureRole:
        return line.feature;
    case ChangeLog::FromRole:
        return line.from;
    case ChangeLog::ToRole:
        return line.to;
    case ChangeLog::HeldRole:
        return line.held;
    case ChangeLog::ResultRole:
        return line.result;
    case ChangeLog::GoodRole:
        return line.isGood;
    default:
        return {};
    }
}

} // namespace

QHash<int, QByteArray> ChangeLog::roleNames() const
{
    return { { TimeRole, "time" }, { FeatureRole, "feature" }, { FromRole, "from" },
        { ToRole, "to" }, { HeldRole, "held" }, { ResultRole, "result" }, { GoodRole, "isGood" } };
}

QVariant ChangeLog::data(const QModelIndex& index, int role) const
{
    if (!index.isValid()) {
        return {};
    }
    const ChangeLine& line = m_lines[static_cast<std::size_t>(index.row())];
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole) {
        return dataForPrograms(line, role);
    }
    const bool isToolTip = role == Qt::ToolTipRole; // takes markup for markup
    const auto shown = [isToolTip](const QString& text) -> QVariant {
        return isToolTip ? text.toHtmlEscaped() : text;
    };
    switch (index.column()) {
    case TimeColumn:
        return line.time.toString(
            isToolTip ? QStringLiteral("yyyy-MM-dd HH:mm:ss") : QStringLiteral("HH:mm:ss"));
    case FeatureColumn:
        return shown(line.feature);
    case FromColumn:
        return shown(line.from);
    case ToColumn:
        return shown(line.to);
    default:
        return shown(line.result);
    }
}

QVariant ChangeLog::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) {
        return {};
    }
    switch (section) {
    case TimeColumn:
        return tr("Time");
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

} // namespace featurebrowser
