// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>
#include <cstdint>

namespace zqcameralib {

/// What other threads may know of the connection to a camera.
struct LinkHealth {
    std::atomic<bool> lost { false }; ///< the camera was given up
    std::atomic<std::uint64_t> connection { 1 }; ///< grows with each reconnection
};

} // namespace zqcameralib
