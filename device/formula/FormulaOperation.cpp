// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/StatusCodes.h"
#include "formula/FormulaEvaluation.h"
#include "words/Words.h"

#include <cmath>

namespace zqcameralib {

namespace {

using Operation = FormulaOperation;

Status divisionByZero()
{
    return { notEvaluable, translated("its formula divides by zero now") };
}

std::uint64_t bits(std::int64_t value)
{
    return static_cast<std::uint64_t>(value);
}

Number fromBits(std::uint64_t value)
{
    return Number::of(static_cast<std::int64_t>(value));
}

Number truth(bool holds)
{
    return Number::of(std::int64_t(holds));
}

Result<Number> divided(std::int64_t a, std::int64_t b)
{
    if (b == 0) {
        return divisionByZero();
    }
    // The smallest number by -1 is no 64-bit number; the processor would end the program.
    return b == -1 ? fromBits(0U - bits(a)) : Number::of(a / b);
}

Result<Number> remainder(std::int64_t a, std::int64_t b)
{
    if (b == 0) {
        return divisionByZero();
    }
    return Number::of(b == -1 ? std::int64_t(0) : a % b);
}

Number shifted(std::int64_t value, std::int64_t left)
{
    if (left >= 64) {
        return Number::of(std::int64_t(0));
    }
    if (left >= 0) {
        return fromBits(bits(value) << bits(left));
    }
    return Number::of(left > -64 ? value >> -left : std::int64_t(value < 0 ? -1 : 0));
}

Result<Number> power(std::int64_t base, std::int64_t exponent)
{
    if (exponent < 0) {
        return base == 1 || base == -1 ? Number::of(exponent % 2 == 0 ? std::int64_t(1) : base)
            : base == 0                ? Result<Number>(divisionByZero())
                                       : Number::of(std::int64_t(0));
    }
    std::uint64_t result = 1;
    for (std::uint64_t factor = bits(base), rest = bits(exponent); rest != 0; rest >>= 1U) {
        result *= (rest & 1U) != 0 ? factor : 1;
        factor *= factor;
    }
    return fromBits(result);
}

Result<Number> ofIntegers(Operation operation, std::int64_t a, std::int64_t b)
{
    switch (operation) {
    case Operation::BitOr:
        return fromBits(bits(a) | bits(b));
    case Operation::BitXor:
        return fromBits(bits(a) ^ bits(b));
    case Operation::BitAnd:
        return fromBits(bits(a) & bits(b));
    case Operation::BitNot:
        return fromBits(~bits(a));
    case Operation::ShiftLeft:
        return shifted(a, b);
    case Operation::ShiftRight:
        return shifted(a, b == INT64_MIN ? INT64_MAX : -b);
    case Operation::Add:
        return fromBits(bits(a) + bits(b));
    case Operation::Subtract:
        return fromBits(bits(a) - bits(b));
    case Operation::Multiply:
        return fromBits(bits(a) * bits(b));
    case Operation::Divide:
        return divided(a, b);
    case Operation::Remainder:
        return remainder(a, b);
    case Operation::Power:
        return power(a, b);
    case Operation::Negate:
        return fromBits(0U - bits(a));
    case Operation::Abs:
        return fromBits(a < 0 ? 0U - bits(a) : bits(a));
    case Operation::Sgn:
        return Number::of(std::int64_t(a > 0) - std::int64_t(a < 0));
    default: // rounding an integer leaves it
        return Number::of(a);
    }
}

double roundedTo(double value, double digits)
{
    const double scale = std::pow(10.0, std::trunc(digits));
    const double rounded = std::round(value * scale) / scale;
    return std::isfinite(rounded) ? rounded : value;
}

double function(Operation operation, double a, double b)
{
    switch (operation) {
    case Operation::Exp:
        return std::exp(a);
    case Operation::Ln:
        return std::log(a);
    case Operation::Lg:
        return std::log10(a);
    case Operation::Sqrt:
        return std::sqrt(a);
    case Operation::Trunc:
        return std::trunc(a);
    case Operation::Round:
        return std::round(a);
    case Operation::RoundTo:
        return roundedTo(a, b);
    case Operation::Floor:
        return std::floor(a);
    case Operation::Ceil:
        return std::ceil(a);
    case Operation::Sin:
        return std::sin(a);
    case Operation::Cos:
        return std::cos(a);
    case Operation::Tan:
        return std::tan(a);
    case Operation::Asin:
        return std::asin(a);
    case Operation::Acos:
        return std::acos(a);
    case Operation::Atan:
        return std::atan(a);
    case Operation::Abs:
        return std::fabs(a);
    case Operation::Sgn:
        return double(a > 0) - double(a < 0);
    case Operation::Negate:
        return -a;
    default:
        return a;
    }
}

Result<Number> ofReals(Operation operation, double a, double b)
{
    switch (operation) {
    case Operation::Add:
        return Number::of(a + b);
    case Operation::Subtract:
        return Number::of(a - b);
    case Operation::Multiply:
        return Number::of(a * b);
    case Operation::Divide:
        return b == 0.0 ? Result<Number>(divisionByZero()) : Number::of(a / b);
    case Operation::Remainder:
        return b == 0.0 ? Result<Number>(divisionByZero()) : Number::of(std::fmod(a, b));
    case Operation::Power:
        return Number::of(std::pow(a, b));
    default:
        return Number::of(function(operation, a, b));
    }
}

bool isComparison(Operation operation)
{
    return operation >= Operation::Equal && operation <= Operation::GreaterOrEqual;
}

Number compared(Operation operation, const Number& a, const Number& b)
{
    switch (operation) {
    case Operation::Equal:
        return truth(a == b);
    case Operation::Unequal:
        return truth(!(a == b));
    case Operation::Less:
        return truth(a < b);
    case Operation::Greater:
        return truth(b < a);
    case Operation::LessOrEqual:
        return truth(a < b || a == b);
    default:
        return truth(b < a || a == b);
    }
}

/// Bits are those of integers, in every formula.
bool worksOnBits(Operation operation)
{
    return operation == Operation::BitOr || operation == Operation::BitXor
        || operation == Operation::BitAnd || operation == Operation::BitNot
        || operation == Operation::ShiftLeft || operation == Operation::ShiftRight;
}

std::optional<std::int64_t> wholePart(const Number& value)
{
    return value.isReal ? Number::of(std::trunc(value.real)).rounded() : value.integer;
}

bool isOnlyOfReals(Operation operation)
{
    return operation == Operation::Exp || operation == Operation::Ln || operation == Operation::Lg
        || operation == Operation::Sqrt || operation >= Operation::Sin;
}

} // namespace

Result<Number> applyOperation(Operation operation, const Number& a, const Number& b)
{
    if (isComparison(operation)) {
        return compared(operation, a, b);
    }
    if (worksOnBits(operation)) {
        const auto left = wholePart(a);
        const auto right = wholePart(b);
        return left && right
            ? ofIntegers(operation, *left, *right)
            : Status(notEvaluable, translated("its formula takes bits of no integer now"));
    }
    if (!a.isReal && !b.isReal && !isOnlyOfReals(operation)) {
        return ofIntegers(operation, a.integer, b.integer);
    }
    return ofReals(operation, a.asReal(), b.asReal());
}

} // namespace zqcameralib
