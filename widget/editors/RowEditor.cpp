// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "editors/RowEditor.h"

#include "look/UnitField.h"
#include "text/ValueText.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>

namespace featurebrowser {

RowEditor::RowEditor(const FeatureRow& row, QWidget* parent)
    : QWidget(parent)
    , m_rowName(row.name)
    , m_kind(row.kind)
{
    setAutoFillBackground(true);
}

UnitField* RowEditor::makeTextField()
{
    m_textField = new UnitField(this);
    connect(m_textField, &QLineEdit::textEdited, this, [this] { touch(); });
    return m_textField;
}

void RowEditor::startWith(const QString& text)
{
    if (m_textField != nullptr) {
        m_textField->selectAll();
        m_textField->insert(text);
    }
}

QHBoxLayout* RowEditor::addField(QWidget* field)
{
    field->setAccessibleName(toText(m_rowName));
    field->installEventFilter(this);
    setFocusProxy(field);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(field, 1);
    return layout;
}

void RowEditor::update(const FeatureRow& row)
{
    showLimits(row);
    if (!m_touched) {
        showValue(row);
    }
}

void RowEditor::showValue(const FeatureRow& row)
{
    m_textField->setText(editText(row));
    m_textField->selectAll();
}

void RowEditor::leave(Leave how)
{
    if (!m_finished) {
        Q_EMIT left(this, how);
    }
}

bool RowEditor::keyPressed(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        leave(Leave::Accept);
        return true;
    case Qt::Key_Tab:
        leave(Leave::Next);
        return true;
    case Qt::Key_Backtab:
        leave(Leave::Previous);
        return true;
    case Qt::Key_Escape:
        leave(Leave::Revert);
        return true;
    default:
        return false;
    }
}

// Another window in front, or a menu of this field, does not end an edit.
void RowEditor::focusLost(Qt::FocusReason reason)
{
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason
        || reason == Qt::MenuBarFocusReason) {
        return;
    }
    // The parents of a list that drops down lead here too, across its window.
    const QWidget* now = QApplication::focusWidget();
    while (now != nullptr && now != this) {
        now = now->parentWidget();
    }
    if (now == nullptr) {
        leave(Leave::FocusLost);
    }
}

bool RowEditor::eventFilter(QObject* object, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: // these keys are the editor's, not a dialog's or a menu's
        switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Escape:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            event->accept();
            return true;
        default:
            return false;
        }
    case QEvent::KeyPress:
        return keyPressed(static_cast<QKeyEvent*>(event)->key());
    case QEvent::FocusOut:
        focusLost(static_cast<QFocusEvent*>(event)->reason());
        return false;
    default:
        return QWidget::eventFilter(object, event);
    }
}

} // namespace featurebrowser
