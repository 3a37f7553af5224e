// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQSettings.h"

#include <QString>
#include <QStringList>

namespace zqviewer {

/// Both return false, with why in `error`, in one line. A name that ends in .pfs is written in the
/// persistence layout of other tools; what a file holds when it is read shows by itself.
bool writeSettings(const QString& file, const zqcameralib::ZQSettings& settings, QString& error);
bool readSettings(const QString& file, zqcameralib::ZQSettings& settings, QString& error);

/// Files that were saved or loaded lately, the last one first, also in earlier sessions.
QStringList recentSettings();
void noteRecentSettings(const QString& file);

} // namespace zqviewer
