// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"

#include <string>

namespace zqcameralib {

/// Looks over a description before anything in it is evaluated, because evaluating what is broken
/// can crash or never end. Nodes that cannot be evaluated are marked broken, with the reason:
/// references to nothing or, in the end, to themselves, formulas and chains beyond all bounds,
/// registers of impossible size. False, with one line in `error`, when the description as a whole
/// is beyond bounds.
bool checkDescription(Description& description, std::string& error);

} // namespace zqcameralib
