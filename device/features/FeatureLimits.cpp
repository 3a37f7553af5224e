// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "features/FeatureLimits.h"

#include "base/NumberText.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace zqcameralib {

Result<IntegerLimits> integerLimits(NodeMap& nodes, const Feature& feature)
{
    const Result<Limits> given = nodes.limits(feature.index);
    if (!given.isOk()) {
        return given.status();
    }
    IntegerLimits limits;
    const auto take = [](const std::optional<Number>& number, std::int64_t& limit) {
        limit = number ? number->rounded().value_or(limit) : limit;
    };
    take(given.value().minimum, limits.minimum);
    take(given.value().maximum, limits.maximum);
    take(given.value().increment, limits.increment);
    return limits;
}

Result<FloatLimits> floatLimits(NodeMap& nodes, const Feature& feature)
{
    const Result<Limits> given = nodes.limits(feature.index);
    if (!given.isOk()) {
        return given.status();
    }
    const auto number = [](const std::optional<Number>& limit, double whenNone) {
        return limit ? limit->asReal() : whenNone;
    };
    FloatLimits limits;
    limits.minimum = finiteMinimum(number(given.value().minimum, -DBL_MAX));
    limits.maximum = finiteMaximum(number(given.value().maximum, DBL_MAX));
    const double increment = number(given.value().increment, 0.0);
    limits.increment = std::isfinite(increment) ? std::max(increment, 0.0) : 0.0;
    return limits;
}

Result<std::uint32_t> maxTextLength(NodeMap& nodes, const Feature& feature)
{
    if (feature.textRegister == Description::absent) {
        return 0U;
    }
    const Result<std::size_t> length = nodes.length(feature.textRegister);
    return length.isOk() ? Result<std::uint32_t>(static_cast<std::uint32_t>(length.value()))
                         : length.status();
}

bool isInValueSet(const DescriptionNode& node, std::int64_t value)
{
    const std::string_view list = childText(node.element, "ValidValueSet");
    for (std::size_t at = 0; at <= list.size();) {
        const std::size_t end = std::min(list.find(';', at), list.size());
        if (leadingInteger(list.substr(at, end - at)) == value) {
            return true;
        }
        at = end + 1;
    }
    return list.empty();
}

} // namespace zqcameralib
