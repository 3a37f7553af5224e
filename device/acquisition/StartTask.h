// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/ReadAhead.h"

#include "featurebrowser/ZQCameraTask.h"

#include <functional>

namespace zqcameralib {

/// The start of an acquisition in steps that do not wait: what has to be known of the images is
/// read ahead first.
class StartTask final : public ZQCameraTask {
public:
    /// What an acquisition does in the steps of its start.
    struct Steps {
        std::function<int()> goOn; ///< without waiting; its status
        std::function<void()> giveUp;
        std::function<std::string()> error; ///< why it failed
    };

    /// What the steps use has to outlive this.
    StartTask(ZQCamera::Impl& camera, Steps steps);
    ~StartTask() override { StartTask::cancel(); }

    State poll() override;
    Progress progress() const override;
    void cancel() override;
    std::string error() const override { return m_error; }

private:
    int goOn();

    ZQCamera::Impl& m_camera;
    Steps m_steps;
    ReadAhead m_ahead;
    bool m_isRead = false;
    State m_outcome = State::Running;
    std::string m_error;
};

} // namespace zqcameralib
