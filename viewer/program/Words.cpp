// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "program/Words.h"

#include <QLibraryInfo>

#include <zqtranslations/LoadTranslations.h>

namespace zqviewer {

void loadWords()
{
    // Buttons of dialogs, menus of text fields.
#if QT_VERSION_MAJOR < 6
    const QString qt = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    const QString qt = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
    zqtranslations::load(QStringLiteral("qtbase"), qt);
    zqtranslations::load(QStringLiteral("zqviewer"), QStringLiteral(":/zqviewer"));
}

} // namespace zqviewer
