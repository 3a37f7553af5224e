// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace zqviewer {

/// Whether the file looks like a GenICam description, plain or zipped, and not like settings.
bool isDescriptionFile(const QString& name);

} // namespace zqviewer
