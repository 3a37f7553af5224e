// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/CommandQuestion.h"

#include "text/ValueText.h"
#include "tree/FeatureTreeView.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>

namespace featurebrowser {

CommandQuestion::CommandQuestion(FeatureTreeView* tree)
    : RowCallout(tree)
    , m_text(new QLabel(this))
    , m_run(new QPushButton(tr("&Run it"), this))
    , m_cancel(new QPushButton(tr("Cancel"), this))
{
    setObjectName(QStringLiteral("commandQuestion"));
    m_text->setObjectName(QStringLiteral("questionText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_run->setObjectName(QStringLiteral("runButton"));
    m_cancel->setObjectName(QStringLiteral("keepButton"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(signWidth(), 6, 6, 6);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_run);
    layout->addWidget(m_cancel);
    m_run->installEventFilter(this);
    m_cancel->installEventFilter(this);
    connect(m_run, &QPushButton::clicked, this, &CommandQuestion::confirm);
    connect(m_cancel, &QPushButton::clicked, this, &CommandQuestion::cancel);
}

// "Cancel" has the focus: who presses a key twice has not answered.
void CommandQuestion::ask(const FeatureRow& command)
{
    m_text->setText(tr("%1 can throw away what is not saved. Run it?").arg(toText(command.name)));
    setAccessibleName(m_text->text());
    setRow(&command);
    if (!isVisible()) {
        return;
    }
    m_cancel->setFocus(Qt::OtherFocusReason);
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void CommandQuestion::cancel()
{
    setRow(nullptr);
}

void CommandQuestion::confirm()
{
    const std::string command = rowName();
    cancel();
    Q_EMIT confirmed(command);
}

bool CommandQuestion::isWanted(const FeatureRow& row) const
{
    return row.kind == RowKind::Command && row.isEditable();
}

void CommandQuestion::showContent(const FeatureRow&) { }

void CommandQuestion::hideEvent(QHideEvent* event)
{
    RowCallout::hideEvent(event);
    if (m_run->hasFocus() || m_cancel->hasFocus()) {
        tree().setFocus(Qt::OtherFocusReason);
    }
}

bool CommandQuestion::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() != QEvent::KeyPress) {
        return RowCallout::eventFilter(object, event);
    }
    const auto* key = static_cast<QKeyEvent*>(event);
    switch (key->key()) {
    case Qt::Key_Escape:
        cancel();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!key->isAutoRepeat()) {
            static_cast<QPushButton*>(object)->click();
        }
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        (object == m_run ? m_cancel : m_run)->setFocus(Qt::TabFocusReason);
        return true;
    case Qt::Key_Space:
        return key->isAutoRepeat();
    default:
        return false;
    }
}

} // namespace featurebrowser
