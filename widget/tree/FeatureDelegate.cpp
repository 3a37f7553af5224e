// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "tree/FeatureDelegate.h"

#include "editors/EditorFactory.h"
#include "events/ValueWriter.h"
#include "model/FeatureModel.h"
#include "tree/ChangeMarks.h"
#include "tree/RowPainter.h"

namespace featurebrowser {

FeatureDelegate::FeatureDelegate(
    FeatureModel& model, ValueWriter& writer, const ChangeMarks& marks, QObject* parent)
    : QStyledItemDelegate(parent)
    , m_model(model)
    , m_writer(writer)
    , m_marks(marks)
{
}

void FeatureDelegate::paint(
    QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const FeatureRow& row = *FeatureModel::row(index);
    const RowSurroundings around { m_filterWords, m_marks.strength(&row) };
    RowPainter(*painter, cell, row, around).paint(index.column());
}

QSize FeatureDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // Room for every editor, so that opening one does not move anything.
    const int height = option.fontMetrics.height() * 3 / 2 + 2;
    const int width = QStyledItemDelegate::sizeHint(option, index).width();
    return { width + option.fontMetrics.height(), height };
}

QWidget* FeatureDelegate::createEditor(
    QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    RowEditor* editor = makeEditor(*FeatureModel::row(index), m_sliderSteps, parent);
    if (editor != nullptr) {
        auto* self = const_cast<FeatureDelegate*>(this);
        connect(editor, &RowEditor::left, self, &FeatureDelegate::editorLeft);
    }
    m_editor = editor;
    return editor;
}

void FeatureDelegate::setEditorData(QWidget*, const QModelIndex&) const { }

// Only the editor itself says when it is left; what views do by themselves writes nothing.
void FeatureDelegate::setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const { }

bool FeatureDelegate::eventFilter(QObject*, QEvent*)
{
    return false;
}

void FeatureDelegate::updateEditorGeometry(
    QWidget* editor, const QStyleOptionViewItem& option, const QModelIndex&) const
{
    editor->setGeometry(option.rect.adjusted(0, 0, 0, -1));
}

void FeatureDelegate::rowChanged(const FeatureRow& row)
{
    RowEditor* open = editor();
    if (open == nullptr || open->rowName() != row.name) {
        return;
    }
    if (row.isEditable() && open->isFor(row)) {
        open->update(row);
    } else {
        revert();
    }
}

void FeatureDelegate::startWith(const QString& text) const
{
    if (RowEditor* open = editor()) {
        open->startWith(text);
    }
}

void FeatureDelegate::revert()
{
    if (RowEditor* open = editor()) {
        close(open);
    }
}

void FeatureDelegate::finish()
{
    if (RowEditor* open = editor()) {
        editorLeft(open, Leave::FocusLost);
    }
}

void FeatureDelegate::close(RowEditor* editor)
{
    editor->finish();
    if (this->editor() == editor) {
        m_editor = nullptr;
    }
    Q_EMIT closeEditor(editor, NoHint);
}

// The editor is closed before the event is raised: a handler may then do what it likes, even empty
// the tree.
void FeatureDelegate::editorLeft(RowEditor* editor, Leave how)
{
    const std::string name = editor->rowName();
    FeatureRow* row = m_model.find(name);
    if (row != nullptr && editor->hasComplained()) {
        m_model.setMessage(*row, {});
    }
    if (row == nullptr || !editor->isFor(*row) || how == Leave::Revert) {
        close(editor);
        return;
    }
    QString problem;
    const auto value = editor->isTouched() ? editor->value(problem) : std::nullopt;
    if (!problem.isEmpty()) {
        editor->setComplained();
        if (how == Leave::FocusLost) {
            close(editor);
        }
        m_writer.showMessage(name, problem);
        return;
    }
    const bool isMarked = row->hasMessage();
    const bool isNew = value && (isMarked || !holds(*row, *value));
    if (how == Leave::KeepOpen) {
        editor->setTouched(false);
    } else {
        close(editor);
    }
    if (isNew) {
        m_writer.write(name, *value,
            how == Leave::KeepOpen ? ValueWriter::Entry::Passing : ValueWriter::Entry::Meant);
    }
    askForNeighbour(name, how);
}

void FeatureDelegate::askForNeighbour(const std::string& name, Leave how)
{
    const FeatureRow* row = m_model.find(name);
    if (row != nullptr && (how == Leave::Next || how == Leave::Previous)) {
        Q_EMIT neighbourWanted(*row, how == Leave::Next);
    }
}

} // namespace featurebrowser
