// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QPushButton;
QT_END_NAMESPACE

namespace zqviewer {

class MessageLabel;

/// Offers the user something that can wait, over the browser. Hidden until there is an offer.
class OfferBar : public QWidget {
    Q_OBJECT

public:
    explicit OfferBar(QWidget* parent);

    void offer(const QString& text, const QString& action);

Q_SIGNALS:
    /// The user wants it; the bar is hidden again.
    void accepted();

private:
    MessageLabel* m_text;
    QPushButton* m_accept;
};

} // namespace zqviewer
