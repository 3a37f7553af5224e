#include "SimulatedFrames.h"

#include <algorithm>
#include <thread>

namespace zqcameralib {

namespace {

constexpr double slowest = 0.01; // frames per second
constexpr double fastest = 10000.0;
constexpr std::chrono::milliseconds longestWait(50);

std::uint64_t systemNanoseconds()
{
    return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(
        std::chrono::system_clock::now().time_since_epoch())
                                          .count());
}

} // namespace

SimulatedFrames::SimulatedFrames(const ImageFormat& format)
    : m_format(format)
    , m_period(std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(
          1.0 / std::clamp(format.framesPerSecond, slowest, fastest))))
    , m_start(Clock::now())
    , m_image(format.payload)
{
}

/// A diagonal ramp that wanders by one step a frame; the same for every pixel format, byte by byte.
void SimulatedFrames::draw(std::uint64_t number)
{
    const std::size_t row = m_image.size() / static_cast<std::size_t>(m_format.height);
    for (std::size_t i = 0; i < m_image.size(); ++i) {
        m_image[i] = static_cast<std::uint8_t>(i % row + i / row + number);
    }
}

FrameSource::Outcome SimulatedFrames::next(featurebrowser::ZQFrame& frame)
{
    const bool isOver = m_format.frameLimit != 0 && m_delivered >= m_format.frameLimit;
    const Clock::time_point due = m_start + m_period * static_cast<std::int64_t>(m_number + 1);
    const Clock::time_point now = Clock::now();
    if (isOver || due - now > longestWait) {
        std::this_thread::sleep_for(longestWait);
        return Outcome::Nothing;
    }
    std::this_thread::sleep_until(due);
    // Frames whose time passed while the application was busy have been lost.
    const auto elapsed = static_cast<std::uint64_t>((std::max(now, due) - m_start) / m_period);
    m_lost += elapsed - 1 - m_number;
    m_number = elapsed - 1;
    draw(m_number);
    frame.data = m_image.data();
    frame.size = m_image.size();
    frame.width = static_cast<int>(m_format.width);
    frame.height = static_cast<int>(m_format.height);
    frame.pixelFormat = m_format.pixelFormat;
    frame.frameId = m_number + 1;
    frame.systemTimestampNs = systemNanoseconds();
    frame.timestampNs = static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(due.time_since_epoch()).count());
    ++m_number;
    ++m_delivered;
    return Outcome::Complete;
}

} // namespace zqcameralib
