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
    const QString qt = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    zqtranslations::load(QStringLiteral("qtbase"), qt);
    zqtranslations::load(QStringLiteral("zqviewer"), QStringLiteral(":/zqviewer"));
}

} // namespace zqviewer
