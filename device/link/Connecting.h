// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "session/CameraSession.h"

#include "featurebrowser/ZQCamera.h"

#include <atomic>
#include <memory>
#include <string>

namespace zqcameralib {

/// Opening a camera, or finding a lost one again: runs on the access thread, which nobody but this
/// uses meanwhile, and is watched from the thread of the camera's user.
struct Connecting {
    CameraPlace place;
    CameraAccess access = CameraAccess::Control;
    std::shared_ptr<OpeningProgress> progress = std::make_shared<OpeningProgress>();
    /// Before: the lost one, or null. After: the one to use, or where another try makes sense.
    std::shared_ptr<CameraSession> session;

    /// Valid once it is over.
    Status status;
    std::string description; ///< where a new session was opened
    bool isReadOnly = false;
    bool isOtherCamera = false;

    std::atomic<bool> isOver { false };

    void run();

private:
    void findAgain();
    void openAnew();
    void refuseControl();
};

} // namespace zqcameralib
