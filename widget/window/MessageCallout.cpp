// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/MessageCallout.h"

#include "tree/FeatureTreeView.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace featurebrowser {

MessageCallout::MessageCallout(FeatureTreeView* tree)
    : RowCallout(tree)
    , m_text(new QLabel(this))
{
    setObjectName(QStringLiteral("messageCallout"));
    m_text->setObjectName(QStringLiteral("messageText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_text->setWordWrap(true);
    auto* close = new QToolButton(this);
    close->setObjectName(QStringLiteral("dismissButton"));
    close->setAutoRaise(true);
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setToolTip(tr("Dismiss this message"));
    close->setAccessibleName(tr("Dismiss this message"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(signWidth(), 6, 6, 6);
    layout->addWidget(m_text, 1);
    layout->addWidget(close, 0, Qt::AlignTop);
    connect(close, &QToolButton::clicked, this, [this] { showRow(nullptr); });
}

void MessageCallout::showRow(const FeatureRow* row)
{
    setRow(row);
    if (isVisible()) {
        QAccessibleEvent alert(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&alert);
    }
}

bool MessageCallout::isWanted(const FeatureRow& row) const
{
    return row.hasMessage();
}

void MessageCallout::showContent(const FeatureRow& row)
{
    m_text->setText(row.extras().message);
    setAccessibleName(toText(row.name) + QStringLiteral(": ") + row.extras().message);
}

} // namespace featurebrowser
