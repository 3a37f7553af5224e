// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/RowValue.h"

namespace featurebrowser {

/// The value `steps` points above (below, when negative) `value`, never beyond the limits. With an
/// increment the points are minimum + k * increment, and the last one below the maximum is the end.
/// Without one they are round numbers: multiples of the largest power of ten that is at most a
/// hundredth of the range, or, when `logarithmic` or without two limits, a tenth of the value's own
/// decade. From between two points the first step goes to the next one, from outside the limits
/// back to the limit.
double steppedFloat(double value, int steps, const FloatValue& limits, bool logarithmic);

/// The point of the increment's grid that is nearest to `value`, within the limits; `value` itself
/// when there is no increment.
double onFloatGrid(double value, const FloatValue& limits);

} // namespace featurebrowser
