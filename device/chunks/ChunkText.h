// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "features/Feature.h"
#include "nodemap/NodeMap.h"

namespace zqcameralib {

/// The feature's value for a user, in every locale the same: entries and Booleans by their names,
/// numbers as decimals, bytes as hexadecimal digits.
Result<std::string> chunkText(NodeMap& nodes, const Feature& feature);

} // namespace zqcameralib
