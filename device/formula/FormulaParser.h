// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formula/Formula.h"
#include "words/Words.h"

#include <string_view>

namespace zqcameralib {

/// Takes the text of a formula apart, by precedence as in C; unary signs bind before powers.
class FormulaParser {
public:
    explicit FormulaParser(std::string_view text)
        : m_text(text)
    {
        skipBlanks();
    }

    Result<Formula> parse();

    /// One between two operands; the stronger one binds them first.
    struct Operator {
        std::string_view sign;
        FormulaOperation operation;
        int strength;
    };

private:
    using Operation = FormulaOperation;

    /// Each gives the index of a term; after the first fault, what they give has no meaning.
    std::size_t choice();
    std::size_t binary(int weakest);
    std::size_t unary();
    std::size_t primary();
    std::size_t number();
    std::size_t word();
    std::size_t call(std::string_view name);
    std::size_t symbol(std::string_view name);

    std::size_t add(Operation operation, std::size_t a = 0, std::size_t b = 0, std::size_t c = 0);
    std::size_t addConstant(const Number& value);
    std::size_t fail(const Words& why);
    std::size_t unexpected();
    /// The one that follows, or null; it is not taken yet.
    const Operator* nextOperator();
    bool take(char sign);
    void expect(char sign);
    void skip(std::size_t characters);
    void skipBlanks();
    bool isAtEnd() const { return m_at == m_text.size(); }

    std::string_view m_text;
    std::size_t m_at = 0; ///< never at a blank between two rules
    int m_depth = 0;
    Formula m_formula;
    Words m_fault;
};

} // namespace zqcameralib
