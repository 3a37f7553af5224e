// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "look/Glyphs.h"
#include "row/FeatureRow.h"

#include <QStringList>
#include <QStyleOptionViewItem>

namespace featurebrowser {

/// What a picture of a row shows and the row itself does not know.
struct RowSurroundings {
    QStringList filterWords; ///< whose matches are marked
    double changeStrength = 0; ///< how fresh the row's last change is, from 0 (none) to 1
};

/// Draws one cell of a row: made for each picture, used once.
class RowPainter {
public:
    /// `option.widget` is the view. Everything has to outlive the painter.
    RowPainter(QPainter& painter, const QStyleOptionViewItem& option, const FeatureRow& row,
        const RowSurroundings& around);

    void paint(int column);

    /// What stands behind the whole row; no brush = what the view has there.
    static QBrush rowBackground(
        const QPalette& palette, const FeatureRow& row, double changeStrength);

private:
    void paintBackground();
    void paintName();
    void paintTie();
    void paintSign(Glyph glyph, int left, const QColor& color);
    int signSide() const;
    void paintValue();
    void paintUnit();
    void paintSigns();
    void paintText(const QString& text, const QColor& color);
    void paintMatches(const QString& text);
    QColor textColor() const;
    QColor dimColor() const;
    bool isGone() const { return m_row.state == FEATURE_NOT_AVAILABLE; }

    QPainter& m_painter;
    QStyleOptionViewItem m_option;
    const QWidget& m_view;
    const FeatureRow& m_row;
    const RowSurroundings& m_around;
    QRect m_rest; ///< what is left of the cell
};

} // namespace featurebrowser
