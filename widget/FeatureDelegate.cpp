#include "FeatureDelegate.h"

#include "FeatureTree.h"
#include "RowPainter.h"

namespace featurebrowser {

FeatureDelegate::FeatureDelegate(FeatureTree* tree)
    : QStyledItemDelegate(tree)
    , m_tree(tree)
{
}

void FeatureDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    RowPainter(*painter, cell, *m_tree, *FeatureModel::row(index)).paint(index.column());
}

QSize FeatureDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // Room for every editor, so that opening one does not move anything.
    const int height = option.fontMetrics.height() * 3 / 2 + 2;
    const int width = QStyledItemDelegate::sizeHint(option, index).width();
    return { width + option.fontMetrics.height(), height };
}

} // namespace featurebrowser
