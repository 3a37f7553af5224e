#pragma once

#include "editors/RowEditor.h"

#include <QPointer>
#include <QStyledItemDelegate>

namespace featurebrowser {

class FeatureTree;
class ValueWriter;

/// Draws the rows of a FeatureTree and opens, feeds and closes their editors: one at a time.
class FeatureDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    FeatureDelegate(FeatureTree* tree, ValueWriter* writer);

    void setSliderSteps(int steps) { m_sliderSteps = steps; }
    /// The open editor; null when there is none.
    RowEditor* editor() const { return m_editor.data(); }
    /// Brings the open editor in line with its row, which has changed.
    void rowChanged(const FeatureRow& row);
    /// Ends the open edit, if any, without writing.
    void revert();
    /// Ends the open edit, if any, as a click elsewhere does.
    void finish();

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(
        QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void editorLeft(RowEditor* editor, Leave how);
    void close(RowEditor* editor);
    void editNeighbour(const std::string& name, Leave how);

    FeatureTree* m_tree;
    ValueWriter* m_writer;
    mutable QPointer<RowEditor> m_editor;
    int m_sliderSteps = 1000;
};

} // namespace featurebrowser
