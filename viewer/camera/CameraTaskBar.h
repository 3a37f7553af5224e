// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQCameraTask.h"

#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QLabel;
class QProgressBar;
class QPushButton;
QT_END_NAMESPACE

namespace zqviewer {

/// Runs one task on a camera: shows what is done and how far it is, and lets the user cancel it.
/// Hidden while there is none.
class CameraTaskBar : public QWidget {
    Q_OBJECT

public:
    using Task = zqcameralib::ZQCameraTask;
    /// Called once with the task that is not Running any more; it may run the next one.
    using Ended = std::function<void(Task& task, Task::State state)>;
    enum class Appearance {
        AtOnce,
        WhenLong ///< only when it takes long enough to be looked at
    };

    explicit CameraTaskBar(QWidget* parent);
    /// Cancels; nobody is told.
    ~CameraTaskBar() override;

    /// Runs `task`, in place of another one, which is cancelled and whose end nobody is told of.
    /// One that does not have to wait has ended when this returns.
    void run(std::unique_ptr<Task> task, Appearance appearance, Ended ended);
    bool isRunning() const { return m_task != nullptr; }
    /// Shows the task now, if there is one.
    void appear();
    /// As the button does it.
    void cancel();

Q_SIGNALS:
    /// The task has done some of its work.
    void progressed();

private:
    void poll();
    void finish(Task::State state);
    void showProgress();

    QLabel* m_step;
    QProgressBar* m_bar;
    QPushButton* m_cancel;
    QTimer m_timer;
    QElapsedTimer m_elapsed;
    std::unique_ptr<Task> m_task;
    Ended m_ended;
    double m_share = 0;
};

} // namespace zqviewer
