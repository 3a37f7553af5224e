// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"
#include "formula/Formula.h"

namespace zqcameralib {

/// What a symbol of a formula stands for.
struct FormulaSymbol {
    enum class Kind {
        Input, ///< the value that a converter converts
        Constant,
        Expression, ///< another formula of the node
        Value, ///< of a node, or one of its limits:
        Minimum,
        Maximum,
        Increment,
    };
    Kind kind = Kind::Input;
    Number constant;
    std::size_t index = 0; ///< of a node, or of an expression
};

/// The formulas of a SwissKnife or Converter, integer or not, with all that their symbols stand
/// for.
class FormulaProgram {
public:
    enum class Entry { Value, ToRegister, FromRegister };

    /// A failure with the reason when a formula cannot be evaluated whatever the camera says.
    static Result<FormulaProgram> compile(const Description& description, std::size_t node);

    Arithmetic arithmetic() const { return m_arithmetic; }

    /// `input` is what a converter converts; `lookup` tells values and limits of nodes.
    using Lookup = std::function<Result<Number>(const FormulaSymbol&)>;
    Result<Number> run(Entry entry, const Number& input, const Lookup& lookup) const;

private:
    friend class FormulaBinder;

    struct Part {
        Formula formula;
        std::vector<FormulaSymbol> symbols; ///< one for each symbol of the formula
        std::size_t cost = 0; ///< terms evaluated, with those of expressions
    };

    Result<Number> run(const Part& part, const Number& input, const Lookup& lookup) const;

    Arithmetic m_arithmetic = Arithmetic::Real;
    std::vector<Part> m_expressions; ///< each uses only those before it
    Part m_value, m_toRegister, m_fromRegister;
};

} // namespace zqcameralib
