// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "memory/RegisterMemory.h"

namespace zqcameralib {

/// Sets registers of a camera of which nothing but the description is known so that it can take an
/// image: sides of the sensor and of the image, binning and decimation, and a pixel format, where
/// they say nothing possible. `memory` holds its registers.
void chooseInitialImage(ZQCamera::Impl& camera, RegisterMemory& memory);

} // namespace zqcameralib
