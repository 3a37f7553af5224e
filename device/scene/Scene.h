// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace zqcameralib {

/// Light that reaches a pixel of the sensor: 1 is what fills it at usual exposure.
struct Light {
    float red = 0.0F;
    float green = 0.0F;
    float blue = 0.0F;
};

/// What simulated cameras look at: test charts beside each other under a lamp, and a belt with
/// balls that rolls through each row of them. Only the balls move, by one step a frame.
class Scene {
public:
    /// Pixels of the sensor from one chart to the next.
    static constexpr std::int64_t pitch = 512;

    /// A sensor of this size, in pixels.
    Scene(std::int64_t width, std::int64_t height);

    Light at(std::int64_t x, std::int64_t y, std::uint64_t frame) const;
    /// Whether anything moves in this row of the sensor.
    static bool isMoving(std::int64_t y);

private:
    float m_perColumn, m_perRow; ///< darkening from the upper left to the lower right
};

} // namespace zqcameralib
