// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"

#include <cstdint>

namespace zqcameralib {

/// The widest access (featurebrowser::ACCESS_MODE) that the description grants to a node: its own
/// access mode cut down by those of the nodes that its value passes through, or needs to be
/// calculated. What pIsAvailable and pIsLocked take away at a moment is not part of it.
std::uint16_t staticAccess(const Description& description, std::size_t node);

} // namespace zqcameralib
