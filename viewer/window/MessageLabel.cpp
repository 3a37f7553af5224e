// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/MessageLabel.h"

#include <QAccessible>

namespace zqviewer {

MessageLabel::MessageLabel(QWidget* parent)
    : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void MessageLabel::showText(const QString& text)
{
    m_text = text;
    setAccessibleName(text);
    cut();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void MessageLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    cut();
}

void MessageLabel::cut()
{
    const QString shown = fontMetrics().elidedText(m_text.simplified(), Qt::ElideRight,
        contentsRect().width() - fontMetrics().averageCharWidth());
    setText(shown);
    // A tool tip takes text that looks like markup for markup.
    setToolTip(
        shown == m_text ? QString() : QStringLiteral("<p>%1</p>").arg(m_text.toHtmlEscaped()));
}

} // namespace zqviewer
