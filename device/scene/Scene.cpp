// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "scene/Scene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace zqcameralib {

namespace {

constexpr std::int64_t pitch = Scene::pitch;
constexpr float paper = 0.8F;
constexpr float ink = 0.04F;
constexpr float shade = 0.5F; ///< light lost across the whole sensor

// The belt of each row of charts.
constexpr std::int64_t beltTop = 280;
constexpr std::int64_t beltBottom = 328;
constexpr std::int64_t beltMiddle = (beltTop + beltBottom) / 2;
constexpr std::int64_t ballRadius = 20;
constexpr std::int64_t ballDistance = 128;
constexpr std::int64_t ballMiddle = ballDistance / 2;
constexpr std::uint64_t ballStep = 4; ///< pixels a frame

struct Area {
    std::int64_t left, top, right, bottom;

    bool has(std::int64_t x, std::int64_t y) const
    {
        return x >= left && x < right && y >= top && y < bottom;
    }
};

constexpr Area sheet { 16, 16, 496, 496 };
constexpr Area patches { 40, 40, 472, 264 };
constexpr Area star { 40, 344, 184, 480 };
constexpr Area bars { 200, 344, 472, 392 };
constexpr Area ramp { 200, 404, 472, 436 };
constexpr Area board { 200, 448, 472, 480 };

Light grey(float level)
{
    return { level, level, level };
}

Light mixed(const Light& one, const Light& other, float share)
{
    return { one.red + (other.red - one.red) * share, one.green + (other.green - one.green) * share,
        one.blue + (other.blue - one.blue) * share };
}

/// One of six colours around the circle.
Light hue(std::int64_t index)
{
    static constexpr std::array<Light, 6> hues { { { 0.7F, 0.05F, 0.05F }, { 0.75F, 0.65F, 0.05F },
        { 0.06F, 0.55F, 0.1F }, { 0.05F, 0.55F, 0.65F }, { 0.06F, 0.1F, 0.6F },
        { 0.6F, 0.06F, 0.5F } } };
    return hues.at(static_cast<std::size_t>(index));
}

/// Six colours strong, pale and dark, and six greys.
Light patchAt(std::int64_t x, std::int64_t y)
{
    constexpr std::int64_t width = 72;
    constexpr std::int64_t height = 56;
    constexpr std::int64_t gap = 4;
    static constexpr std::array<float, 6> greys { 0.8F, 0.5F, 0.3F, 0.17F, 0.08F, 0.03F };
    const std::int64_t column = x / width;
    const bool isInside = Area { gap, gap, width - gap, height - gap }.has(x % width, y % height);
    if (!isInside) {
        return grey(ink);
    }
    switch (y / height) {
    case 0:
        return hue(column);
    case 1:
        return mixed(hue(column), grey(paper), 0.6F);
    case 2:
        return mixed(hue(column), grey(0.0F), 0.65F);
    default:
        return grey(greys.at(static_cast<std::size_t>(column)));
    }
}

Light starAt(std::int64_t x, std::int64_t y)
{
    constexpr double spokes = 36.0;
    constexpr double radius = 66.0;
    const auto dx = static_cast<double>(x) - 71.5;
    const auto dy = static_cast<double>(y) - 67.5;
    const bool isSpoke = std::sin(std::atan2(dy, dx) * spokes) > 0.0;
    return grey(std::hypot(dx, dy) > radius || isSpoke ? paper : ink);
}

/// Upright bars of 8, 4, 2 and 1 pixels.
Light barAt(std::int64_t x)
{
    constexpr std::int64_t group = (bars.right - bars.left) / 4;
    const std::int64_t width = 8 >> (x / group);
    return grey(x % group / width % 2 == 0 ? ink : paper);
}

Light chartAt(std::int64_t x, std::int64_t y)
{
    if (patches.has(x, y)) {
        return patchAt(x - patches.left, y - patches.top);
    }
    if (star.has(x, y)) {
        return starAt(x - star.left, y - star.top);
    }
    if (bars.has(x, y)) {
        return barAt(x - bars.left);
    }
    if (ramp.has(x, y)) {
        return grey(paper * static_cast<float>(x - ramp.left) / float(ramp.right - ramp.left));
    }
    if (board.has(x, y)) {
        return grey((x / 8 + y / 8) % 2 == 0 ? ink : paper);
    }
    constexpr Light bench { 0.36F, 0.3F, 0.24F };
    return sheet.has(x, y) ? grey(paper) : bench;
}

/// All that does not move, drawn when it is first needed.
const std::vector<Light>& chart()
{
    static const std::vector<Light> drawn = [] {
        std::vector<Light> lights;
        lights.reserve(static_cast<std::size_t>(pitch * pitch));
        for (std::int64_t y = 0; y < pitch; ++y) {
            for (std::int64_t x = 0; x < pitch; ++x) {
                lights.push_back(chartAt(x, y));
            }
        }
        return lights;
    }();
    return drawn;
}

std::int64_t within(std::int64_t value, std::int64_t period)
{
    const std::int64_t rest = value % period;
    return rest < 0 ? rest + period : rest;
}

Light beltAt(std::int64_t x, std::int64_t y, std::uint64_t frame)
{
    constexpr std::int64_t lap = 4 * ballDistance;
    const auto moved = static_cast<std::int64_t>(frame * ballStep % std::uint64_t(lap));
    const std::int64_t onBelt = within(x - moved, lap);
    const auto dx = static_cast<float>(onBelt % ballDistance - ballMiddle);
    const auto dy = static_cast<float>(y - beltMiddle);
    const float inside = 1.0F - (dx * dx + dy * dy) / float(ballRadius * ballRadius);
    if (inside <= 0.0F) {
        return grey(onBelt % 16 == 0 ? 0.14F : 0.1F);
    }
    // Lit from the upper left.
    const float facing = std::sqrt(inside) * 0.6F - (dx + dy) / float(ballRadius) * 0.4F;
    const float bright = 0.2F + 0.8F * std::clamp(facing, 0.0F, 1.0F);
    return mixed(grey(0.0F), mixed(hue(onBelt / ballDistance), grey(1.0F), 0.15F), bright);
}

} // namespace

Scene::Scene(std::int64_t width, std::int64_t height)
    : m_perColumn(shade / 2.0F / static_cast<float>(std::max<std::int64_t>(width, 1)))
    , m_perRow(shade / 2.0F / static_cast<float>(std::max<std::int64_t>(height, 1)))
{
}

bool Scene::isMoving(std::int64_t y)
{
    const std::int64_t row = within(y, pitch);
    return row >= beltTop && row < beltBottom;
}

Light Scene::at(std::int64_t x, std::int64_t y, std::uint64_t frame) const
{
    const std::int64_t column = within(x, pitch);
    const std::int64_t row = within(y, pitch);
    const Light light = isMoving(row) ? beltAt(x, row, frame)
                                      : chart()[static_cast<std::size_t>(row * pitch + column)];
    const float lamp = std::clamp(
        1.0F - static_cast<float>(x) * m_perColumn - static_cast<float>(y) * m_perRow, 0.0F, 1.0F);
    return { light.red * lamp, light.green * lamp, light.blue * lamp };
}

} // namespace zqcameralib
