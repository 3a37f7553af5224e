// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "panes/MatrixDelegate.h"

#include "editors/EditorFactory.h"
#include "row/FeatureRow.h"

#include <algorithm>

namespace featurebrowser {

MatrixDelegate::MatrixDelegate(RowOf rowOf, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_rowOf(std::move(rowOf))
{
}

QSize MatrixDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int width = QStyledItemDelegate::sizeHint(option, index).width();
    return { width + option.fontMetrics.height(), option.fontMetrics.height() * 3 / 2 + 2 };
}

QWidget* MatrixDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const FeatureRow* row = m_rowOf(index);
    if (row == nullptr) {
        return nullptr;
    }
    constexpr int sliderSteps = 1000;
    RowEditor* editor = makeEditor(*row, sliderSteps, parent);
    if (editor != nullptr) {
        auto* self = const_cast<MatrixDelegate*>(this);
        connect(editor, &RowEditor::left, self, &MatrixDelegate::editorLeft);
    }
    m_editor = editor;
    m_index = index;
    return editor;
}

void MatrixDelegate::setEditorData(QWidget*, const QModelIndex&) const { }

// Only the editor itself says when it is left.
void MatrixDelegate::setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const { }

bool MatrixDelegate::eventFilter(QObject*, QEvent*)
{
    return false;
}

// Columns are as narrow as their values; what is typed needs more room.
void MatrixDelegate::updateEditorGeometry(
    QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const
{
    const QRect all = editor->parentWidget()->rect();
    QRect place = option.rect;
    place.setWidth(std::max(place.width(), option.fontMetrics.averageCharWidth() * 20));
    if (option.direction == Qt::RightToLeft) {
        place.moveRight(option.rect.right());
    }
    place.moveLeft(std::max(std::min(place.left(), all.width() - place.width()), 0));
    editor->setGeometry(place);
}

void MatrixDelegate::close(RowEditor* editor)
{
    editor->finish();
    Q_EMIT closeEditor(editor, NoHint);
}

void MatrixDelegate::revert()
{
    if (m_editor != nullptr) {
        close(m_editor.data());
    }
}

// A moving slider writes nothing here: every write switches the selector.
void MatrixDelegate::editorLeft(RowEditor* editor, Leave how)
{
    if (how == Leave::KeepOpen) {
        return;
    }
    const QPersistentModelIndex index = m_index;
    QString problem;
    const auto value
        = how != Leave::Revert && editor->isTouched() ? editor->value(problem) : std::nullopt;
    if (problem.isEmpty() || how == Leave::FocusLost) {
        close(editor);
    }
    if (!problem.isEmpty()) {
        Q_EMIT complained(problem);
    } else if (value && index.isValid()) {
        Q_EMIT entered(index.row(), index.column(), *value);
    }
}

} // namespace featurebrowser
