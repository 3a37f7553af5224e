// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/StatusCodes.h"
#include "nodemap/NodeMapFacts.h"
#include "nodemap/RegisterCodec.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <utility>

namespace zqcameralib {

namespace {

Number halfway(const Number& a, const Number& b)
{
    if (a.isReal || b.isReal) {
        return Number::of(a.asReal() / 2 + b.asReal() / 2);
    }
    return Number::of(a.integer / 2 + b.integer / 2 + (a.integer % 2 + b.integer % 2) / 2);
}

/// A formula that turns round somewhere gives values beyond those of both ends.
bool isBeyond(const std::optional<Number>& value, const Limits& ends)
{
    if (!value || !ends.minimum || !ends.maximum) {
        return false;
    }
    const auto [least, most] = std::minmax(*ends.minimum, *ends.maximum);
    return *value < least || most < *value;
}

} // namespace

Result<Limits> NodeMap::limits(std::size_t index)
{
    const Visit visit(*this);
    if (Status status = visit.status(); !status.isOk()) {
        return status;
    }
    return node(index).isBroken() ? Status(notEvaluable, node(index).broken) : limitsOf(index);
}

Result<Limits> NodeMap::limitsOf(std::size_t index)
{
    const NodeKind kind = node(index).kind;
    if (kind == NodeKind::Integer || kind == NodeKind::Float) {
        return ownLimits(index);
    }
    if (isConverter(kind)) {
        const Result<std::size_t> raw = source(index);
        if (!raw.isOk()) {
            return raw.status();
        }
        const Result<Limits> limits = this->limits(raw.value());
        return limits.isOk() ? Result<Limits>(converterLimits(index, limits.value())) : limits;
    }
    if (isIntegerRegister(kind) || kind == NodeKind::FloatReg) {
        return registerLimits(index);
    }
    if (kind == NodeKind::Boolean) {
        return Limits { Number::of(std::int64_t(0)), Number::of(std::int64_t(1)), std::nullopt };
    }
    return kind == NodeKind::Enumeration ? entryLimits(index) : Limits {};
}

/// From the lowest to the highest value of its entries.
Limits NodeMap::entryLimits(std::size_t enumeration) const
{
    Limits limits;
    for (const pugi::xml_node& entry : node(enumeration).element.children("EnumEntry")) {
        const std::string_view text = childText(entry, "Value");
        const auto value = parseNumber(text);
        if (value) {
            limits.minimum = limits.minimum ? std::min(*limits.minimum, *value) : *value;
            limits.maximum = limits.maximum ? std::max(*limits.maximum, *value) : *value;
        }
    }
    return limits;
}

/// What the node says itself goes before what its source says.
Result<Limits> NodeMap::ownLimits(std::size_t index)
{
    const ValueFacts& facts = valueFactsOf(index);
    const bool isInteger = node(index).kind == NodeKind::Integer;
    Limits limits;
    const Result<std::size_t> source = this->source(index);
    if (!source.isOk()) {
        return source.status();
    }
    if (source.value() != Description::absent) {
        Result<Limits> inherited = this->limits(source.value());
        if (!inherited.isOk()) {
            return inherited;
        }
        limits = inherited.value();
    }
    for (const auto& [given, limit] :
        { std::pair(&facts.minimum, &limits.minimum), std::pair(&facts.maximum, &limits.maximum),
            std::pair(&facts.increment, &limits.increment) }) {
        if (!given->isGiven()) {
            continue;
        }
        const Result<Number> value = sourceNumber(*given, !isInteger);
        if (!value.isOk()) {
            return value.status();
        }
        *limit = value.value();
    }
    return limits;
}

Result<Limits> NodeMap::registerLimits(std::size_t index)
{
    const Result<std::size_t> size = readLength(index);
    if (!size.isOk()) {
        return size.status();
    }
    Limits limits;
    if (node(index).kind == NodeKind::FloatReg) {
        const double most = size.value() == sizeof(float) ? double(FLT_MAX) : DBL_MAX;
        limits.minimum = Number::of(-most);
        limits.maximum = Number::of(most);
    } else if (holdsInteger(registerFactsOf(index), size.value())) {
        const IntegerRange range = integerRange(registerFactsOf(index), size.value());
        limits.minimum = Number::of(range.minimum);
        limits.maximum = Number::of(range.maximum);
    }
    return limits;
}

/// A raw limit that the formula gives no value for, as 1/x for 0, limits nothing.
Limits NodeMap::converterLimits(std::size_t converter, const Limits& raw)
{
    const std::string_view slope = childText(node(converter).element, "Slope");
    if (slope == "Varying") {
        return {};
    }
    const auto converted = [&](const std::optional<Number>& limit) -> std::optional<Number> {
        // What any float fits into is no limit.
        if (!limit || (limit->isReal && std::fabs(limit->real) >= double(FLT_MAX))) {
            return std::nullopt;
        }
        const Result<Number> value
            = evaluated(converter, FormulaProgram::Entry::FromRegister, *limit);
        return value.isOk() ? std::optional(value.value()) : std::nullopt;
    };
    Limits limits { converted(raw.minimum), converted(raw.maximum), std::nullopt };
    const bool isTold = slope == "Increasing" || slope == "Decreasing";
    if (!isTold && raw.minimum && raw.maximum
        && isBeyond(converted(halfway(*raw.minimum, *raw.maximum)), limits)) {
        return {};
    }
    const bool isSwapped
        = slope == "Decreasing" || (slope != "Increasing" && isFalling(converter, raw, limits));
    if (isSwapped) {
        std::swap(limits.minimum, limits.maximum);
    }
    return limits;
}

/// Whether larger raw values give smaller ones. `converted`: those of the raw minimum and maximum.
bool NodeMap::isFalling(std::size_t converter, const Limits& raw, const Limits& converted)
{
    if (converted.minimum && converted.maximum) {
        return *converted.maximum < *converted.minimum;
    }
    if (!converted.minimum && !converted.maximum) {
        return false;
    }
    // One end is known: the value beside it shows the direction.
    const bool isAtTop = converted.maximum.has_value();
    const Number& end = isAtTop ? *raw.maximum : *raw.minimum;
    const double beside = end.asReal() + (isAtTop ? -1e-3 : 1e-3);
    const auto next = static_cast<std::int64_t>(
        static_cast<std::uint64_t>(end.integer) + (isAtTop ? -1ULL : 1ULL));
    const Number probe = end.isReal ? Number::of(beside) : Number::of(next);
    const Result<Number> value = evaluated(converter, FormulaProgram::Entry::FromRegister, probe);
    if (!value.isOk()) {
        return false;
    }
    return isAtTop ? *converted.maximum < value.value() : value.value() < *converted.minimum;
}

} // namespace zqcameralib
