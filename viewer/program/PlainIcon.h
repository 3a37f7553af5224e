// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QIcon>

namespace zqviewer {

/// Signs in the colour of the texts beside them: those that Qt brings along are black, also on dark
/// ground. Not mirrored from right to left, as on any player.
enum class PlainSign { Start, Stop, More };

QIcon plainIcon(PlainSign sign);

} // namespace zqviewer
