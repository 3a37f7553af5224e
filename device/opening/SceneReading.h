// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "scene/SceneSettings.h"

namespace zqcameralib {

/// What a simulated camera's images follow, by the names of the standard (SFNC) and their older
/// forms. What the camera does not have, or what cannot be read, is left at its default. Sends
/// nothing.
SceneSettings readScene(ZQCamera::Impl& camera);

} // namespace zqcameralib
