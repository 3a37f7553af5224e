// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <string>

namespace zqcameralib {

/// What a GigE Vision camera tells before it is opened.
struct GigeProbe {
    enum class Answer {
        NoWay, ///< no network of this computer leads to the address
        None, ///< nothing answers at the address
        Waits, ///< it only asks to wait
        Refused, ///< it answers, but refuses to be read
        Given
    };
    Answer answer = Answer::None;
    std::chrono::milliseconds roundTrip { 0 }; ///< of one register, lost packets included
    /// Bytes as they are transferred, of the larger of two; 0 where it does not say.
    std::uint64_t descriptionSize = 0;
};

/// Asks the camera at `address` (IPv4) for its model and for the places of its description, by
/// reads that everybody is allowed. Waits at most about 2.5 s, less once `isCancelled` is set.
GigeProbe probeGige(const std::string& address, const std::atomic<bool>& isCancelled);

} // namespace zqcameralib
