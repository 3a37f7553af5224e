// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Status.h"
#include "formula/Number.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zqcameralib {

/// How a formula calculates: in 64-bit integers, or in doubles.
enum class Arithmetic { Integer, Real };

/// What a formula does at one place of it.
enum class FormulaOperation : std::uint8_t {
    Constant,
    Symbol,
    Choice, // a ? b : c
    Or,
    And,
    BitOr,
    BitXor,
    BitAnd,
    Equal,
    Unequal,
    Less,
    Greater,
    LessOrEqual,
    GreaterOrEqual,
    ShiftLeft,
    ShiftRight,
    Add,
    Subtract,
    Multiply,
    Divide,
    Remainder,
    Power,
    Negate,
    Identity,
    BitNot,
    Sgn,
    Abs,
    Exp,
    Ln,
    Lg,
    Sqrt,
    Trunc,
    Round,
    RoundTo,
    Floor,
    Ceil,
    Sin,
    Cos,
    Tan,
    Asin,
    Acos,
    Atan,
};

/// A formula of a description (SwissKnife, Converter and their integer forms; GenApi standard 2.1,
/// chapter on formulas), taken apart once. Symbols are everything that the description has to
/// provide: variables, constants, expressions, the value to be converted. Immutable.
class Formula {
public:
    /// Nothing comes of it.
    Formula() = default;

    /// One line about what is wrong with the text, as a failure, when it is no formula.
    static Result<Formula> parse(std::string_view text);

    /// Each name once.
    const std::vector<std::string>& symbols() const { return m_symbols; }
    /// In how many places symbols()[index] stands.
    std::size_t places(std::size_t index) const;
    /// How many operations, numbers and symbols there are.
    std::size_t size() const { return m_terms.size(); }

    /// The value of symbols()[index].
    using Lookup = std::function<Result<Number>(std::size_t index)>;
    /// Asks only for the symbols that count: not for those in a branch that is not taken. A failure
    /// when one of them cannot be told, or nothing comes of it, as of a division by zero.
    Result<Number> evaluate(Arithmetic arithmetic, const Lookup& lookup) const;

private:
    friend class FormulaParser;
    friend class FormulaEvaluation;

    struct Term {
        FormulaOperation operation = FormulaOperation::Constant;
        std::size_t a = 0, b = 0, c = 0; ///< terms it works on; for a symbol, `a` is its index
        Number constant;
    };

    std::vector<Term> m_terms; ///< the last one is the whole
    std::vector<std::string> m_symbols;
};

} // namespace zqcameralib
