#pragma once

#include "look/Glyphs.h"
#include "tree/FeatureTree.h"

#include <QStyleOptionViewItem>

namespace featurebrowser {

/// Draws one cell of a row: made for each picture, used once.
class RowPainter {
public:
    RowPainter(QPainter& painter, const QStyleOptionViewItem& option, const FeatureTree& tree,
        const FeatureRow& row);

    void paint(int column);

    /// The button of a command, the box of a boolean: where a click acts. `cell` is the value cell.
    static QRect buttonRect(const QStyleOptionViewItem& cell, const FeatureRow& row);

    /// What stands behind the whole row; no brush = what the view has there.
    static QBrush rowBackground(const FeatureTree& tree, const FeatureRow& row);

private:
    void paintBackground();
    void paintName();
    void paintValue();
    void paintButton();
    void paintCheckBox();
    void paintSigns();
    void paintText(const QString& text, const QColor& color);
    void paintMatches(const QString& text);
    QColor textColor() const;
    QColor dimColor() const;
    QString context() const;

    QPainter& m_painter;
    QStyleOptionViewItem m_option;
    const FeatureTree& m_tree;
    const FeatureRow& m_row;
    QRect m_rest; ///< what is left of the cell
};

} // namespace featurebrowser
