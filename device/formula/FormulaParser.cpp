// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "formula/FormulaParser.h"

#include "base/StatusCodes.h"
#include "words/Words.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace zqcameralib {

namespace {

using Operation = FormulaOperation;

/// Rules within each other: about three for each parenthesis; real formulas reach 54 parentheses.
constexpr int maxDepth = 1500;
/// A long row of operators is evaluated as deep as it is long.
constexpr std::size_t maxTerms = 4000;

struct Function {
    std::string_view name;
    Operation operation;
};

/// Of two signs that begin alike, the longer one stands first.
const std::array<FormulaParser::Operator, 19> operators { {
    { "||", Operation::Or, 0 },
    { "|", Operation::BitOr, 2 },
    { "&&", Operation::And, 1 },
    { "&", Operation::BitAnd, 4 },
    { "^", Operation::BitXor, 3 },
    { "=", Operation::Equal, 5 },
    { "<>", Operation::Unequal, 5 },
    { "<=", Operation::LessOrEqual, 6 },
    { "<<", Operation::ShiftLeft, 7 },
    { "<", Operation::Less, 6 },
    { ">=", Operation::GreaterOrEqual, 6 },
    { ">>", Operation::ShiftRight, 7 },
    { ">", Operation::Greater, 6 },
    { "+", Operation::Add, 8 },
    { "-", Operation::Subtract, 8 },
    { "**", Operation::Power, 10 },
    { "*", Operation::Multiply, 9 },
    { "/", Operation::Divide, 9 },
    { "%", Operation::Remainder, 9 },
} };

const std::array<Function, 17> functions { {
    { "SGN", Operation::Sgn },
    { "NEG", Operation::Negate },
    { "ABS", Operation::Abs },
    { "EXP", Operation::Exp },
    { "LN", Operation::Ln },
    { "LG", Operation::Lg },
    { "SQRT", Operation::Sqrt },
    { "TRUNC", Operation::Trunc },
    { "ROUND", Operation::Round },
    { "FLOOR", Operation::Floor },
    { "CEIL", Operation::Ceil },
    { "SIN", Operation::Sin },
    { "COS", Operation::Cos },
    { "TAN", Operation::Tan },
    { "ASIN", Operation::Asin },
    { "ACOS", Operation::Acos },
    { "ATAN", Operation::Atan },
} };

bool isWordPart(char c)
{
    return g_ascii_isalnum(c) || c == '_' || c == '.';
}

/// Counts how deep a rule calls itself, while it lives.
class Nesting {
public:
    explicit Nesting(int& depth)
        : m_depth(++depth)
    {
    }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    ~Nesting() { --m_depth; }

private:
    int& m_depth;
};

} // namespace

Result<Formula> FormulaParser::parse()
{
    constexpr std::size_t charactersPerTerm = 4; // in real formulas
    m_formula.m_terms.reserve(m_text.size() / charactersPerTerm);
    choice();
    if (m_fault.empty() && !isAtEnd()) {
        unexpected();
    }
    if (m_fault.empty() && m_formula.m_terms.size() > maxTerms) {
        fail(translated("it is too long"));
    }
    if (!m_fault.empty()) {
        return Status(notEvaluable, m_fault);
    }
    return std::move(m_formula);
}

std::size_t FormulaParser::choice()
{
    const Nesting nesting(m_depth);
    const std::size_t condition = binary(0);
    if (!take('?')) {
        return condition;
    }
    const std::size_t whenTrue = choice();
    expect(':');
    const std::size_t whenFalse = choice();
    return add(Operation::Choice, condition, whenTrue, whenFalse);
}

std::size_t FormulaParser::binary(int weakest)
{
    const Nesting nesting(m_depth);
    std::size_t left = unary();
    for (const Operator* next = nextOperator(); next != nullptr && next->strength >= weakest;
         next = nextOperator()) {
        skip(next->sign.size());
        // Powers group to the right, all others to the left.
        const std::size_t right
            = binary(next->operation == Operation::Power ? next->strength : next->strength + 1);
        left = add(next->operation, left, right);
    }
    return left;
}

/// Every rule gets here, so the depth is looked at here only.
std::size_t FormulaParser::unary()
{
    const Nesting nesting(m_depth);
    if (m_depth > maxDepth) {
        return fail(translated("it is nested too deeply"));
    }
    if (take('-')) {
        return add(Operation::Negate, unary());
    }
    if (take('+')) {
        return add(Operation::Identity, unary());
    }
    return take('~') ? add(Operation::BitNot, unary()) : primary();
}

std::size_t FormulaParser::primary()
{
    const char next = isAtEnd() ? '\0' : m_text[m_at];
    if (take('(')) {
        const std::size_t inner = choice();
        expect(')');
        return inner;
    }
    if (g_ascii_isdigit(next) || next == '.') {
        return number();
    }
    if (g_ascii_isalpha(next) || next == '_') {
        return word();
    }
    return next == '\0' ? fail(translated("it ends too early")) : unexpected();
}

std::size_t FormulaParser::number()
{
    const std::size_t first = m_at;
    const std::string_view prefix = m_text.substr(m_at, 2);
    const bool isHexadecimal = prefix == "0x" || prefix == "0X";
    while (m_at < m_text.size() && isWordPart(m_text[m_at])) {
        const bool isExponent = !isHexadecimal && g_ascii_tolower(m_text[m_at]) == 'e';
        ++m_at;
        if (isExponent && m_at < m_text.size() && (m_text[m_at] == '-' || m_text[m_at] == '+')) {
            ++m_at;
        }
    }
    const std::string_view text = m_text.substr(first, m_at - first);
    skipBlanks();
    const std::optional<Number> value = parseNumber(text);
    return value ? addConstant(*value)
                 : fail(worded("\"%s\" is no number", std::string(text).c_str()));
}

std::size_t FormulaParser::word()
{
    const std::size_t first = m_at;
    while (m_at < m_text.size() && isWordPart(m_text[m_at])) {
        ++m_at;
    }
    const std::string_view name = m_text.substr(first, m_at - first);
    skipBlanks();
    return take('(') ? call(name) : symbol(name);
}

std::size_t FormulaParser::call(std::string_view name)
{
    if ((name == "PI" || name == "E") && take(')')) {
        return addConstant(Number::of(name == "E" ? M_E : M_PI));
    }
    const auto* const function = std::find_if(functions.begin(), functions.end(),
        [name](const Function& known) { return known.name == name; });
    if (function == functions.end()) {
        return fail(worded("there is no function %s", std::string(name).c_str()));
    }
    const std::size_t argument = choice();
    if (function->operation == Operation::Round && take(',')) {
        const std::size_t digits = choice();
        expect(')');
        return add(Operation::RoundTo, argument, digits);
    }
    expect(')');
    return add(function->operation, argument);
}

std::size_t FormulaParser::symbol(std::string_view name)
{
    auto& names = m_formula.m_symbols;
    const auto known = std::find(names.begin(), names.end(), name);
    const auto index = static_cast<std::size_t>(known - names.begin());
    if (known == names.end()) {
        names.emplace_back(name);
    }
    return add(Operation::Symbol, index);
}

std::size_t FormulaParser::add(Operation operation, std::size_t a, std::size_t b, std::size_t c)
{
    m_formula.m_terms.push_back({ operation, a, b, c, {} });
    return m_formula.m_terms.size() - 1;
}

std::size_t FormulaParser::addConstant(const Number& value)
{
    const std::size_t term = add(Operation::Constant);
    m_formula.m_terms.back().constant = value;
    return term;
}

/// Ends the text, so that nothing more is found.
std::size_t FormulaParser::fail(const Words& why)
{
    if (m_fault.empty()) {
        m_fault = why;
    }
    m_at = m_text.size();
    return 0;
}

std::size_t FormulaParser::unexpected()
{
    return fail(worded("\"%s\" is not expected", std::string(m_text.substr(m_at, 10)).c_str()));
}

const FormulaParser::Operator* FormulaParser::nextOperator()
{
    const std::string_view rest = m_text.substr(m_at, 2);
    if (rest.empty() || rest[0] == ')') { // mostly
        return nullptr;
    }
    const auto* const found
        = std::find_if(operators.begin(), operators.end(), [rest](const Operator& known) {
              return rest[0] == known.sign[0] && rest.substr(0, known.sign.size()) == known.sign;
          });
    return found == operators.end() ? nullptr : found;
}

bool FormulaParser::take(char sign)
{
    if (isAtEnd() || m_text[m_at] != sign) {
        return false;
    }
    skip(1);
    return true;
}

void FormulaParser::expect(char sign)
{
    if (!take(sign)) {
        fail(worded("\"%c\" is missing", sign));
    }
}

void FormulaParser::skip(std::size_t characters)
{
    m_at += characters;
    skipBlanks();
}

void FormulaParser::skipBlanks()
{
    while (m_at < m_text.size() && g_ascii_isspace(m_text[m_at])) {
        ++m_at;
    }
}

Result<Formula> Formula::parse(std::string_view text)
{
    return FormulaParser(text).parse();
}

} // namespace zqcameralib
