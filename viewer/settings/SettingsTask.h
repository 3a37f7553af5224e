// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQCameraTask.h"

#include <QPointer>
#include <QTimer>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QProgressDialog;
QT_END_NAMESPACE

namespace zqviewer {

/// Runs a task that wants the camera for itself: nothing else can be done in the window meanwhile,
/// but to look how far it is and to cancel it.
class SettingsTask : public QObject {
    Q_OBJECT

public:
    using Task = zqcameralib::ZQCameraTask;
    /// Called once with the task that is not Running any more; it may run the next one.
    using Ended = std::function<void(Task& task, Task::State state)>;

    /// `window`: the one that is blocked.
    explicit SettingsTask(QWidget* window);
    /// Cancels; nobody is told.
    ~SettingsTask() override;

    bool isRunning() const { return m_task != nullptr; }
    /// One at a time. `words`: what is being done.
    void run(std::unique_ptr<Task> task, const QString& words, Ended ended);

Q_SIGNALS:
    /// The camera belongs to the task, and does not any more.
    void begun();
    void ended();

private:
    void poll();
    void finish(Task::State state);
    void showProgress();

    QWidget* m_window;
    std::unique_ptr<QProgressDialog> m_progress;
    QTimer m_timer;
    std::unique_ptr<Task> m_task;
    Ended m_ended;
};

} // namespace zqviewer
