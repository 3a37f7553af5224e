// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QPalette>

/// Colours beside those that the palette names, mixed from it so that they fit light and dark
/// themes.
namespace featurebrowser::colors {

/// Second-rank text: contexts, units, read-only values. Still readable.
QColor dim(const QPalette& palette);
/// Categories within others are lighter.
QColor categoryBackground(const QPalette& palette, bool isTopLevel);
/// For frames and signs of rejected edits and failed reads.
QColor alarm(const QPalette& palette);
QColor alarmBackground(const QPalette& palette);
/// Behind rows that have just changed. `strength` from 0 (gone) to 1.
QColor changedBackground(const QPalette& palette, double strength);
/// Behind the matches of the filter.
QColor matchBackground(const QPalette& palette);

} // namespace featurebrowser::colors
