#pragma once

#include <QStyledItemDelegate>

namespace featurebrowser {

class FeatureTree;

/// Draws the rows of a FeatureTree.
class FeatureDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit FeatureDelegate(FeatureTree* tree);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    FeatureTree* m_tree;
};

} // namespace featurebrowser
