// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRectF>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace featurebrowser {

/// Small signs drawn in one colour, so that they need neither an icon theme nor a symbol font and
/// stay sharp at every scale.
enum class Glyph { Padlock, Crossed, Warning, Chevron, ExpandAll, CollapseAll, Next, Close };

/// Draws the sign centred in `area` in the height of its shorter side.
void drawGlyph(QPainter& painter, Glyph glyph, const QRectF& area, const QColor& color);

} // namespace featurebrowser
