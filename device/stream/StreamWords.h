// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>

namespace zqcameralib {

/// What is known about the way of the images to this computer. 0 or empty: not known, or not so.
struct StreamFacts {
    std::uint64_t imageBytes = 0;
    std::uint64_t wantedBuffer = 0; ///< bytes; 0 where the system's receive buffer is not used
    std::uint64_t grantedBuffer = 0; ///< bytes of images that the system lets it hold
    std::uint64_t packetSize = 0; ///< bytes with headers, as the camera sends them
    std::string destination; ///< where the camera sends the images to
    bool isTriggered = false; ///< TriggerMode was On at the start
    bool isUsb = false; ///< no network lies between
};

/// What has come since the start.
struct StreamArrivals {
    std::uint64_t packets = 0;
    std::uint64_t bytes = 0; ///< in these packets
    std::uint64_t incomplete = 0; ///< images
    std::uint64_t withoutImage = 0; ///< complete, but of another kind
};

/// One sentence when the receive buffer cannot hold one image; else empty.
std::string receiveBufferWords(const StreamFacts& facts);

/// Why there may be no image; what is not known is not claimed.
std::string noImageWords(const StreamFacts& facts, const StreamArrivals& arrivals);

} // namespace zqcameralib
