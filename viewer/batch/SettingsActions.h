// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"

#include <QString>

namespace zqviewer {

/// Each returns false when it was in vain, with why in `error`, in one line.
bool saveSettings(OpenedCamera& camera, const QString& file, QString& error);
/// Prints what became of the lines; in vain when some do not hold afterwards.
bool loadSettings(OpenedCamera& camera, const QString& file, bool isDryRun, QString& error);
/// Prints the differences, with the file's value first; `areEqual`: whether there are none.
bool compareSettings(OpenedCamera& camera, const QString& file, bool& areEqual, QString& error);
/// The same for two files. Returns the program's exit status.
int compareFiles(const QString& first, const QString& second);

} // namespace zqviewer
