// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "editors/RowEditor.h"

#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

#include <functional>

namespace featurebrowser {

/// Opens the editors of the tree in the cells of a selector's table.
class MatrixDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// The row as it was read for a cell; null where there is nothing to edit.
    using RowOf = std::function<const FeatureRow*(const QModelIndex& index)>;

    MatrixDelegate(RowOf rowOf, QObject* parent);

    /// Ends the open edit, if any, without writing.
    void revert();

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(
        QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
        const QModelIndex& index) const override;

Q_SIGNALS:
    void entered(int row, int column, const featurebrowser::EditValue& value);
    /// What was typed is no value.
    void complained(const QString& problem);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void editorLeft(RowEditor* editor, Leave how);
    void close(RowEditor* editor);

    RowOf m_rowOf;
    mutable QPointer<RowEditor> m_editor;
    mutable QPersistentModelIndex m_index;
};

} // namespace featurebrowser
