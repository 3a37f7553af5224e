// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QCoreApplication>

namespace zqviewer {

/// Translates the words of what is no QObject.
class Words {
    Q_DECLARE_TR_FUNCTIONS(zqviewer::Words)
};

/// Puts the words of the program, and Qt's own, into the language of the user. Needs a
/// QApplication.
void loadWords();

} // namespace zqviewer
