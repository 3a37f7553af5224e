// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "memory/CameraBehaviour.h"

#include <memory>
#include <string>

namespace zqcameralib {

/// Opens a description as a camera over a memory of its own, with a behaviour of its own.
Result<std::unique_ptr<ZQCamera::Impl>> openSimulated(
    std::string text, std::unique_ptr<CameraBehaviour> behaviour);

/// The same for a description of which nothing else is known: registers that decide whether
/// features are implemented or available start at values that make them so.
Result<std::unique_ptr<ZQCamera::Impl>> openDescription(std::string text);

} // namespace zqcameralib
