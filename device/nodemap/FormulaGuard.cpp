#include "nodemap/FormulaGuard.h"

#include <glib.h>

#include <vector>

namespace zqcameralib {

namespace {

constexpr std::size_t maxGuardedLength = 40000;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool isWord(char c)
{
    return g_ascii_isalnum(c) || c == '_' || c == '.';
}

std::size_t skipBlanks(std::string_view text, std::size_t at)
{
    while (at < text.size() && isBlank(text[at])) {
        ++at;
    }
    return at;
}

std::size_t skipParentheses(std::string_view text, std::size_t at)
{
    int open = 0;
    for (; at < text.size(); ++at) {
        open += text[at] == '(' ? 1 : text[at] == ')' ? -1 : 0;
        if (open == 0) {
            return at + 1;
        }
    }
    return text.size();
}

/// End of the operand that starts at `at`: signs, then a word, a call or a parenthesis, then
/// powers.
std::size_t operandEnd(std::string_view text, std::size_t at)
{
    at = skipBlanks(text, at);
    while (at < text.size() && (text[at] == '-' || text[at] == '+' || text[at] == '~')) {
        at = skipBlanks(text, at + 1);
    }
    while (at < text.size() && isWord(text[at])) {
        ++at;
    }
    const std::size_t next = skipBlanks(text, at);
    if (next < text.size() && text[next] == '(') {
        at = skipParentheses(text, next);
    }
    const std::size_t power = skipBlanks(text, at);
    return text.substr(power, 2) == "**" ? operandEnd(text, power + 2) : at;
}

/// A positive number divides safely.
bool isPlainNumber(std::string_view operand)
{
    const std::size_t at = skipBlanks(operand, 0);
    if (at == operand.size() || !g_ascii_isdigit(operand[at])) {
        return false;
    }
    bool isZero = true;
    for (const char c : operand.substr(at)) {
        if (!isWord(c) && !isBlank(c)) {
            return false;
        }
        isZero = isZero && (c < '1' || c > '9');
    }
    return !isZero;
}

/// "/divisor" or "%divisor" with an operand that may be -1: instead of by -1 it divides by 1, and
/// the dividend changes its sign first. `addend` goes to the divisor.
std::string guardedInteger(char sign, const std::string& divisor, const std::string& addend)
{
    const std::string isMinusOne = "(" + divisor + "=(0-1))";
    const std::string division = sign + ("(" + divisor + "+2*" + isMinusOne + addend + ")");
    return sign == '/' ? "*(1-2*" + isMinusOne + ")" + division : division;
}

/// The same with an operand that may be 0.
std::string guardedFloat(const std::string& divisor)
{
    const std::string isZero = "(" + divisor + "=0)";
    return "/(" + divisor + "+" + isZero + "+SQRT(0-" + isZero + "))";
}

class Guard {
public:
    explicit Guard(FormulaKind kind)
        : m_kind(kind)
    {
    }

    std::string guarded(std::string_view formula)
    {
        std::string text = rewritten(formula, false);
        if (m_isZero.empty()) {
            return text;
        }
        const std::string undefined = m_kind == FormulaKind::Float ? "SQRT(0-1)" : "(1<<63)";
        return "(" + m_isZero + ")?" + undefined + ":(" + text + ")";
    }

private:
    /// `isBranch`: the text stands behind a condition, which says whether it counts.
    std::string rewritten(std::string_view formula, bool isBranch)
    {
        std::string text;
        std::vector<bool> branches { isBranch }; // one for each open parenthesis
        for (std::size_t at = 0; at < formula.size();) {
            const char c = formula[at];
            const std::size_t end = c == '/' || c == '%' ? operandEnd(formula, at + 1) : at + 1;
            const std::string_view operand = formula.substr(at + 1, end - at - 1);
            follow(formula.substr(at, 2), branches);
            if ((c != '/' && c != '%') || isPlainNumber(operand)) {
                text += formula.substr(at, end - at);
            } else {
                text += division(
                    c, "(" + rewritten(operand, branches.back()) + ")", branches.back());
            }
            at = end;
            if (text.size() > maxGuardedLength) {
                return std::string(formula);
            }
        }
        return text;
    }

    static void follow(std::string_view next, std::vector<bool>& branches)
    {
        if (next[0] == '(') {
            branches.push_back(branches.back());
        } else if (next[0] == ')' && branches.size() > 1) {
            branches.pop_back();
        } else if (next[0] == '?' || next == "&&" || next == "||") {
            branches.back() = true;
        }
    }

    std::string division(char sign, const std::string& divisor, bool isBranch)
    {
        if (m_kind == FormulaKind::Float && sign == '/') {
            return guardedFloat(divisor);
        }
        // The remainder is an integer one in every formula.
        if (m_kind == FormulaKind::IntegerConverter && !isBranch) {
            return guardedInteger(sign, divisor, "");
        }
        const std::string isZero = "(" + divisor + "=0)";
        if (!isBranch) {
            m_isZero += (m_isZero.empty() ? "" : "||") + isZero;
        }
        return guardedInteger(sign, divisor, "+" + isZero);
    }

    FormulaKind m_kind;
    std::string m_isZero; ///< true when a division that counts is one by zero
};

} // namespace

std::string guardDivisions(std::string_view formula, FormulaKind kind)
{
    std::string text = Guard(kind).guarded(formula);
    return text.size() > maxGuardedLength ? std::string(formula) : text;
}

} // namespace zqcameralib
