// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "capture/SelectorPositions.h"

#include "featurebrowser/ZQSettings.h"

#include <vector>

namespace zqcameralib {

/// What a line of settings means on a camera.
struct LineTarget {
    std::size_t line = 0; ///< index of the line
    const Feature* feature = nullptr;
    SelectorPath path;
};

/// A failure says why the line means nothing here: unknownFeature, unknownEntry, or another code
/// where the value cannot be one of this feature.
Result<LineTarget> lineTarget(
    const ZQCamera::Impl& camera, const ZQSettings& settings, std::size_t line);

/// In an order in which selectors move little: by their positions, in the order of the first line
/// that names them.
void sortByPositions(std::vector<LineTarget>& targets);

/// The line that a value read from the camera makes.
ZQSettingsLine lineOf(const Description& description, const Feature& feature,
    const SelectorPath& path, std::string value);

} // namespace zqcameralib
