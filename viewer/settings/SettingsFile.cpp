// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

namespace zqviewer {

using zqcameralib::ZQSettings;

namespace {

constexpr int mostRecent = 8;
const QString organisation = QStringLiteral("ZQFeatureBrowser");
const QString application = QStringLiteral("zqviewer");
const QString recentKey = QStringLiteral("recentSettings");

} // namespace

bool writeSettings(const QString& file, const ZQSettings& settings, QString& error)
{
    const bool isPersistence = file.endsWith(QLatin1String(".pfs"), Qt::CaseInsensitive);
    const std::string text = isPersistence ? settings.toPersistenceText() : settings.toText();
    std::string problem;
    const bool isWritten
        = ZQSettings::WriteFile(QFile::encodeName(file).toStdString(), text, problem);
    error = QString::fromStdString(problem);
    return isWritten;
}

bool readSettings(const QString& file, ZQSettings& settings, QString& error)
{
    std::string problem;
    const bool isRead
        = ZQSettings::ReadFile(QFile::encodeName(file).toStdString(), settings, problem);
    error = QString::fromStdString(problem);
    return isRead;
}

QStringList recentSettings()
{
    return QSettings(organisation, application).value(recentKey).toStringList();
}

void noteRecentSettings(const QString& file)
{
    QStringList files = recentSettings();
    const QString path = QFileInfo(file).absoluteFilePath();
    files.removeAll(path);
    files.prepend(path);
    QSettings(organisation, application).setValue(recentKey, QStringList(files.mid(0, mostRecent)));
}

} // namespace zqviewer
