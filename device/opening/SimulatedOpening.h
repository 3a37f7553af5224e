#pragma once

#include "camera/Camera.h"
#include "memory/CameraBehaviour.h"

#include <memory>
#include <string>

namespace zqcameralib {

/// Opens a description as a camera over a memory of its own, with a behaviour of its own. Null and
/// one line in `error` on failure.
std::unique_ptr<ZQCamera::Impl> openSimulated(
    std::string text, std::unique_ptr<CameraBehaviour> behaviour, std::string& error);

/// The same for a description of which nothing else is known: registers that decide whether
/// features are implemented or available start at values that make them so.
std::unique_ptr<ZQCamera::Impl> openDescription(std::string text, std::string& error);

} // namespace zqcameralib
