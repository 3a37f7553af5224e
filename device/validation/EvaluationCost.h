// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"

#include <cstdint>

namespace zqcameralib {

/// Marks as broken what needs a broken node for its value, what depends on itself, and what takes
/// too many visits of nodes, or too long a chain of them, to evaluate. Returns the visits that
/// evaluating all features once takes: values, limits and conditions.
std::uint64_t markUnevaluable(Description& description);

} // namespace zqcameralib
