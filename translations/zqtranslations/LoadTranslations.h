// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QGuiApplication>
#include <QLocale>
#include <QString>
#include <QTranslator>

namespace zqtranslations {

/// Puts the words of a library or program into the language of the user (QLocale), once per
/// process: those of `name`_de.qm and the like in the resource directory `directory`, English for
/// languages that are not there. The translators belong to the application and live as long as it
/// does; without one nothing happens.
inline void load(const QString& name, const QString& directory)
{
    QCoreApplication* application = QCoreApplication::instance();
    if (application == nullptr || application->findChild<QTranslator*>(name) != nullptr) {
        return;
    }
    // A new translator makes Qt guess the direction of the script again, over the application's own
    // choice.
    const Qt::LayoutDirection direction = QGuiApplication::layoutDirection();
    // English is one of them for its plural forms; the one installed last is asked first.
    auto* english = new QTranslator(application);
    english->setObjectName(name);
    if (english->load(name + QStringLiteral("_en"), directory)) {
        QCoreApplication::installTranslator(english);
    }
    auto* own = new QTranslator(application);
    if (own->load(QLocale(), name, QStringLiteral("_"), directory)) {
        QCoreApplication::installTranslator(own);
    }
    QGuiApplication::setLayoutDirection(direction);
}

} // namespace zqtranslations
