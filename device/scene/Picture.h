// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "frames/FrameSource.h"
#include "scene/PixelWriter.h"
#include "scene/Scene.h"
#include "scene/SceneSettings.h"

#include <vector>

namespace zqcameralib {

/// A camera's images of the scene, or of a test pattern: without noise, the same for the same
/// settings and number.
class Picture {
public:
    /// Images have as many rows as the payload holds.
    explicit Picture(const ImageFormat& format);

    /// What images follow from the next one on.
    void use(const SceneSettings& settings);
    /// The image of that number; valid until the next call.
    const std::vector<std::uint8_t>& take(std::uint64_t number);
    /// Rows of the images.
    std::int64_t height() const { return m_format.height; }

private:
    bool isMoving(std::int64_t row) const;
    void drawRow(std::int64_t row, std::uint64_t number);
    Levels patternAt(std::int64_t column, std::int64_t row, std::uint64_t number) const;
    Light lightAt(std::int64_t left, std::int64_t top, std::uint64_t number) const;
    Levels levelsOf(const Light& light) const;
    std::uint16_t level(double filled) const;

    ImageFormat m_format;
    PixelWriter m_writer;
    SceneSettings m_settings;
    Scene m_scene;
    std::vector<std::int64_t> m_columns, m_rows; ///< where pixels of the image begin on the sensor
    std::vector<std::uint8_t> m_image;
    bool m_isDrawn = false; ///< all that does not move
};

} // namespace zqcameralib
