// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/ReadAheadTask.h"

namespace zqcameralib {

/// Finds a lost camera again, and reads ahead what it holds then.
class ReconnectTask final : public ZQCameraTask {
public:
    using Repository = featurebrowser::ZQCameraRepository;

    ReconnectTask(ZQCamera::Impl& camera, Repository& repository)
        : m_camera(camera)
        , m_repository(repository)
    {
    }

    State poll() override;
    Progress progress() const override;
    void cancel() override;
    std::string error() const override;

private:
    ZQCamera::Impl& m_camera;
    Repository& m_repository;
    std::unique_ptr<ZQCameraTask> m_reading; ///< once the camera is there
    State m_state = State::Running;
    std::string m_error;
};

} // namespace zqcameralib
