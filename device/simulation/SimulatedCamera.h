// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "memory/CameraBehaviour.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string_view>

namespace zqcameralib {

/// Running time since any fixed moment.
using CameraClock = std::function<std::chrono::nanoseconds()>;

/// GenICam description (XML) of the built-in simulated area-scan camera. All its registers lie
/// below 64 KB and those that Aravis' fake camera obeys stand at that camera's addresses, so that
/// the description can be served over GigE Vision as well.
std::string_view simulatedCameraDescription();

/// What the simulated camera does in process: power-up values, commands, user sets, values that
/// follow others, and readings that change by themselves. `clock` drives the running time,
/// the temperatures and the supply voltage; without one it is the system's.
std::unique_ptr<CameraBehaviour> makeSimulatedCameraBehaviour(CameraClock clock = {});

} // namespace zqcameralib
