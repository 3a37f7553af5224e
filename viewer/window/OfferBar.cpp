// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/OfferBar.h"

#include "window/MessageLabel.h"

#include <QHBoxLayout>
#include <QPushButton>

namespace zqviewer {

OfferBar::OfferBar(QWidget* parent)
    : QWidget(parent)
    , m_text(new MessageLabel(this))
    , m_accept(new QPushButton(this))
{
    setObjectName(QStringLiteral("offerBar"));
    m_text->setObjectName(QStringLiteral("offerText"));
    m_accept->setObjectName(QStringLiteral("acceptOffer"));
    auto* dismiss = new QPushButton(tr("&Dismiss"), this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_accept);
    layout->addWidget(dismiss);
    connect(m_accept, &QPushButton::clicked, this, [this] {
        hide();
        Q_EMIT accepted();
    });
    connect(dismiss, &QPushButton::clicked, this, &QWidget::hide);
    hide();
}

void OfferBar::offer(const QString& text, const QString& action)
{
    m_text->showText(text);
    m_accept->setText(action);
    show();
}

} // namespace zqviewer
