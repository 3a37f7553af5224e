#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zqcameralib {

/// How the node map evaluates a formula. An integer division by zero fails in a converter, as it
/// shall; a formula node swallows that failure and reads as 0.
enum class FormulaKind { IntegerNode, IntegerConverter, Float };

/// What an integer formula node has for a value when it divides by zero.
constexpr std::int64_t undefinedInteger = INT64_MIN;

/// A formula of the same value whose divisions do no harm:
/// - an integer one would end the process when it divides the smallest 64-bit integer by -1;
/// - the node map evaluates all branches of a choice, so that a division by zero in a branch that
///   is not taken spoils the whole;
/// - a formula node that does divide by zero becomes NaN, or undefinedInteger, instead of 0.
/// What cannot be made out is left as it is.
std::string guardDivisions(std::string_view formula, FormulaKind kind);

} // namespace zqcameralib
