// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "session/CameraPlace.h"

#include "featurebrowser/ZQCamera.h"

#include <string>
#include <vector>

namespace zqcameralib {

/// Searches the interfaces named, all for none; see ZQDiscovery::discover.
std::vector<CameraInfo> discoverCameras(const std::vector<std::string>& interfaces);

/// Where the camera `id` is: an IPv4 address is one itself; any other id is looked up in what was
/// discovered last, and discovered when it is not there. False and one line in `error` when there
/// is none, or none that can be reached.
bool findCamera(const std::string& id, CameraPlace& place, std::string& error);

} // namespace zqcameralib
