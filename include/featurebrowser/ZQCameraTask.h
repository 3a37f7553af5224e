// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

namespace zqcameralib {

class ZQCamera;

/// Something that can take a camera longer than a user interface may wait: it goes on beside the
/// caller, who asks from time to time how far it is, for instance from a timer every 30 ms.
///
/// Belongs to the thread that drives the camera. What it was made from has to outlive it.
/// Destroying it cancels it. Nothing throws.
class ZQ_EXPORT ZQCameraTask {
public:
    enum class State {
        Running,
        Done, ///< successfully
        Failed, ///< error() says why
        Cancelled
    };

    /// How far it is.
    struct Progress {
        std::string step; ///< what is done now, for the user: "Reading the features"
        std::size_t done = 0; ///< registers read
        std::size_t total = 0; ///< registers to be read, as far as known; 0: not known
    };

    ZQCameraTask() = default;
    ZQCameraTask(const ZQCameraTask&) = delete;
    ZQCameraTask& operator=(const ZQCameraTask&) = delete;
    virtual ~ZQCameraTask();

    /// Looks how far it is and does what has to be done on the caller's thread: some milliseconds
    /// at most. It goes on only as far as this is called.
    virtual State poll() = 0;
    virtual Progress progress() const = 0;
    /// Ends it; what the camera was asked already may still be answered.
    virtual void cancel() = 0;
    /// One line for the user, when it has failed.
    virtual std::string error() const = 0;

    /// Polls until it is not Running any more, at most so long.
    State wait(std::chrono::milliseconds limit);
};

/// The opening of a camera; see ZQCamera::OpenBeside.
class ZQ_EXPORT ZQCameraOpening : public ZQCameraTask {
public:
    class Impl;

    /// Made by ZQCamera::OpenBeside.
    explicit ZQCameraOpening(std::unique_ptr<Impl> impl);
    ~ZQCameraOpening() override;

    State poll() override;
    Progress progress() const override;
    void cancel() override;
    std::string error() const override;
    /// The camera, once, when it is Done; null otherwise. From then on it belongs to the caller's
    /// thread.
    std::unique_ptr<ZQCamera> takeCamera();

private:
    std::unique_ptr<Impl> m_impl;
};

} // namespace zqcameralib
