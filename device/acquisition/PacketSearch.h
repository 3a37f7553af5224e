// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "words/Words.h"

#include "featurebrowser/ZQAcquisition.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zqcameralib {

/// What is known before packets are tried.
struct PacketFacts {
    std::int64_t size = 0; ///< of packets at present, in bytes with headers
    std::int64_t smallest = 0;
    std::int64_t largest = 0;
    std::int64_t increment = 1;
    bool hasDelay = false; ///< whether it can be set
    std::int64_t delay = 0; ///< at present, in ticks
    std::int64_t mostDelay = 0; ///< ticks, as the camera allows
    double ticksPerSecond = 1e9;
    std::uint64_t imageBytes = 0;
    double framesPerSecond = 0.0;
    std::uint64_t frameLimit = 0; ///< of one start; 0: none
};

/// How packets are sent in one trial.
struct PacketTrial {
    std::int64_t size = 0;
    std::int64_t delay = 0;
    bool countsPackets = false; ///< none may get lost; else it is enough that images come whole
};

/// Decides which packets are tried next, and which are best. Sends nothing.
class PacketSearch {
public:
    explicit PacketSearch(const PacketFacts& facts);

    /// Nothing when it is over.
    std::optional<PacketTrial> next() const;
    /// What came of it so far; nothing while that cannot be said.
    std::optional<bool> verdict(
        const featurebrowser::ZQFrameCounters& counters, std::chrono::milliseconds elapsed) const;
    /// Of the trial that next() told.
    void note(bool isGood);

    /// Whether images come whole at any size: then best() is what to set.
    bool hasFound() const { return m_hasSize; }
    PacketTrial best() const { return m_best; }
    /// What was found, for the user.
    std::string words() const;
    std::size_t trialsDone() const { return m_done; }
    /// At most, at present.
    std::size_t trialsLeft() const;

private:
    std::vector<std::int64_t> delays() const;
    Words sizeWords() const;
    Words delayWords() const;

    PacketFacts m_facts;
    std::vector<std::int64_t> m_sizes; ///< to be tried, the next one last
    std::vector<std::int64_t> m_delays; ///< to be tried at the best size, the next one last
    PacketTrial m_best;
    bool m_hasSize = false;
    bool m_hasDelay = false;
    std::size_t m_done = 0;
};

} // namespace zqcameralib
