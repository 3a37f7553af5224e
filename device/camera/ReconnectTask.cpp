// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/ReconnectTask.h"

namespace zqcameralib {

ZQCameraTask::State ReconnectTask::poll()
{
    if (m_state != State::Running) {
        return m_state;
    }
    if (m_reading) {
        m_state = m_reading->poll();
        return m_state;
    }
    const Status found = m_camera.reconnect(false);
    m_error = found.text();
    if (found.isOk()) {
        m_reading = m_repository.ReadAhead();
    } else if (!m_camera.port().backend().isReconnecting()) {
        m_state = State::Failed;
    }
    return m_state;
}

ZQCameraTask::Progress ReconnectTask::progress() const
{
    return m_reading ? m_reading->progress() : Progress { "Connecting", 0, 0 };
}

void ReconnectTask::cancel()
{
    if (m_reading) {
        m_reading->cancel();
    }
    m_state = m_state == State::Running ? State::Cancelled : m_state;
}

std::string ReconnectTask::error() const
{
    return m_reading && m_state == State::Failed ? m_reading->error() : m_error;
}

} // namespace zqcameralib
