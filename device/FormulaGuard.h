#pragma once

#include <string>
#include <string_view>

namespace zqcameralib {

/// How the node map evaluates a formula.
enum class FormulaKind { Integer, Float };

/// A formula of the same value whose divisions do no harm: an integer one would end the process
/// when it divides the smallest 64-bit integer by -1, a float one passes for 0 when it divides by
/// zero and becomes NaN here. What cannot be made out is left as it is.
std::string guardDivisions(std::string_view formula, FormulaKind kind);

} // namespace zqcameralib
