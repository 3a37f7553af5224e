// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "row/IntegerGrid.h"

#include <algorithm>

namespace featurebrowser {

// Distances from the minimum are unsigned, so that the whole 64-bit range can be stepped through.
qint64 steppedOnGrid(qint64 value, int steps, const IntegerValue& limits)
{
    if (limits.maximum <= limits.minimum) {
        return value;
    }
    const quint64 increment = std::max<quint32>(limits.increment, 1);
    const auto minimum = static_cast<quint64>(limits.minimum);
    const quint64 range = static_cast<quint64>(limits.maximum) - minimum;
    const quint64 lastPoint = range / increment;
    const quint64 distance
        = static_cast<quint64>(std::clamp(value, limits.minimum, limits.maximum)) - minimum;
    const bool between = distance % increment != 0;
    const bool up = steps > 0;
    auto count = static_cast<quint64>(up ? steps : -static_cast<qint64>(steps));
    quint64 point = distance / increment;
    if (between && !up && count > 0) {
        --count; // the division has made the first step down
    }
    if (value < limits.minimum || value > limits.maximum) {
        count = 0; // the first step leads back to the limit
    }
    if (up) {
        point += std::min(count, lastPoint - point);
    } else {
        point -= std::min(count, point);
    }
    return static_cast<qint64>(minimum + point * increment);
}

} // namespace featurebrowser
