// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "words/Words.h"

#include <atomic>
#include <cstdint>
#include <string>

namespace zqcameralib {

/// Where a camera is found.
struct CameraPlace {
    std::string protocol; ///< "GigEVision" or "USB3Vision"
    std::string address; ///< IPv4 address, or the id of a USB camera

    bool isUsb() const { return protocol == "USB3Vision"; }
    /// Words about the camera there, as a user reads them.
    Words words(const Words& text) const { return address + ": " + text; }
};

/// How far the opening of a camera is; any thread.
struct OpeningProgress {
    enum class Step {
        Searching, ///< for its place
        Asking, ///< for any answer
        Waiting, ///< for others that are being opened
        Reading, ///< the description
        Preparing ///< what is built of it
    };
    std::atomic<Step> step { Step::Searching };
    std::atomic<bool> isCancelled { false };
    /// What reading the description takes, as far as that can be told; milliseconds.
    std::atomic<std::int64_t> expectedMs { 0 };
};

} // namespace zqcameralib
