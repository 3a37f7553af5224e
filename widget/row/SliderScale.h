// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/RowValue.h"

namespace featurebrowser {

/// Maps the positions 0..steps of a slider to values and back, linearly or logarithmically.
class SliderScale {
public:
    SliderScale() = default;
    SliderScale(const FloatValue& limits, bool logarithmic, int steps);

    /// False when the limits are no finite range: there is nothing to slide over.
    bool isUsable() const { return m_usable; }
    int steps() const { return m_steps; }
    /// A value of few digits within half a step of the position, on the increment's grid, within
    /// the limits.
    double valueAt(int position) const;
    /// The position nearest to a value; values outside the limits are at the ends.
    int positionOf(double value) const;

private:
    double exactAt(double position) const;

    FloatValue m_limits;
    bool m_usable = false;
    bool m_logarithmic = false; ///< only when the whole range is positive
    int m_steps = 1000;
};

} // namespace featurebrowser
