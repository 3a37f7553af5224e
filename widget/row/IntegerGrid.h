// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/RowValue.h"

namespace featurebrowser {

/// The value `steps` grid points above (below, when negative) `value`, on the grid
/// minimum + k * increment and within the limits. From between two points the first step goes to
/// the next one. Never overflows.
qint64 steppedOnGrid(qint64 value, int steps, const IntegerValue& limits);

} // namespace featurebrowser
