// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/NumberText.h"
#include "base/StatusCodes.h"
#include "nodemap/NodeMapFacts.h"
#include "nodemap/RegisterCodec.h"
#include "words/Words.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace zqcameralib {

namespace {

std::string textOf(const Number& value)
{
    return value.isReal ? floatText(value.real) : integerText(value.integer);
}

Status doesNotFit(const Number& value)
{
    return { notConvertible,
        worded(
            "it is converted into %s, which its register does not hold", textOf(value).c_str()) };
}

std::int64_t integerOr(const std::optional<Number>& number, std::int64_t otherwise)
{
    return number ? number->rounded().value_or(otherwise) : otherwise;
}

/// The integers that a node takes: from its minimum on, or around 0 where it has none.
struct Grid {
    explicit Grid(const Limits& limits)
        : least(integerOr(limits.minimum, INT64_MIN))
        , most(integerOr(limits.maximum, INT64_MAX))
        , origin(integerOr(limits.minimum, 0))
        , step(std::max<std::int64_t>(integerOr(limits.increment, 1), 1))
    {
    }

    bool holds(std::int64_t value) const
    {
        const std::uint64_t beyond
            = static_cast<std::uint64_t>(value) - static_cast<std::uint64_t>(origin);
        return beyond % static_cast<std::uint64_t>(step) == 0;
    }

    /// `value` lies between the limits.
    std::int64_t nearest(double value) const
    {
        const double steps
            = std::clamp(std::round((value - double(origin)) / double(step)), -9.2e18, 9.2e18);
        const auto size = static_cast<std::uint64_t>(step);
        const std::uint64_t onGrid = static_cast<std::uint64_t>(origin)
            + static_cast<std::uint64_t>(static_cast<std::int64_t>(steps)) * size;
        const bool isBeyond = static_cast<std::int64_t>(onGrid) > most;
        return static_cast<std::int64_t>(isBeyond ? onGrid - size : onGrid);
    }

    std::int64_t least, most, origin, step;
};

} // namespace

Status NodeMap::check(std::size_t node, const Number& value)
{
    return put(node, value, Sending::Nothing);
}

Status NodeMap::set(std::size_t node, const Number& value)
{
    return put(node, value, Sending::Everything);
}

Status NodeMap::execute(std::size_t command)
{
    const Visit visit(*this);
    const ValueFacts& facts = valueFactsOf(command);
    const Result<Number> value = sourceNumber(facts.command);
    if (!value.isOk()) {
        return value.status();
    }
    return putSource(command, value.value(), Sending::Everything);
}

Status NodeMap::put(std::size_t index, const Number& value, Sending sending)
{
    const Visit visit(*this);
    if (Status status = visit.status(); !status.isOk()) {
        return status;
    }
    if (node(index).isBroken()) {
        return { notEvaluable, node(index).broken };
    }
    const NodeKind kind = node(index).kind;
    if (isRegister(kind)) {
        return putRegister(index, value, sending);
    }
    if (isConverter(kind)) {
        return putConverted(index, value, sending);
    }
    if (isFormula(kind)) {
        return { notWritable, translated("it is calculated") };
    }
    if (kind == NodeKind::Boolean) {
        const ValueFacts& facts = valueFactsOf(index);
        if (!(value == Number::of(std::int64_t(0))) && !(value == Number::of(std::int64_t(1)))) {
            return { notConvertible, worded("%s is neither on nor off", textOf(value).c_str()) };
        }
        return putSource(index, Number::of(value.isZero() ? facts.off : facts.on), sending);
    }
    if (kind == NodeKind::Integer && value.isReal) {
        const Result<Number> integer = onGrid(index, value);
        return integer.isOk() ? putSource(index, integer.value(), sending) : integer.status();
    }
    return putSource(index, value, sending);
}

Status NodeMap::putSource(std::size_t index, const Number& value, Sending sending)
{
    const Result<NumberSource*> selected = selectedSource(index);
    if (!selected.isOk()) {
        return selected.status();
    }
    NumberSource& target = *selected.value();
    if (target.node != Description::absent) {
        if (Status status = put(target.node, value, sending); !status.isOk()) {
            return status;
        }
    } else if (sending == Sending::Everything) {
        target.constant = value;
        m_found.clear();
    }
    for (const std::size_t copy : valueFactsOf(index).copies) {
        if (Status status = put(copy, value, sending); !status.isOk()) {
            return status;
        }
    }
    return {};
}

/// What is written back as it was read stays in the register as it is, however much a formula
/// rounds.
Status NodeMap::putConverted(std::size_t converter, const Number& value, Sending sending)
{
    const Result<std::size_t> target = source(converter);
    if (!target.isOk()) {
        return target.status();
    }
    const bool takesIntegers = node(converter).kind == NodeKind::IntConverter;
    const auto integer = value.rounded();
    if (takesIntegers && !integer) {
        return { notConvertible, translated("the camera's formula takes 64-bit integers only") };
    }
    const Number wanted = takesIntegers ? Number::of(*integer) : value;
    const Result<Number> converted
        = evaluated(converter, FormulaProgram::Entry::ToRegister, wanted);
    if (!converted.isOk()) {
        return { notConvertible,
            translated("the camera's formula cannot convert it") + ": "
                + converted.status().words() };
    }
    const RegisterPort::FailureScope failures(m_port);
    const Result<Number> raw = rawNumber(converter);
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (raw.isOk()) {
        const Result<Number> present
            = evaluated(converter, FormulaProgram::Entry::FromRegister, raw.value());
        if (present.isOk() && present.value() == wanted) {
            return put(target.value(), raw.value(), sending);
        }
    }
    if (node(target.value()).kind != NodeKind::Integer) {
        return put(target.value(), converted.value(), sending);
    }
    const Result<Number> onGrid = this->onGrid(target.value(), converted.value());
    return onGrid.isOk() ? put(target.value(), onGrid.value(), sending) : onGrid.status();
}

/// The nearest of the integers that the node takes; its present value where that is as near as an
/// integer can be.
Result<Number> NodeMap::onGrid(std::size_t index, const Number& value)
{
    const auto nearest = value.rounded();
    if (!nearest) {
        return doesNotFit(value);
    }
    const Result<Limits> limits = this->limits(index);
    if (!limits.isOk()) {
        return limits.status();
    }
    const Grid grid(limits.value());
    if (*nearest < grid.least || *nearest > grid.most) {
        return doesNotFit(value);
    }
    if (grid.holds(*nearest)) {
        return Number::of(*nearest);
    }
    const Result<Number> present = number(index);
    const bool isPresent = present.isOk() && present.value().integer == *nearest;
    return isPresent ? present : Number::of(grid.nearest(value.asReal()));
}

Status NodeMap::putRegister(std::size_t index, const Number& value, Sending sending)
{
    const Result<std::size_t> size = readLength(index);
    if (!size.isOk()) {
        return size.status();
    }
    const RegisterFacts& facts = registerFactsOf(index);
    const bool isFloat = node(index).kind == NodeKind::FloatReg;
    if (!(isFloat ? holdsReal(size.value()) : holdsInteger(facts, size.value()))) {
        return { notEvaluable, translated("its register has an impossible length now") };
    }
    const auto integer = value.rounded();
    if (isFloat) {
        const bool isSingle = size.value() == sizeof(float);
        if (!value.isFinite() || (isSingle && std::fabs(value.asReal()) > double(FLT_MAX))) {
            return { notConvertible, translated("it is more than its register holds") };
        }
    } else {
        const IntegerRange range = integerRange(facts, size.value());
        // All 64 bits of an unsigned register can be had: what is beyond a signed number is below
        // 0.
        const bool isAll64 = !facts.isSigned && !facts.isBitField && size.value() == 8;
        if (!integer || (*integer < range.minimum && !isAll64) || *integer > range.maximum) {
            return doesNotFit(value);
        }
    }
    if (sending == Sending::Nothing) {
        return {};
    }
    Result<std::vector<std::uint8_t>> bytes = bytesToChange(index);
    if (!bytes.isOk()) {
        return bytes.status();
    }
    if (isFloat) {
        encodeReal(facts, value.asReal(), bytes.value().data(), size.value());
    } else {
        encodeInteger(facts, *integer, bytes.value().data(), size.value());
    }
    return writeBytes(index, bytes.value());
}

} // namespace zqcameralib
