// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"
#include "words/Words.h"

#include <string>

namespace zqcameralib {

/// Why a node cannot be evaluated, as far as it and the nodes that it names tell: a register
/// without a port or of impossible size, no value, formulas beyond bounds, references to nothing or
/// to what is no such value. Empty when nothing is wrong.
Words nodeFault(const Description& description, const DescriptionNode& node);

} // namespace zqcameralib
