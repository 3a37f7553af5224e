#pragma once

#include "frames/FrameSource.h"

#include <vector>

namespace zqcameralib {

/// Moving images of a camera that exists in process only, at its frame rate, or ten a second when
/// it tells none. They have as many rows as the payload holds.
class SimulatedFrames : public FrameSource {
public:
    explicit SimulatedFrames(const ImageFormat& format);

    Outcome next(featurebrowser::ZQFrame& frame) override;
    std::uint64_t lost() const override { return m_lost; }

private:
    using Clock = std::chrono::steady_clock;

    void draw(std::uint64_t number);

    ImageFormat m_format;
    Clock::duration m_period;
    Clock::time_point m_start;
    std::uint64_t m_number = 0; ///< of the next frame
    std::uint64_t m_lost = 0;
    std::vector<std::uint8_t> m_image;
};

} // namespace zqcameralib
