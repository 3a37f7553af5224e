// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "frames/FrameChunks.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zqcameralib {

/// What a camera's test pattern shows instead of the scene.
enum class TestPattern : std::uint8_t {
    Off,
    Black,
    White,
    HorizontalRamp,
    VerticalRamp,
    DiagonalRamp,
    HorizontalLine,
    VerticalLine,
    ColorBar,
    FrameCounter,
};

/// One direction of the image sensor: which of its pixels are seen, and how.
struct SceneAxis {
    std::int64_t sensor = 0; ///< pixels of the sensor; 0: no more than are seen
    std::int64_t offset = 0; ///< of the region, in pixels of the image
    std::int64_t binning = 1; ///< pixels of the sensor that make one of the image
    std::int64_t step = 1; ///< from one pixel of the image to the next on the sensor
    bool isSummed = false; ///< binning adds instead of averaging
    bool isReversed = false;
};

/// Rows that follow each other on the sensor, in pixels of the image.
struct SceneBand {
    std::int64_t top = 0;
    std::int64_t rows = 0;
};

/// What starts frames beside the clock.
struct SceneTrigger {
    bool isAwaited = false;
    bool isSoftware = false; ///< TriggerSoftware is what it waits for
    bool isSelected = true; ///< TriggerSoftware is for this trigger at present
    std::uint64_t frames = 1; ///< that one trigger starts; 0: all
    std::string source; ///< as the camera names it
};

/// The settings of a simulated camera that its images follow, apart from their size and format. By
/// default the whole scene is well lit.
struct SceneSettings {
    SceneAxis x, y;
    std::vector<SceneBand> bands; ///< what the image consists of, instead of one region
    double gain = 1.0; ///< factor of the light, exposure time and gain together
    double black = 0.0; ///< added, as a share of the brightest value
    /// The same once more for red, green and blue, where colours are told apart.
    std::array<double, 3> colourGain { 1.0, 1.0, 1.0 };
    std::array<double, 3> colourBlack {};
    double gamma = 1.0;
    TestPattern pattern = TestPattern::Off;
    bool isPatternMoving = false;
    /// What follows the image in its payload is data of other kinds, and not handed out.
    bool hasChunks = false;
    std::shared_ptr<FrameChunks> chunks; ///< that are handed out instead; may be null
    double framesPerSecond = 0.0; ///< 0: as at the start
    SceneTrigger trigger;
};

} // namespace zqcameralib
