// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Status.h"
#include "session/CameraSession.h"
#include "session/LinkHealth.h"

#include <functional>
#include <memory>

namespace zqcameralib {

/// The open connection to a real camera, for what needs more of it than registers: its images.
class SessionAccess {
public:
    using SessionTask = std::function<void(CameraSession&)>;

    SessionAccess() = default;
    SessionAccess(const SessionAccess&) = delete;
    SessionAccess& operator=(const SessionAccess&) = delete;
    virtual ~SessionAccess() = default;

    /// Runs `task` with the session on the access thread without waiting; a failure when the
    /// camera is lost. What is asked for behind it may find no time left. `task` has to own what it
    /// touches.
    virtual Status beginWithSession(SessionTask task) = 0;
    /// Runs `task` on the access thread without waiting, also when the camera is lost.
    virtual void post(std::function<void()> task) = 0;
    virtual bool isLost() = 0;
    /// Why it is lost.
    virtual Status loss() const = 0;
    /// What they point to is for any thread.
    virtual std::shared_ptr<LinkHealth> health() const = 0;
    virtual std::shared_ptr<CameraSession::Health> sessionHealth() const = 0;
};

} // namespace zqcameralib
