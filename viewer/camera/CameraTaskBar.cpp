// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/CameraTaskBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace zqviewer {

namespace {

constexpr int pollPeriodMs = 30;
/// From when on a task that is not asked for is shown.
constexpr int longMs = 500;
/// From when on the seconds are counted for the user.
constexpr int countedMs = 3000;
constexpr int barSteps = 1000;

} // namespace

CameraTaskBar::CameraTaskBar(QWidget* parent)
    : QWidget(parent)
    , m_step(new QLabel(this))
    , m_bar(new QProgressBar(this))
    , m_cancel(new QPushButton(tr("&Cancel"), this))
{
    m_step->setTextFormat(Qt::PlainText);
    m_bar->setTextVisible(false);
    m_bar->setFixedWidth(fontMetrics().averageCharWidth() * 20);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_step, 1);
    layout->addWidget(m_bar);
    layout->addWidget(m_cancel);
    hide();
    connect(m_cancel, &QPushButton::clicked, this, &CameraTaskBar::cancel);
    connect(&m_timer, &QTimer::timeout, this, &CameraTaskBar::poll);
    m_timer.setInterval(pollPeriodMs);
}

CameraTaskBar::~CameraTaskBar() = default;

void CameraTaskBar::run(std::unique_ptr<Task> task, Appearance appearance, Ended ended)
{
    m_task = std::move(task);
    m_ended = std::move(ended);
    m_share = 0;
    m_elapsed.start();
    m_timer.start();
    setVisible(appearance == Appearance::AtOnce);
    poll();
}

void CameraTaskBar::appear()
{
    setVisible(isRunning());
}

void CameraTaskBar::cancel()
{
    if (m_task) {
        m_task->cancel();
        finish(Task::State::Cancelled);
    }
}

void CameraTaskBar::poll()
{
    const Task::State state = m_task->poll();
    Q_EMIT progressed();
    if (state != Task::State::Running) {
        return finish(state);
    }
    showProgress();
    if (m_elapsed.elapsed() > longMs) {
        appear();
    }
}

void CameraTaskBar::finish(Task::State state)
{
    m_timer.stop();
    hide();
    const std::unique_ptr<Task> task = std::move(m_task);
    const Ended ended = std::move(m_ended);
    ended(*task, state);
}

void CameraTaskBar::showProgress()
{
    const Task::Progress progress = m_task->progress();
    QString step = QString::fromStdString(progress.step) + QStringLiteral("\u2026");
    m_bar->setAccessibleName(step);
    if (m_elapsed.elapsed() > countedMs) {
        step = tr("%1 %2 s").arg(step, QString::number(m_elapsed.elapsed() / 1000));
    }
    m_step->setText(step);
    if (progress.total == 0) {
        m_bar->setRange(0, 0);
        return;
    }
    // More to be done may turn up on the way; the bar only goes on.
    m_share = std::max(
        m_share, static_cast<double>(progress.done) / static_cast<double>(progress.total));
    m_bar->setRange(0, barSteps);
    m_bar->setValue(static_cast<int>(m_share * barSteps));
}

} // namespace zqviewer
