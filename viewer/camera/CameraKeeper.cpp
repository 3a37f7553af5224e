// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/CameraKeeper.h"

#include "camera/CameraTaskBar.h"

#include <algorithm>
#include <utility>

using namespace featurebrowser;

namespace zqviewer {

using Task = CameraTaskBar::Task;
using Appearance = CameraTaskBar::Appearance;

namespace {

constexpr int watchPeriodMs = 250;
/// Between readings that nobody has asked for; it doubles with each that fails.
constexpr int shortestPauseMs = 500;
constexpr int longestPauseMs = 32000;
/// Before a lost camera is sought by itself; it doubles with each try. A camera that only pauses is
/// back within this time.
constexpr int firstTryMs = 3000;
constexpr int lastTryMs = 30000;

} // namespace

CameraKeeper::CameraKeeper(OpenedCamera& camera, ZQFeatureBrowser& browser, CameraTaskBar& tasks)
    : m_camera(camera)
    , m_browser(browser)
    , m_tasks(tasks)
    , m_shown(names())
{
    connect(&m_tasks, &CameraTaskBar::progressed, this, &CameraKeeper::followCamera);
    connect(&m_watch, &QTimer::timeout, this, &CameraKeeper::look);
    connect(&m_soon, &QTimer::timeout, this, &CameraKeeper::look);
    connect(&m_reconnection, &QTimer::timeout, this, &CameraKeeper::reconnect);
    m_soon.setSingleShot(true);
    m_reconnection.setSingleShot(true);
    m_watch.start(watchPeriodMs);
}

void CameraKeeper::look()
{
    if (m_isReconnecting) {
        return followCamera();
    }
    if (m_camera.camera().isLost()) {
        return lookAtLost();
    }
    if (m_isLost) {
        noteReturn();
    }
    m_browser.RefreshStates();
    if (m_isPaused || m_isCancelled || m_tasks.isRunning() || !m_pause.hasExpired()) {
        return;
    }
    const Wanted what = wanted();
    if (what != Wanted::Nothing) {
        read(what, false);
    }
}

void CameraKeeper::lookAtLost()
{
    const QString loss = m_camera.errorText(markAll());
    if (!m_isLost) {
        m_isLost = true;
        m_isCancelled = false;
        m_loss.clear();
        m_tries = 0;
        Q_EMIT lostChanged(true);
        planReconnecting();
    }
    // At first it does not answer, later it is given up.
    if (std::exchange(m_loss, loss) != loss) {
        Q_EMIT message(false, loss);
    }
}

void CameraKeeper::planReconnecting()
{
    m_reconnection.stop();
    int wait = -1;
    if (m_reconnectsByItself && !m_isCancelled) {
        wait = std::min(firstTryMs << std::min(m_tries, 10), lastTryMs);
        m_reconnection.start(wait);
    }
    Q_EMIT nextTry(wait);
}

void CameraKeeper::setReconnectsByItself(bool doesIt)
{
    m_reconnectsByItself = doesIt;
    if (m_isLost && !m_isReconnecting) {
        planReconnecting();
    }
}

/// Returns why the camera is lost.
int CameraKeeper::markAll()
{
    ZQCameraRepository& repository = m_camera.repository();
    // Neither waits for a lost camera.
    const int status = repository.isLoaded() ? repository.UpdateFeatureStates() : repository.Load();
    m_browser.RefreshStates();
    return status;
}

void CameraKeeper::noteReturn()
{
    m_isLost = false;
    m_wantsAll = true;
    m_failures = 0;
    m_reconnection.stop();
    Q_EMIT lostChanged(false);
    Q_EMIT message(true, tr("The camera answers again; its features are read anew."));
}

CameraKeeper::Wanted CameraKeeper::wanted()
{
    if (!m_camera.repository().isLoaded()) {
        return Wanted::All;
    }
    if (m_camera.repository().HasOutstanding()) { // less to read comes first
        return Wanted::Outstanding;
    }
    return m_wantsAll ? Wanted::All : Wanted::Nothing;
}

void CameraKeeper::readAll()
{
    if (m_isReconnecting) {
        return;
    }
    m_isCancelled = false;
    if (m_camera.camera().isLost()) {
        m_loss.clear(); // to be told again
        return lookAtLost();
    }
    read(Wanted::All, true);
}

void CameraKeeper::readAgain()
{
    m_wantsAll = true;
    lookSoon();
}

void CameraKeeper::lookSoon()
{
    m_isCancelled = false;
    m_soon.start();
}

void CameraKeeper::read(Wanted what, bool isAsked)
{
    m_isAsked = isAsked;
    if (what == Wanted::All) {
        m_wantsAll = false;
    }
    if (isAsked) {
        Q_EMIT message(true, {}); // what stands there is about the values of before
    }
    m_tasks.run(m_camera.repository().ReadAhead(what == Wanted::Outstanding),
        isAsked ? Appearance::AtOnce : Appearance::WhenLong,
        [this](Task& task, Task::State state) { readingEnded(task, state); });
}

void CameraKeeper::readingEnded(Task& task, Task::State state)
{
    if (state == Task::State::Cancelled) {
        return readingCancelled();
    }
    OpenedCamera::Reading reading;
    const bool isRead = state == Task::State::Done && show();
    if (isRead) {
        reading = m_camera.reading();
    } else {
        reading.text = state == Task::State::Failed
            ? QString::fromStdString(task.error())
            : tr("The features could not be read: %1")
                  .arg(m_camera.errorText(m_camera.device().GetLastError()));
    }
    const bool isWhole = isRead && !m_camera.repository().HasOutstanding();
    m_failures = isWhole ? 0 : m_failures + 1;
    m_pause.setRemainingTime(std::min(shortestPauseMs << std::min(m_failures, 10), longestPauseMs));
    m_browser.RefreshStates();
    tell(reading);
}

void CameraKeeper::tell(const OpenedCamera::Reading& reading)
{
    if (m_isAsked || !reading.isComplete) {
        Q_EMIT message(reading.isComplete, reading.text);
    } else {
        Q_EMIT recovered(reading.text);
    }
}

void CameraKeeper::readingCancelled()
{
    m_isCancelled = true;
    Q_EMIT message(false, tr("Reading was cancelled: rows may be outdated. F5 reads all."));
}

/// Loads what was read and shows it; false when it cannot be loaded.
bool CameraKeeper::show()
{
    if (m_shown.empty()) {
        return m_camera.repository().Load() == STATUS_OK && rebuild();
    }
    if (m_browser.ReloadFeatureBrowser() != 0) {
        return false;
    }
    // What the camera implements can change; a row that is not listed any more may not stay.
    m_camera.describe(m_browser);
    return names() == m_shown || rebuild();
}

bool CameraKeeper::rebuild()
{
    m_shown = names();
    const bool isShown = m_browser.LoadFeatureBrowser() == 0;
    m_camera.describe(m_browser);
    return isShown;
}

std::vector<std::string> CameraKeeper::names()
{
    const auto& items = m_camera.repository().GetFeatureList();
    std::vector<std::string> result(items.size());
    std::transform(
        items.begin(), items.end(), result.begin(), [](const auto& item) { return item->name; });
    return result;
}

void CameraKeeper::reconnect()
{
    if (m_isReconnecting) {
        return;
    }
    m_isReconnecting = true;
    m_isOther = false;
    m_isCancelled = false;
    ++m_tries;
    m_reconnection.stop();
    Q_EMIT trying();
    m_tasks.run(m_camera.device().ReconnectBeside(), Appearance::AtOnce,
        [this](Task& task, Task::State state) { reconnectingEnded(task, state); });
}

/// Where another camera was found, nothing of the old one may stay.
void CameraKeeper::followCamera()
{
    ZQCameraRepository& repository = m_camera.repository();
    // A repository that could not be loaded has states, which say so.
    if (repository.isLoaded() || !repository.GetFeatureStates().empty() || m_shown.empty()) {
        return;
    }
    m_isOther = true;
    m_shown.clear();
    m_browser.ClearFeatureBrowser();
    Q_EMIT cameraChanged();
    Q_EMIT message(true, tr("Another camera is here now: %1").arg(m_camera.name()));
}

void CameraKeeper::reconnectingEnded(Task& task, Task::State state)
{
    followCamera();
    m_isReconnecting = false;
    m_failures = 0;
    const int status = state == Task::State::Done ? m_camera.device().Reconnect() : STATUS_OK;
    m_isLost = m_camera.camera().isLost();
    if (m_isLost) { // what is said now says more than that
        m_loss = m_camera.errorText(markAll());
    }
    Q_EMIT lostChanged(m_isLost);
    m_isCancelled = state == Task::State::Cancelled;
    if (m_isLost) {
        planReconnecting();
    }
    if (state == Task::State::Cancelled) {
        Q_EMIT message(false,
            m_isLost ? tr("Reconnecting was cancelled.")
                     : tr("Connected again, but reading was cancelled. F5 reads all features."));
    } else if (state == Task::State::Failed) {
        Q_EMIT message(false, QString::fromStdString(task.error()));
    } else if (status != STATUS_OK) {
        Q_EMIT message(false, m_camera.errorText(status));
    } else {
        showReconnected();
    }
    m_browser.RefreshStates();
}

void CameraKeeper::showReconnected()
{
    m_wantsAll = false;
    rebuild();
    Q_EMIT cameraChanged();
    const OpenedCamera::Reading reading = m_camera.reading();
    const QString found = m_isOther ? tr("Another camera is here now: %1;").arg(m_camera.name())
                                    : tr("Connected again;");
    Q_EMIT message(reading.isComplete, found + QLatin1Char(' ') + reading.text);
}

} // namespace zqviewer
