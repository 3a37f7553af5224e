// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "capture/SelectorPositions.h"

#include "featurebrowser/ZQCameraTask.h"

#include <cstdint>
#include <string>

namespace zqcameralib {

/// What works on a camera's settings in small steps: waits while the camera does not answer, ends
/// when it was given up or is another one, and puts the selectors back however it ends.
class SettingsTask {
public:
    using State = ZQCameraTask::State;

    /// `camera` has to outlive it.
    explicit SettingsTask(ZQCamera& camera);
    SettingsTask(const SettingsTask&) = delete;
    SettingsTask& operator=(const SettingsTask&) = delete;
    virtual ~SettingsTask() = default;

    /// Some steps, as long as they take some milliseconds.
    State poll();
    void cancel();
    State state() const { return m_state; }
    const std::string& error() const { return m_error; }
    virtual ZQCameraTask::Progress progress() const = 0;

protected:
    enum class Step {
        Next,
        Wait, ///< there is nothing to do at the moment
        Over
    };

    virtual Step step() = 0;
    /// It is over, in whatever way; the camera may be lost.
    virtual void finish() { }
    /// Ends it before its time: the next poll() says so.
    void fail(const std::string& why);
    /// Whether it is still the one that it began with.
    bool isSameCamera() const { return m_generation == m_camera.generation(); }
    ZQCamera::Impl& camera() { return m_camera; }
    SelectorPositions& positions() { return m_positions; }

private:
    void end(State state);
    /// Whether the camera can be asked now.
    bool look();

    ZQCamera::Impl& m_camera;
    SelectorPositions m_positions;
    std::uint64_t m_generation;
    std::uint64_t m_changes;
    State m_state = State::Running;
    bool m_isOver = false; ///< all is done but to put the selectors back
    std::string m_error;
};

} // namespace zqcameralib
