#include "memory/SimulatedFrames.h"

#include "frames/FrameSize.h"

#include <algorithm>
#include <cmath>
#include <thread>

namespace zqcameralib {

namespace {

constexpr double slowest = 0.01; // frames per second
constexpr double fastest = 10000.0;
constexpr double usual = 10.0; ///< of a camera that tells no rate
constexpr std::chrono::milliseconds longestWait(50);

std::uint64_t systemNanoseconds()
{
    return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(
        std::chrono::system_clock::now().time_since_epoch())
                                          .count());
}

double usableRate(double framesPerSecond)
{
    const bool isRate = std::isfinite(framesPerSecond) && framesPerSecond > 0.0;
    return isRate ? std::clamp(framesPerSecond, slowest, fastest) : usual;
}

} // namespace

SimulatedFrames::SimulatedFrames(const ImageFormat& format)
    : m_format(format)
    , m_period(std::chrono::duration_cast<Clock::duration>(
          std::chrono::duration<double>(1.0 / usableRate(format.framesPerSecond))))
    , m_start(Clock::now())
    , m_image(format.payload)
{
    m_format.height = rowsWithin(m_image.size(), format.width, format.height, format.pixelFormat);
}

/// A diagonal ramp that wanders by one step a frame; the same for every pixel format, byte by byte.
void SimulatedFrames::draw(std::uint64_t number)
{
    const auto rows = static_cast<std::size_t>(std::max<std::int64_t>(m_format.height, 1));
    const std::size_t row = std::max<std::size_t>(m_image.size() / rows, 1);
    for (std::size_t i = 0; i < m_image.size(); ++i) {
        m_image[i] = static_cast<std::uint8_t>(i % row + i / row + number);
    }
}

FrameSource::Outcome SimulatedFrames::next(featurebrowser::ZQFrame& frame)
{
    const Clock::time_point due = m_start + m_period * static_cast<std::int64_t>(m_number + 1);
    const Clock::time_point now = Clock::now();
    if (due - now > longestWait) {
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
    ++m_number;
    const Clock::time_point taken = m_start + m_period * static_cast<std::int64_t>(m_number);
    frame.timestampNs = static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::nanoseconds>(taken.time_since_epoch()).count());
    return Outcome::Complete;
}

} // namespace zqcameralib
