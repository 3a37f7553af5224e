// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "program/FileKind.h"

#include <QFile>

namespace zqviewer {

bool isDescriptionFile(const QString& name)
{
    constexpr qint64 enough = 4096;
    QFile file(name);
    const QByteArray start = file.open(QFile::ReadOnly) ? file.read(enough) : QByteArray();
    return start.startsWith("PK") || start.contains("<?xml")
        || start.contains("<RegisterDescription");
}

} // namespace zqviewer
