// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "acquisition/PacketSearch.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zqcameralib {

using std::chrono::milliseconds;

namespace {

/// What networks are made for, beside what the camera can send at most.
constexpr std::array<std::int64_t, 12> usualSizes { 576, 1024, 1400, 1440, 1492, 1500, 2304, 4088,
    8192, 8228, 9000, 16384 };
constexpr std::int64_t headers = 36; ///< bytes of IP, UDP and stream in each packet
constexpr double nanosecondsPerByte = 8.0; ///< of the usual link, 1 Gbit/s

constexpr std::uint64_t wholeImages = 3; ///< are enough to believe in a size
constexpr milliseconds shortest(100);
constexpr milliseconds leastPatience(1000);
constexpr double periodsOfPatience = 5.0;

std::int64_t onGrid(const PacketFacts& facts, std::int64_t size)
{
    const std::int64_t step = std::max<std::int64_t>(facts.increment, 1);
    return facts.smallest + (size - facts.smallest) / step * step;
}

std::vector<std::int64_t> sizesOf(const PacketFacts& facts)
{
    std::vector<std::int64_t> sizes { onGrid(facts, facts.largest) };
    for (const std::int64_t size : usualSizes) {
        if (size >= facts.smallest && size <= facts.largest) {
            sizes.push_back(onGrid(facts, size));
        }
    }
    if (facts.size >= facts.smallest && facts.size <= facts.largest) {
        sizes.push_back(facts.size);
    }
    std::sort(sizes.begin(), sizes.end());
    sizes.erase(std::unique(sizes.begin(), sizes.end()), sizes.end());
    return sizes;
}

milliseconds ofPeriods(const PacketFacts& facts, double periods)
{
    constexpr double longest = 60.0;
    const bool isRate = facts.framesPerSecond > 0.0;
    const double seconds = isRate ? std::min(periods / facts.framesPerSecond, longest) : 1.0;
    return milliseconds(static_cast<std::int64_t>(seconds * 1000.0));
}

} // namespace

PacketSearch::PacketSearch(const PacketFacts& facts)
    : m_facts(facts)
    , m_sizes(sizesOf(facts))
    , m_best { facts.size, facts.delay, false }
{
}

std::optional<PacketTrial> PacketSearch::next() const
{
    if (!m_hasSize) {
        return m_sizes.empty()
            ? std::nullopt
            : std::optional(PacketTrial { m_sizes.back(), m_facts.delay, false });
    }
    return m_delays.empty() ? std::nullopt
                            : std::optional(PacketTrial { m_best.size, m_delays.back(), true });
}

std::size_t PacketSearch::trialsLeft() const
{
    return m_hasSize ? m_delays.size() : m_sizes.size();
}

std::optional<bool> PacketSearch::verdict(
    const featurebrowser::ZQFrameCounters& counters, milliseconds elapsed) const
{
    const bool countsPackets = m_hasSize;
    const std::uint64_t most = m_facts.frameLimit == 0 ? UINT64_MAX : m_facts.frameLimit;
    const std::uint64_t seen = counters.delivered + counters.incomplete;
    if (countsPackets && (counters.incomplete > 0 || counters.resendRequests > 0)) {
        return false;
    }
    if (!countsPackets && counters.incomplete >= std::min(wholeImages, most)
        && counters.incomplete >= counters.delivered) {
        return false;
    }
    const milliseconds enough
        = countsPackets ? std::max(leastPatience, ofPeriods(m_facts, 10.0)) : shortest;
    const std::uint64_t needed = std::min(wholeImages, most);
    if (counters.delivered >= needed && counters.delivered > counters.incomplete
        && (elapsed >= enough || seen >= most)) {
        return true;
    }
    const milliseconds patience = std::max(leastPatience, ofPeriods(m_facts, periodsOfPatience));
    return elapsed >= enough + patience ? std::optional(counters.delivered >= needed)
                                        : std::nullopt;
}

void PacketSearch::note(bool isGood)
{
    ++m_done;
    if (!m_hasSize) {
        m_hasSize = isGood;
        m_best.size = isGood ? m_sizes.back() : m_best.size;
        m_sizes.pop_back();
        m_delays = m_hasSize && m_facts.hasDelay ? delays() : m_delays;
        return;
    }
    m_hasDelay = isGood;
    m_best.delay = isGood ? m_delays.back() : m_best.delay;
    m_delays.pop_back();
    if (isGood) {
        m_delays.clear();
    }
}

/// The present one first, then larger ones, up to what the frame rate leaves between packets.
std::vector<std::int64_t> PacketSearch::delays() const
{
    std::vector<std::int64_t> delays { m_facts.delay };
    const auto payload = static_cast<double>(std::max<std::int64_t>(m_best.size - headers, 1));
    const double packets = std::ceil(static_cast<double>(m_facts.imageBytes) / payload) + 2.0;
    const double rate = m_facts.framesPerSecond > 0.0 ? m_facts.framesPerSecond : 1.0;
    const double pause
        = 0.9 / (rate * packets) - static_cast<double>(m_best.size) * nanosecondsPerByte / 1e9;
    const double most
        = std::min(pause * m_facts.ticksPerSecond, static_cast<double>(m_facts.mostDelay));
    for (const double share : { 0.125, 0.25, 0.5, 1.0 }) {
        const auto delay = static_cast<std::int64_t>(most * share);
        if (delay > delays.back()) {
            delays.push_back(delay);
        }
    }
    std::reverse(delays.begin(), delays.end());
    return delays;
}

Words PacketSearch::sizeWords() const
{
    if (!m_hasSize) {
        return worded(
            "No image arrives whole, whatever the size of its packets; that is left at %s "
            "bytes.",
            std::to_string(m_facts.size).c_str());
    }
    const std::string best = std::to_string(m_best.size);
    return m_best.size == m_facts.size
        ? worded("Images arrive whole in packets of %s bytes, as set before.", best.c_str())
        : worded("Images arrive whole in packets of %s bytes; before, they had %s bytes.",
            best.c_str(), std::to_string(m_facts.size).c_str());
}

Words PacketSearch::delayWords() const
{
    if (!m_hasSize || !m_facts.hasDelay) {
        return {};
    }
    if (!m_hasDelay) {
        return " "
            + translated(
                "Some packets get lost, whatever the delay between them that the frame rate "
                "allows; it is left as it was.");
    }
    if (m_best.delay == m_facts.delay) {
        return " " + translated("None gets lost with the delay between them that was set before.");
    }
    return " "
        + worded("None gets lost with a delay of %s ticks between them; before, it had %s.",
            std::to_string(m_best.delay).c_str(), std::to_string(m_facts.delay).c_str());
}

std::string PacketSearch::words() const
{
    return (sizeWords() + delayWords()).text();
}

} // namespace zqcameralib
