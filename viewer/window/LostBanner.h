// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QDateTime>
#include <QTimer>
#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace zqviewer {

class MessageLabel;

/// Stands over the browser while the camera is lost: why, how old the values are, and what is done
/// about it. Hidden otherwise.
class LostBanner : public QWidget {
    Q_OBJECT

public:
    explicit LostBanner(QWidget* parent);

    /// `reason`: a sentence. The time of the values stays until hideLoss().
    void showLoss(const QString& reason);
    /// The camera is sought now, or will be so many milliseconds from now; negative: only when the
    /// user wants it.
    void showTrying();
    void showNextTry(int milliseconds);
    void hideLoss();

Q_SIGNALS:
    void reconnectWanted();

private:
    void showAge();

    MessageLabel* m_reason;
    QLabel* m_age;
    QPushButton* m_reconnect;
    QDateTime m_since;
    QDateTime m_next; ///< invalid: no time is set
    QTimer m_timer;
};

} // namespace zqviewer
