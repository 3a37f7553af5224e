// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQSettings.h"

#include <QString>

namespace zqviewer {

/// Both return false, with why in `error`, in one line. A name that ends in .pfs is written in the
/// persistence layout of other tools; what a file holds when it is read shows by itself.
bool writeSettings(const QString& file, const zqcameralib::ZQSettings& settings, QString& error);
bool readSettings(const QString& file, zqcameralib::ZQSettings& settings, QString& error);

} // namespace zqviewer
