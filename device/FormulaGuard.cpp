#include "FormulaGuard.h"

#include <cctype>

namespace zqcameralib {

namespace {

constexpr std::size_t maxGuardedLength = 40000;

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}
bool isWord(char c)
{
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '.';
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
    if (at == operand.size() || std::isdigit(static_cast<unsigned char>(operand[at])) == 0) {
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
/// the dividend changes its sign first.
std::string guardedInteger(char sign, const std::string& divisor)
{
    const std::string isMinusOne = "(" + divisor + "=(0-1))";
    const std::string division = sign + ("(" + divisor + "+2*" + isMinusOne + ")");
    return sign == '/' ? "*(1-2*" + isMinusOne + ")" + division : division;
}

/// The same with an operand that may be 0.
std::string guardedFloat(const std::string& divisor)
{
    const std::string isZero = "(" + divisor + "=0)";
    return "/(" + divisor + "+" + isZero + "+SQRT(0-" + isZero + "))";
}

} // namespace

std::string guardDivisions(std::string_view formula, FormulaKind kind)
{
    std::string guarded;
    for (std::size_t at = 0; at < formula.size();) {
        const char c = formula[at];
        const std::size_t end = c == '/' || c == '%' ? operandEnd(formula, at + 1) : at + 1;
        const std::string_view operand = formula.substr(at + 1, end - at - 1);
        if ((c != '/' && c != '%') || isPlainNumber(operand)) {
            guarded += formula.substr(at, end - at);
        } else {
            const std::string divisor = "(" + guardDivisions(operand, kind) + ")";
            // The remainder is an integer one in every formula.
            guarded += kind == FormulaKind::Integer || c == '%' ? guardedInteger(c, divisor)
                                                                : guardedFloat(divisor);
        }
        at = end;
        if (guarded.size() > maxGuardedLength) {
            return std::string(formula);
        }
    }
    return guarded;
}

} // namespace zqcameralib
