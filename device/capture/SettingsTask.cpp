// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "capture/SettingsTask.h"

#include "words/Words.h"

#include <chrono>

namespace zqcameralib {

namespace {

using Clock = std::chrono::steady_clock;

/// Of the caller's time, at every call.
constexpr std::chrono::milliseconds slice(5);

} // namespace

SettingsTask::SettingsTask(ZQCamera& camera)
    : m_camera(camera.impl())
    , m_positions(m_camera)
    , m_generation(m_camera.generation())
    , m_changes(m_camera.port().changes())
{
}

bool SettingsTask::look()
{
    RegisterBackend& backend = m_camera.port().backend();
    if (!isSameCamera()) {
        m_positions.forget();
        fail(translated("there is another camera now"));
    } else if (backend.isGivenUp()) {
        fail(backend.loss().text());
    }
    return m_state == State::Running && !backend.isLost();
}

SettingsTask::State SettingsTask::poll()
{
    if (m_changes != m_camera.port().changes()) {
        m_positions.doubt();
    }
    const Clock::time_point end = Clock::now() + slice;
    while (m_state == State::Running) {
        const Step next = !look() ? Step::Wait : m_isOver ? Step::Over : step();
        m_isOver = m_isOver || next == Step::Over;
        if (next == Step::Over && m_state == State::Running) {
            if (!m_positions.goTo({}).isOk()) {
                break; // later
            }
            this->end(State::Done);
        }
        if (next == Step::Wait || Clock::now() >= end) {
            break;
        }
    }
    m_changes = m_camera.port().changes();
    return m_state;
}

void SettingsTask::fail(const std::string& why)
{
    if (m_state == State::Running) {
        m_error = why;
        end(State::Failed);
    }
}

void SettingsTask::cancel()
{
    if (m_state != State::Running) {
        return;
    }
    if (!isSameCamera()) {
        m_positions.forget();
    }
    end(State::Cancelled);
}

void SettingsTask::end(State state)
{
    m_state = state;
    const Status stuck = m_positions.putBack();
    if (!stuck.isOk()) {
        m_error += (m_error.empty() ? "" : "; ") + stuck.text();
        m_state = State::Failed;
    }
    finish();
}

} // namespace zqcameralib
