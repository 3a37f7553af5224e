// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "frames/FrameChunks.h"

#include <memory>

namespace zqcameralib {

/// The chunks that a simulated camera sends along with its images at its present settings; null
/// where it sends none.
std::shared_ptr<FrameChunks> readChunks(ZQCamera::Impl& camera);

} // namespace zqcameralib
