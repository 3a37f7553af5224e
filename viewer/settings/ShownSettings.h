// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"

#include "featurebrowser/ZQSettings.h"

namespace zqviewer {

/// What the browser shows, without asking the camera: every setting as it was read last, at the
/// present positions of its selectors.
zqcameralib::ZQSettings shownSettings(OpenedCamera& camera);

} // namespace zqviewer
