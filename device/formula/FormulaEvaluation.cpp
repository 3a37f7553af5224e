// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "formula/FormulaEvaluation.h"

#include "base/StatusCodes.h"
#include "words/Words.h"

#include <algorithm>

namespace zqcameralib {

namespace {

bool hasTwoOperands(FormulaOperation operation)
{
    return (operation >= FormulaOperation::BitOr && operation <= FormulaOperation::Power)
        || operation == FormulaOperation::RoundTo;
}

} // namespace

Result<Number> FormulaEvaluation::at(std::size_t index) const
{
    Result<Number> value = asWritten(m_formula.m_terms[index]);
    if (m_arithmetic == Arithmetic::Real && value.isOk()) {
        return Number::of(value.value().asReal());
    }
    return value;
}

Result<Number> FormulaEvaluation::asWritten(const Term& term) const
{
    switch (term.operation) {
    case FormulaOperation::Constant:
        return term.constant;
    case FormulaOperation::Symbol:
        return m_lookup(term.a);
    case FormulaOperation::Choice:
        return choice(term);
    case FormulaOperation::Or:
    case FormulaOperation::And:
        return logical(term);
    default:
        return binary(term);
    }
}

Result<Number> FormulaEvaluation::choice(const Term& term) const
{
    Result<Number> condition = at(term.a);
    if (!condition.isOk()) {
        return condition;
    }
    return at(condition.value().isZero() ? term.c : term.b);
}

Result<Number> FormulaEvaluation::logical(const Term& term) const
{
    const bool decides = term.operation == FormulaOperation::Or;
    for (const std::size_t operand : { term.a, term.b }) {
        Result<Number> value = at(operand);
        if (!value.isOk()) {
            return value;
        }
        if (!value.value().isZero() == decides) {
            return Number::of(std::int64_t(decides));
        }
    }
    return Number::of(std::int64_t(!decides));
}

Result<Number> FormulaEvaluation::binary(const Term& term) const
{
    Result<Number> a = at(term.a);
    if (!a.isOk() || !hasTwoOperands(term.operation)) {
        return a.isOk() ? applyOperation(term.operation, a.value(), {}) : a;
    }
    Result<Number> b = at(term.b);
    return b.isOk() ? applyOperation(term.operation, a.value(), b.value()) : b;
}

std::size_t Formula::places(std::size_t index) const
{
    return static_cast<std::size_t>(
        std::count_if(m_terms.begin(), m_terms.end(), [index](const Term& term) {
            return term.operation == FormulaOperation::Symbol && term.a == index;
        }));
}

Result<Number> Formula::evaluate(Arithmetic arithmetic, const Lookup& lookup) const
{
    if (m_terms.empty()) {
        return Status(notEvaluable, translated("there is no formula"));
    }
    Result<Number> value = FormulaEvaluation(*this, arithmetic, lookup).run();
    if (!value.isOk()) {
        return value;
    }
    if (!value.value().isFinite()) {
        return Status(notEvaluable, translated("its formula has no finite result now"));
    }
    if (arithmetic == Arithmetic::Real) {
        return value;
    }
    const auto integer = value.value().rounded();
    return integer
        ? Result<Number>(Number::of(*integer))
        : Status(notEvaluable, translated("its formula has a result beyond 64 bits now"));
}

} // namespace zqcameralib
