// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"
#include "program/CommandLine.h"

namespace zqviewer {

/// Carries the actions out, one after the other, and prints what is asked for. At the first one
/// that fails it says why in one line on standard error, and leaves the rest. Returns the program's
/// exit status.
int runActions(const CommandLine& options, OpenedCamera& camera);

} // namespace zqviewer
