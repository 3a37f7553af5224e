// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/LostBanner.h"

#include "window/MessageLabel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <algorithm>

namespace zqviewer {

LostBanner::LostBanner(QWidget* parent)
    : QWidget(parent)
    , m_reason(new MessageLabel(this))
    , m_age(new QLabel(this))
    , m_reconnect(new QPushButton(tr("&Reconnect"), this))
{
    setObjectName(QStringLiteral("lostBanner"));
    setAutoFillBackground(true);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, colours.color(QPalette::ToolTipBase));
    colours.setColor(QPalette::WindowText, colours.color(QPalette::ToolTipText));
    setPalette(colours);
    QFont bold = font();
    bold.setBold(true);
    m_reason->setFont(bold);
    m_reason->setObjectName(QStringLiteral("lostReason"));
    m_age->setTextFormat(Qt::PlainText);
    m_age->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_reconnect->setObjectName(QStringLiteral("reconnect"));
    m_reconnect->setToolTip(tr("Find the camera again, or another one in its place"));
    auto* sign = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, this);
    sign->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    auto* words = new QVBoxLayout;
    words->setSpacing(0);
    words->addWidget(m_reason);
    words->addWidget(m_age);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->addWidget(sign);
    layout->addLayout(words, 1);
    layout->addWidget(m_reconnect);
    connect(m_reconnect, &QPushButton::clicked, this, &LostBanner::reconnectWanted);
    connect(&m_timer, &QTimer::timeout, this, &LostBanner::showAge);
    m_timer.setInterval(1000);
    hide();
}

void LostBanner::showLoss(const QString& reason)
{
    if (!m_since.isValid()) {
        m_since = QDateTime::currentDateTime();
    }
    m_reason->showText(reason);
    m_reconnect->setEnabled(true);
    m_timer.start();
    showAge();
    show();
}

void LostBanner::showTrying()
{
    m_next = {};
    m_reconnect->setEnabled(false);
    showAge();
}

void LostBanner::showNextTry(int milliseconds)
{
    m_next = milliseconds < 0 ? QDateTime() : QDateTime::currentDateTime().addMSecs(milliseconds);
    m_reconnect->setEnabled(true);
    showAge();
}

void LostBanner::hideLoss()
{
    m_timer.stop();
    m_since = {};
    hide();
}

void LostBanner::showAge()
{
    QString text = tr("The values are those of %1.")
                       .arg(m_since.time().toString(QStringLiteral("HH:mm:ss")));
    if (!m_reconnect->isEnabled()) {
        text += QLatin1Char(' ') + tr("Looking for the camera\u2026");
    } else if (m_next.isValid()) {
        const qint64 wait = QDateTime::currentDateTime().msecsTo(m_next);
        text += QLatin1Char(' ')
            + tr("Next try in %1 s.")
                  .arg(QString::number(std::max<qint64>(0, (wait + 999) / 1000)));
    }
    m_age->setText(text);
}

} // namespace zqviewer
