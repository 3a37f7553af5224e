// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "acquisition/FrameDelivery.h"

#include "words/Words.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zqcameralib {

using featurebrowser::ZQFrame;

namespace {

using Clock = std::chrono::steady_clock;

const char* const endedText = marked(
    "The camera was lost, and with it the acquisition; start anew when it is found again.");

/// How long no image is nothing to worry about.
Clock::duration patienceFor(double framesPerSecond)
{
    constexpr double least = 2.0;
    constexpr double most = 3600.0;
    constexpr double periods = 4.0;
    const bool isRate = std::isfinite(framesPerSecond) && framesPerSecond > 0.0;
    const double seconds = isRate ? std::clamp(periods / framesPerSecond, least, most) : least;
    return std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

} // namespace

std::string AcquisitionState::read(const std::string& text) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return text;
}

void AcquisitionState::write(std::string& member, std::string text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    member = std::move(text);
}

featurebrowser::ZQFrameCounters AcquisitionState::counters() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const FrameTroubles& of = m_troubles;
    return { delivered, incomplete, lost, of.underruns, of.gaps, of.resendRequests,
        of.resentPackets, of.missingPackets, of.wrongSize, of.aborted };
}

void AcquisitionState::setTroubles(const FrameTroubles& troubles)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_troubles = troubles;
}

FrameDelivery::FrameDelivery(std::unique_ptr<FrameSource> source, const ImageFormat& format,
    Handler handler, AcquisitionState& state)
    : m_source(std::move(source))
    , m_frameLimit(format.frameLimit)
    , m_patience(patienceFor(format.framesPerSecond))
    , m_handler(std::move(handler))
    , m_state(state)
    , m_complainAt(Clock::now() + m_patience)
{
    m_state.delivered = m_state.incomplete = m_state.lost = 0;
    m_state.setTroubles({});
    m_state.setProblem(m_source->warning());
    m_state.isRunning = true;
    m_thread = std::thread([this] { run(); });
}

FrameDelivery::~FrameDelivery()
{
    m_stop = true;
    m_thread.join();
    m_state.isRunning = false;
}

void FrameDelivery::run()
{
    while (!m_stop && deliverNext()) {
        watch();
    }
}

bool FrameDelivery::deliverNext()
{
    ZQFrame frame;
    const FrameSource::Outcome outcome = m_source->next(frame);
    m_state.lost = m_source->lost();
    m_state.setTroubles(m_source->troubles());
    if (outcome == FrameSource::Outcome::Ended) {
        endWith(translated(endedText));
        return false;
    }
    if (outcome == FrameSource::Outcome::Incomplete) {
        ++m_state.incomplete;
    } else if (outcome == FrameSource::Outcome::Complete && !m_stop) {
        if (m_handler) {
            m_handler(frame);
        }
        ++m_state.delivered;
    }
    if (m_frameLimit != 0 && m_state.delivered + m_state.incomplete >= m_frameLimit) {
        endWith(m_state.delivered == 0 ? m_source->whyNothing() : m_source->warning());
        return false;
    }
    return true;
}

void FrameDelivery::endWith(const std::string& problem)
{
    m_state.setProblem(problem);
    m_state.isRunning = false;
}

void FrameDelivery::watch()
{
    const Clock::time_point now = Clock::now();
    if (m_state.delivered == 0 && now >= m_complainAt) {
        m_state.setProblem(m_source->whyNothing());
        m_complainAt = now + m_patience;
        m_hasComplained = true;
    } else if (m_state.delivered != 0 && m_hasComplained) {
        m_state.setProblem(m_source->warning());
        m_hasComplained = false;
    }
}

} // namespace zqcameralib
