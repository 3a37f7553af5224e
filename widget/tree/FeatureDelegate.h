// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "editors/RowEditor.h"

#include <QPointer>
#include <QStyledItemDelegate>

namespace featurebrowser {

class ChangeMarks;
class FeatureModel;
class ValueWriter;

/// Draws the rows of the tree and opens, feeds and closes their editors: one at a time.
class FeatureDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    /// Nothing is owned; all has to outlive the delegate.
    FeatureDelegate(
        FeatureModel& model, ValueWriter& writer, const ChangeMarks& marks, QObject* parent);

    /// The words whose matches are marked in the rows.
    void setFilterWords(const QStringList& words) { m_filterWords = words; }
    void setSliderSteps(int steps) { m_sliderSteps = steps; }
    /// The open editor; null when there is none.
    RowEditor* editor() const { return m_editor.data(); }
    /// Brings the open editor in line with its row, which has changed.
    void rowChanged(const FeatureRow& row);
    /// Puts a text into the editor that has just been opened, as if it were typed.
    void startWith(const QString& text) const;
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

Q_SIGNALS:
    /// The user wants to edit the next row, or the previous one, of that which was edited.
    void neighbourWanted(const featurebrowser::FeatureRow& row, bool forward);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void editorLeft(RowEditor* editor, Leave how);
    void close(RowEditor* editor);
    void askForNeighbour(const std::string& name, Leave how);

    FeatureModel& m_model;
    ValueWriter& m_writer;
    const ChangeMarks& m_marks;
    QStringList m_filterWords;
    mutable QPointer<RowEditor> m_editor;
    int m_sliderSteps = 1000;
};

} // namespace featurebrowser
