// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formula/Formula.h"

namespace zqcameralib {

/// One evaluation of a formula.
class FormulaEvaluation {
public:
    FormulaEvaluation(const Formula& formula, Arithmetic arithmetic, const Formula::Lookup& lookup)
        : m_formula(formula)
        , m_arithmetic(arithmetic)
        , m_lookup(lookup)
    {
    }

    Result<Number> run() const { return at(m_formula.m_terms.size() - 1); }

private:
    using Term = Formula::Term;

    Result<Number> at(std::size_t index) const;
    Result<Number> asWritten(const Term& term) const;
    Result<Number> choice(const Term& term) const;
    Result<Number> logical(const Term& term) const;
    Result<Number> binary(const Term& term) const;

    const Formula& m_formula;
    Arithmetic m_arithmetic;
    const Formula::Lookup& m_lookup;
};

/// What an operation of one or two operands makes of them (`b` of no meaning for one). In integers
/// as far as both are integers; what does not fit into 64 bits then loses its upper bits, as in a
/// register.
Result<Number> applyOperation(FormulaOperation operation, const Number& a, const Number& b);

} // namespace zqcameralib
