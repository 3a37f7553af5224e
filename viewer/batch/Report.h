// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"
#include "program/CommandLine.h"

namespace zqviewer {

/// Prints what a support engineer needs: what was tried, versions, the camera with all features,
/// their states and why some cannot be read, and the description; or why there is no camera.
/// Returns the program's exit status.
int printReport(const CommandLine& options);

} // namespace zqviewer
