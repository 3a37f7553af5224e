// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsFile.h"

#include <QFile>

namespace zqviewer {

using zqcameralib::ZQSettings;

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

} // namespace zqviewer
