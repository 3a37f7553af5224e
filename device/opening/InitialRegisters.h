// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "memory/RegisterMemory.h"

namespace zqcameralib {

/// Gives registers of a camera of which nothing but the description is known values that make
/// features implemented and available, give enumerations entries to choose from, and lock nothing,
/// as far as features do not contradict each other. All other registers stay zero.
void chooseInitialRegisters(ZQCamera::Impl& camera, RegisterMemory& memory);

} // namespace zqcameralib
