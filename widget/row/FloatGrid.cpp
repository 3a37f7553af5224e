// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "row/FloatGrid.h"

#include "featurebrowser/CameraFeatureBrowser.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <limits>

namespace featurebrowser {

namespace {

// Of a step: as near as this a value is at a point that binary fractions, or a camera that counts
// in single precision, have moved.
constexpr double tolerance = 1e-3;
// Cameras give the limits of their number format where they have none.
constexpr double mostPoints = 1e15;

struct Grid {
    double base = 0;
    double increment = 0;
    double first = 0; ///< count of increments from the base
    double last = 0;
};

FloatValue withoutNan(FloatValue limits)
{
    if (std::isnan(limits.minimum)) {
        limits.minimum = -std::numeric_limits<double>::infinity();
    }
    if (std::isnan(limits.maximum)) {
        limits.maximum = std::numeric_limits<double>::infinity();
    }
    return limits;
}

bool hasGrid(const FloatValue& limits)
{
    return limits.increment > 0 && std::isfinite(limits.increment);
}

Grid gridOf(const FloatValue& limits)
{
    const double increment = limits.increment;
    const double base = std::fabs(limits.minimum) / increment < mostPoints ? limits.minimum : 0;
    const double first = std::ceil((limits.minimum - base) / increment - tolerance);
    const double last = std::floor((limits.maximum - base) / increment + tolerance);
    return { base, increment, first, std::max(first, last) };
}

// Of the digits that single precision can hold: the others are none of the camera's.
int decimalsOf(double value)
{
    return getNumberOfDecimals(QString::number(value, 'g', 7).toDouble());
}

// Rounded to the decimals of the increment and the minimum, as long as that stays at the point.
double roundPointOf(const Grid& grid, double count)
{
    const double exact = grid.base + std::clamp(count, grid.first, grid.last) * grid.increment;
    const int decimals = std::max(decimalsOf(grid.increment), decimalsOf(grid.base));
    const double rounded = QString::number(exact, 'f', decimals).toDouble();
    return std::fabs(rounded - exact) < tolerance * grid.increment
        ? rounded
        : QString::number(exact, 'g', 15).toDouble();
}

// Rounding could lead out of limits that are no round numbers.
double pointOf(const FloatValue& limits, const Grid& grid, double count)
{
    return std::clamp(roundPointOf(grid, count), limits.minimum, limits.maximum);
}

// The count of the point that is `steps` from a place between or at the points.
double steppedCount(double place, int steps)
{
    const double nearest = std::round(place);
    if (std::fabs(place - nearest) < tolerance) {
        return nearest + steps;
    }
    return (steps > 0 ? std::floor(place) : std::ceil(place)) + steps;
}

int floorOfLog10(double value)
{
    return static_cast<int>(std::floor(std::log10(value) + 1e-9));
}

// At a power of ten the way towards zero leads through the decade below, so that every step up can
// be taken back by one down.
int decadeStep(double value, bool up)
{
    if (value == 0) {
        return -1;
    }
    const int decade = floorOfLog10(std::fabs(value));
    const bool isPower = std::fabs(std::fabs(value) / std::pow(10.0, decade) - 1) < 1e-9;
    const bool isTowardsZero = (value > 0) != up;
    return std::max(decade - (isPower && isTowardsZero ? 2 : 1), -300);
}

// As a power of ten.
int stepExponent(double value, bool up, const FloatValue& limits, bool logarithmic)
{
    const double range = limits.maximum - limits.minimum;
    const bool isBounded = range < mostPoints;
    const bool isByDecade = logarithmic && limits.minimum >= 0 && value != 0;
    return isBounded && !isByDecade ? floorOfLog10(range / 100) : decadeStep(value, up);
}

// Built from decimal digits: exactly the number that its text shows.
double nextRound(double value, bool up, int exponent)
{
    const double count = steppedCount(value / std::pow(10.0, exponent), up ? 1 : -1);
    return QStringLiteral("%1e%2").arg(count, 0, 'f', 0).arg(exponent).toDouble();
}

} // namespace

double steppedFloat(double value, int steps, const FloatValue& limits, bool logarithmic)
{
    const FloatValue known = withoutNan(limits);
    if (known.maximum <= known.minimum || steps == 0 || !std::isfinite(value)) {
        return value;
    }
    const double inside = std::clamp(value, known.minimum, known.maximum);
    if (inside != value) {
        return onFloatGrid(inside, known);
    }
    if (hasGrid(known)) {
        const Grid grid = gridOf(known);
        return pointOf(known, grid, steppedCount((value - grid.base) / grid.increment, steps));
    }
    for (int left = std::abs(steps); left > 0; --left) {
        const int exponent = stepExponent(value, steps > 0, known, logarithmic);
        value = std::clamp(nextRound(value, steps > 0, exponent), known.minimum, known.maximum);
    }
    return value;
}

double onFloatGrid(double value, const FloatValue& limits)
{
    const FloatValue known = withoutNan(limits);
    if (!hasGrid(known) || !std::isfinite(value)) {
        return value;
    }
    const Grid grid = gridOf(known);
    return pointOf(known, grid, std::round((value - grid.base) / grid.increment));
}

} // namespace featurebrowser
