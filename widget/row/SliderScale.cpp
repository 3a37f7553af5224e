// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "row/SliderScale.h"

#include "row/FloatGrid.h"

#include <algorithm>
#include <cmath>

namespace featurebrowser {

SliderScale::SliderScale(const FloatValue& limits, bool logarithmic, int steps)
    : m_limits(limits)
    , m_usable(std::isfinite(limits.maximum - limits.minimum) && limits.minimum < limits.maximum)
    , m_logarithmic(logarithmic && limits.minimum > 0)
    , m_steps(std::max(steps, 1))
{
}

double SliderScale::exactAt(double position) const
{
    const double share = position / m_steps;
    if (m_logarithmic) {
        return m_limits.minimum * std::pow(m_limits.maximum / m_limits.minimum, share);
    }
    return m_limits.minimum + (m_limits.maximum - m_limits.minimum) * share;
}

double SliderScale::valueAt(int position) const
{
    if (position <= 0) {
        return m_limits.minimum;
    }
    if (position >= m_steps) {
        return onFloatGrid(m_limits.maximum, m_limits);
    }
    double value = exactAt(position);
    const double room = (exactAt(position + 1.0) - exactAt(position - 1.0)) / 4;
    const int decimals = static_cast<int>(std::ceil(-std::log10(room)));
    const double power = std::pow(10.0, std::abs(decimals));
    value = decimals >= 0 ? std::round(value * power) / power : std::round(value / power) * power;
    return onFloatGrid(std::clamp(value, m_limits.minimum, m_limits.maximum), m_limits);
}

int SliderScale::positionOf(double value) const
{
    if (!m_usable || !(value > m_limits.minimum)) {
        return 0;
    }
    if (value >= m_limits.maximum) {
        return m_steps;
    }
    const double share = m_logarithmic
        ? std::log(value / m_limits.minimum) / std::log(m_limits.maximum / m_limits.minimum)
        : (value - m_limits.minimum) / (m_limits.maximum - m_limits.minimum);
    return static_cast<int>(std::lround(share * m_steps));
}

} // namespace featurebrowser
