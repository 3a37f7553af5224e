// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QStyleOptionViewItem>

namespace featurebrowser {

struct FeatureRow;

constexpr int cellMargin = 4; ///< at both sides of a cell, in pixels

/// The button of a command, the box of a boolean: where a click acts. `cell` is the value cell, its
/// place not mirrored for right-to-left languages.
QRect buttonRect(const QStyleOptionViewItem& cell, const FeatureRow& row);

/// Draws the button of a command, no wider than `room`. `cell.widget` is the view.
void drawButton(
    QPainter& painter, const QStyleOptionViewItem& cell, const FeatureRow& row, const QRect& room);

/// Draws the box of a boolean and returns its place as buttonRect. `cell.widget` is the view.
QRect drawCheckBox(QPainter& painter, const QStyleOptionViewItem& cell, const FeatureRow& row,
    const QColor& frame);

} // namespace featurebrowser
