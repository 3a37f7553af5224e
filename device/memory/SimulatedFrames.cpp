// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "memory/SimulatedFrames.h"

#include "frames/FrameSize.h"
#include "words/Words.h"

#include <algorithm>
#include <cmath>
#include <thread>
#include <utility>

namespace zqcameralib {

namespace {

constexpr double slowest = 0.01; // frames per second
constexpr double fastest = 10000.0;
constexpr double usual = 10.0; ///< of a camera that tells no rate
constexpr std::chrono::milliseconds longestWait(50);

std::uint64_t nanoseconds(std::chrono::nanoseconds time)
{
    return static_cast<std::uint64_t>(time.count());
}

bool isRate(double framesPerSecond)
{
    return std::isfinite(framesPerSecond) && framesPerSecond > 0.0;
}

std::chrono::steady_clock::duration periodOf(double ofSettings, double ofStart)
{
    const double wanted = isRate(ofSettings) ? ofSettings : isRate(ofStart) ? ofStart : usual;
    return std::chrono::duration_cast<std::chrono::steady_clock::duration>(
        std::chrono::duration<double>(1.0 / std::clamp(wanted, slowest, fastest)));
}

} // namespace

SimulatedFrames::SimulatedFrames(const ImageFormat& format, std::shared_ptr<SceneFeed> feed)
    : m_format(format)
    , m_feed(std::move(feed))
    , m_picture(format)
    , m_period(periodOf(0.0, format.framesPerSecond))
{
    follow(m_feed->take());
    begin(Clock::now() + m_period);
}

void SimulatedFrames::begin(Clock::time_point firstDue)
{
    m_start = firstDue - m_period;
    m_turn = 0;
    m_isGoing = true;
}

void SimulatedFrames::follow(const SceneFeed::Order& order)
{
    if (order.settingsNumber == m_settingsNumber) {
        return;
    }
    const bool wasTriggered = m_settings.trigger.isAwaited;
    m_settingsNumber = order.settingsNumber;
    m_settings = order.settings;
    m_picture.use(m_settings);
    const Clock::duration period = periodOf(m_settings.framesPerSecond, m_format.framesPerSecond);
    if (wasTriggered != m_settings.trigger.isAwaited) {
        m_isGoing = false;
        m_ofTrigger = 0;
    }
    if (period != m_period) {
        m_start += m_period * static_cast<std::int64_t>(m_turn);
        m_turn = 0;
        m_period = period;
    }
}

bool SimulatedFrames::hasTakenAll() const
{
    return m_format.frameLimit != 0 && m_taken >= m_format.frameLimit;
}

/// Whether frames come at present; where nobody had asked for any, their time begins now.
bool SimulatedFrames::isReady(const SceneFeed::Order& order)
{
    if (!order.isSending) {
        m_isGoing = false;
        m_ofTrigger = 0;
        m_taken = 0;
        return false;
    }
    if (hasTakenAll()) {
        return false;
    }
    if (!m_settings.trigger.isAwaited) {
        if (!m_isGoing) {
            begin(Clock::now() + m_period);
        }
        return true;
    }
    if (m_ofTrigger > 0) {
        return true;
    }
    if (order.triggers == 0) {
        return false;
    }
    m_feed->answerTrigger();
    m_ofTrigger = m_settings.trigger.frames == 0 ? UINT64_MAX : m_settings.trigger.frames;
    begin(Clock::now());
    return true;
}

/// False when the next frame is not due yet. Frames whose time passed while the application was
/// busy have been lost.
bool SimulatedFrames::awaitTurn()
{
    const Clock::time_point due = m_start + m_period * static_cast<std::int64_t>(m_turn + 1);
    const Clock::time_point now = Clock::now();
    if (due - now > longestWait) {
        m_feed->wait(longestWait);
        return false;
    }
    std::this_thread::sleep_until(due);
    const auto turns = static_cast<std::uint64_t>((std::max(now, due) - m_start) / m_period);
    // Without a trigger, the second one wraps around and limits nothing.
    const std::uint64_t missed = std::min(turns - 1 - m_turn, m_ofTrigger - 1);
    m_lost += missed;
    m_number += missed;
    m_turn += missed + 1;
    m_ofTrigger -= m_ofTrigger == 0 ? 0 : missed + 1;
    return true;
}

void SimulatedFrames::take(featurebrowser::ZQFrame& frame)
{
    const std::vector<std::uint8_t>& image = m_picture.take(m_number++);
    frame.data = image.data();
    const std::uint64_t pixels = imageBytes(static_cast<std::uint64_t>(m_format.width),
        static_cast<std::uint64_t>(m_picture.height()), m_format.pixelFormat);
    frame.size = m_settings.hasChunks ? std::min<std::size_t>(image.size(), pixels) : image.size();
    frame.width = static_cast<int>(m_format.width);
    frame.height = static_cast<int>(m_picture.height());
    frame.pixelFormat = m_format.pixelFormat;
    frame.frameId = m_number;
    frame.systemTimestampNs = nanoseconds(std::chrono::system_clock::now().time_since_epoch());
    const Clock::time_point taken = m_start + m_period * static_cast<std::int64_t>(m_turn);
    frame.timestampNs = nanoseconds(taken.time_since_epoch());
    if (m_settings.chunks) {
        const auto& chunks = m_settings.chunks->of(frame);
        frame.chunks = chunks.data();
        frame.chunkCount = chunks.size();
    }
    ++m_taken;
    if (hasTakenAll()) {
        m_feed->end();
    }
}

FrameSource::Outcome SimulatedFrames::next(featurebrowser::ZQFrame& frame)
{
    const SceneFeed::Order order = m_feed->take();
    follow(order);
    if (!isReady(order)) {
        m_feed->wait(longestWait);
        return Outcome::Nothing;
    }
    if (!awaitTurn()) {
        return Outcome::Nothing;
    }
    take(frame);
    return Outcome::Complete;
}

std::string SimulatedFrames::whyNothing() const
{
    const SceneTrigger& trigger = m_settings.trigger;
    if (!trigger.isAwaited) {
        return {};
    }
    const Words words = trigger.isSoftware
        ? translated("TriggerMode is On: the camera waits for TriggerSoftware.")
        : worded(
            "TriggerMode is On: the camera waits for a trigger from %s, which never comes to a "
            "simulated camera.",
            trigger.source.c_str());
    return words.text();
}

} // namespace zqcameralib
