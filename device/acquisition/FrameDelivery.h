// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "frames/FrameSource.h"

#include <atomic>
#include <mutex>
#include <string>
#include <thread>

namespace zqcameralib {

/// What any thread may ask of an acquisition at any time.
class AcquisitionState {
public:
    std::atomic<bool> isRunning { false };
    std::atomic<std::uint64_t> delivered { 0 };
    std::atomic<std::uint64_t> incomplete { 0 };
    std::atomic<std::uint64_t> lost { 0 };

    featurebrowser::ZQFrameCounters counters() const;
    void setTroubles(const FrameTroubles& troubles);
    std::string lastError() const { return read(m_lastError); }
    void setLastError(std::string text) { write(m_lastError, std::move(text)); }
    std::string problem() const { return read(m_problem); }
    void setProblem(std::string text) { write(m_problem, std::move(text)); }

private:
    std::string read(const std::string& text) const;
    void write(std::string& member, std::string text);

    mutable std::mutex m_mutex;
    FrameTroubles m_troubles;
    std::string m_lastError;
    std::string m_problem;
};

/// Hands the frames of a source out on a thread of its own until it is destroyed or the source has
/// ended, counts them, and tells when none come.
class FrameDelivery {
public:
    using Handler = featurebrowser::ZQAcquisition::FrameHandler;

    /// `state` has to outlive this; it says "running" from now on.
    FrameDelivery(std::unique_ptr<FrameSource> source, const ImageFormat& format, Handler handler,
        AcquisitionState& state);
    FrameDelivery(const FrameDelivery&) = delete;
    FrameDelivery& operator=(const FrameDelivery&) = delete;
    /// The handler is not called any more afterwards.
    ~FrameDelivery();

private:
    using Clock = std::chrono::steady_clock;

    void run();
    bool deliverNext();
    void watch();
    void endWith(const std::string& problem);

    std::unique_ptr<FrameSource> m_source;
    std::uint64_t m_frameLimit;
    Clock::duration m_patience; ///< without an image
    Handler m_handler;
    AcquisitionState& m_state;
    Clock::time_point m_complainAt;
    bool m_hasComplained = false; ///< that there is no image
    std::atomic<bool> m_stop { false };
    std::thread m_thread;
};

} // namespace zqcameralib
