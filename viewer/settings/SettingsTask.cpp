// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsTask.h"

#include <QProgressDialog>

#include <chrono>
#include <utility>

namespace zqviewer {

namespace {

constexpr int pollPeriodMs = 10;
/// What is over sooner needs no dialog.
constexpr std::chrono::milliseconds shortEnough(150);

} // namespace

SettingsTask::SettingsTask(QWidget* window)
    : QObject(window)
    , m_window(window)
{
    connect(&m_timer, &QTimer::timeout, this, &SettingsTask::poll);
    m_timer.setInterval(pollPeriodMs);
}

SettingsTask::~SettingsTask() = default;

void SettingsTask::run(std::unique_ptr<Task> task, const QString& words, Ended ended)
{
    if (m_task) {
        return;
    }
    m_task = std::move(task);
    m_ended = std::move(ended);
    Q_EMIT begun();
    const Task::State state = m_task->wait(shortEnough);
    if (state != Task::State::Running) {
        return finish(state);
    }
    m_progress = std::make_unique<QProgressDialog>(words, tr("&Cancel"), 0, 0, m_window);
    m_progress->setWindowModality(Qt::WindowModal);
    m_progress->setMinimumDuration(0);
    m_progress->setAutoClose(false);
    m_progress->setAutoReset(false);
    connect(m_progress.get(), &QProgressDialog::canceled, this, [this] { m_task->cancel(); });
    m_progress->show();
    m_timer.start();
}

void SettingsTask::poll()
{
    const Task::State state = m_task->poll();
    state == Task::State::Running ? showProgress() : finish(state);
}

void SettingsTask::finish(Task::State state)
{
    m_timer.stop();
    if (m_progress) { // it may be its own button that has led here
        m_progress->hide();
        m_progress.release()->deleteLater();
    }
    const std::unique_ptr<Task> task = std::move(m_task);
    const Ended after = std::move(m_ended);
    Q_EMIT ended();
    after(*task, state);
}

void SettingsTask::showProgress()
{
    const Task::Progress progress = m_task->progress();
    m_progress->setMaximum(static_cast<int>(progress.total));
    m_progress->setValue(static_cast<int>(progress.done));
}

} // namespace zqviewer
