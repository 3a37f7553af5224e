// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "scene/Picture.h"

#include "frames/FrameSize.h"
#include "scene/TestPattern.h"

#include <algorithm>
#include <cmath>

namespace zqcameralib {

namespace {

std::vector<std::int64_t> beginnings(const SceneAxis& axis, std::int64_t length)
{
    const std::int64_t step = std::max<std::int64_t>(axis.step, 1);
    // Reversed is the whole sensor, and the region lies on that.
    const std::int64_t last = std::max(axis.sensor / step, axis.offset + length) - 1;
    std::vector<std::int64_t> begins;
    begins.reserve(static_cast<std::size_t>(std::max<std::int64_t>(length, 0)));
    for (std::int64_t i = 0; i < length; ++i) {
        const std::int64_t at = axis.offset + i;
        begins.push_back((axis.isReversed ? last - at : at) * step);
    }
    return begins;
}

/// The rows of the region that show the bands one below the other.
void showBands(const std::vector<SceneBand>& bands, std::vector<std::int64_t>& rows, SceneAxis axis)
{
    std::size_t at = 0;
    for (const SceneBand& band : bands) {
        const auto left = static_cast<std::int64_t>(rows.size() - at);
        axis.offset = band.top;
        for (const std::int64_t row : beginnings(axis, std::min(band.rows, left))) {
            rows[at++] = row;
        }
    }
}

std::int64_t seenSensor(const SceneAxis& axis, std::int64_t length)
{
    return std::max(axis.sensor, (axis.offset + length) * axis.step);
}

} // namespace

Picture::Picture(const ImageFormat& format)
    : m_format(format)
    , m_writer(format.pixelFormat, format.width)
    , m_scene(0, 0)
    , m_image(format.payload)
{
    m_format.height = rowsWithin(m_image.size(), format.width, format.height, format.pixelFormat);
    use({});
}

void Picture::use(const SceneSettings& settings)
{
    m_settings = settings;
    m_columns = beginnings(settings.x, m_format.width);
    m_rows = beginnings(settings.y, m_format.height);
    showBands(settings.bands, m_rows, settings.y);
    m_scene
        = Scene(seenSensor(settings.x, m_format.width), seenSensor(settings.y, m_format.height));
    m_isDrawn = false;
}

const std::vector<std::uint8_t>& Picture::take(std::uint64_t number)
{
    for (std::int64_t row = 0; row < m_format.height; ++row) {
        if (!m_isDrawn || isMoving(row)) {
            drawRow(row, number);
        }
    }
    m_isDrawn = true;
    return m_image;
}

bool Picture::isMoving(std::int64_t row) const
{
    if (m_settings.pattern != TestPattern::Off) {
        return m_settings.isPatternMoving || m_settings.pattern == TestPattern::FrameCounter;
    }
    const std::int64_t top = m_rows[static_cast<std::size_t>(row)];
    return Scene::isMoving(top) || Scene::isMoving(top + m_settings.y.binning - 1);
}

void Picture::drawRow(std::int64_t row, std::uint64_t number)
{
    const std::int64_t top = m_rows[static_cast<std::size_t>(row)];
    for (std::int64_t column = 0; column < m_format.width; ++column) {
        const Levels levels = m_settings.pattern != TestPattern::Off
            ? patternAt(column, row, number)
            : levelsOf(lightAt(m_columns[static_cast<std::size_t>(column)], top, number));
        m_writer.put(m_image.data(), m_image.size(), column, row, levels);
    }
}

Levels Picture::patternAt(std::int64_t column, std::int64_t row, std::uint64_t number) const
{
    return patternLevels(m_settings.pattern, { column, row, m_format.width, m_format.height },
        m_settings.isPatternMoving ? number : 0, number);
}

/// Of the pixels of the sensor that are binned.
Light Picture::lightAt(std::int64_t left, std::int64_t top, std::uint64_t number) const
{
    const SceneAxis& x = m_settings.x;
    const SceneAxis& y = m_settings.y;
    if (x.binning * y.binning == 1) {
        return m_scene.at(left, top, number);
    }
    Light sum;
    for (std::int64_t row = top; row < top + y.binning; ++row) {
        for (std::int64_t column = left; column < left + x.binning; ++column) {
            const Light light = m_scene.at(column, row, number);
            sum = { sum.red + light.red, sum.green + light.green, sum.blue + light.blue };
        }
    }
    const auto averaged
        = static_cast<float>((x.isSummed ? 1 : x.binning) * (y.isSummed ? 1 : y.binning));
    return { sum.red / averaged, sum.green / averaged, sum.blue / averaged };
}

std::uint16_t Picture::level(double filled) const
{
    const double kept = std::clamp(filled, 0.0, 1.0);
    const double shown = m_settings.gamma == 1.0 ? kept : std::pow(kept, m_settings.gamma);
    return static_cast<std::uint16_t>(std::lround(shown * 65535.0));
}

Levels Picture::levelsOf(const Light& light) const
{
    const auto filled
        = [this](float seen) { return double(seen) * m_settings.gain + m_settings.black; };
    Levels levels;
    if (m_writer.isGrey()) {
        levels.grey
            = level(filled(0.299F * light.red + 0.587F * light.green + 0.114F * light.blue));
        return levels;
    }
    const auto& gain = m_settings.colourGain;
    const auto& black = m_settings.colourBlack;
    levels.red = level(filled(light.red) * gain[0] + black[0]);
    levels.green = level(filled(light.green) * gain[1] + black[1]);
    levels.blue = level(filled(light.blue) * gain[2] + black[2]);
    return levels;
}

} // namespace zqcameralib
