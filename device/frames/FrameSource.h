// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Status.h"

#include "featurebrowser/ZQAcquisition.h"

#include <chrono>
#include <memory>
#include <string>

namespace zqcameralib {

/// What images look like at the start of an acquisition.
struct ImageFormat {
    std::int64_t width = 0;
    std::int64_t height = 0;
    std::uint32_t pixelFormat = 0;
    std::size_t payload = 0; ///< bytes of one image
    double framesPerSecond = 0.0;
    std::uint64_t frameLimit = 0; ///< 0: until it is stopped
    bool isTriggered = false; ///< TriggerMode is On
};

/// What is known about frames that are missing; see ZQFrameCounters.
struct FrameTroubles {
    std::uint64_t underruns = 0;
    std::uint64_t gaps = 0;
    std::uint64_t resendRequests = 0;
    std::uint64_t resentPackets = 0;
    std::uint64_t missingPackets = 0;
    std::uint64_t wrongSize = 0;
    std::uint64_t aborted = 0;
};

/// Where frames come from. Used by one acquisition: next() on its thread, the rest before and
/// after.
class FrameSource {
public:
    /// Ended: nothing will come any more.
    enum class Outcome { Complete, Incomplete, Nothing, Ended };

    FrameSource() = default;
    FrameSource(const FrameSource&) = delete;
    FrameSource& operator=(const FrameSource&) = delete;
    virtual ~FrameSource() = default;

    /// Waits a short while for the next frame, which is valid until the next call.
    virtual Outcome next(featurebrowser::ZQFrame& frame) = 0;
    /// Frames not received so far.
    virtual std::uint64_t lost() const = 0;
    /// So far. On the thread of next().
    virtual FrameTroubles troubles() const { return {}; }
    /// What can keep images from arriving, known from the start; empty when there is nothing.
    virtual std::string warning() const { return {}; }
    /// Why there may be no complete image so far. On the thread of next().
    virtual std::string whyNothing() const { return {}; }
};

/// A frame source on its way: a slow camera takes long to be told where to send images to.
/// Destroying it ends what was begun.
class FrameSourceOpening {
public:
    using Clock = std::chrono::steady_clock;

    FrameSourceOpening() = default;
    FrameSourceOpening(const FrameSourceOpening&) = delete;
    FrameSourceOpening& operator=(const FrameSourceOpening&) = delete;
    virtual ~FrameSourceOpening() = default;

    /// Waits for the source, but not beyond `deadline`: stillWorking when it is not there yet. It
    /// is handed out once.
    virtual Result<std::unique_ptr<FrameSource>> finish(Clock::time_point deadline) = 0;
};

} // namespace zqcameralib
