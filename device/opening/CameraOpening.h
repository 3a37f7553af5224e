// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "session/CameraPlace.h"

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraTask.h"

#include <mutex>

namespace zqcameralib {

/// Opens a real camera; what takes long looks at `progress`, which others may read and cancel by.
std::unique_ptr<ZQCamera> openReal(const std::string& id, CameraAccess access,
    const std::shared_ptr<OpeningProgress>& progress, std::string& error);

/// Opens on a thread of its own, which outlives this when the opening was cancelled: the library
/// below does not always let it end.
class __attribute__((visibility("hidden"))) ZQCameraOpening::Impl {
public:
    Impl(std::string id, CameraAccess access);
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;
    ~Impl();

    State poll();
    Progress progress() const;
    void cancel();
    std::string error() const;
    std::unique_ptr<ZQCamera> takeCamera();

private:
    /// Shared with the thread.
    struct Shared {
        std::mutex mutex;
        std::shared_ptr<OpeningProgress> progress = std::make_shared<OpeningProgress>();
        std::unique_ptr<ZQCamera> camera;
        std::string error;
        bool isOver = false;
    };

    std::shared_ptr<Shared> m_shared = std::make_shared<Shared>();
    State m_state = State::Running;
};

} // namespace zqcameralib
