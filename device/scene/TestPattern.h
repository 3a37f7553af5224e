// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "scene/PixelWriter.h"
#include "scene/SceneSettings.h"

#include <string_view>

namespace zqcameralib {

/// What the entry of a camera's TestPattern, TestImageSelector or the like shows, by its name; one
/// that says nothing shows a diagonal ramp.
TestPattern testPattern(std::string_view entry);
bool isMovingPattern(std::string_view entry);

/// A place in an image.
struct PatternPlace {
    std::int64_t column, row, width, height;
};

/// `moved`: steps that it has moved by. `frame`: its number. Not for TestPattern::Off.
Levels patternLevels(
    TestPattern pattern, const PatternPlace& place, std::uint64_t moved, std::uint64_t frame);

} // namespace zqcameralib
