// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What formulas of descriptions give, in the arithmetic of integers and in that of real numbers.
#include "formula/Formula.h"
#include "TestCamera.h"
#include "base/NumberText.h"

namespace zqcameralib {
namespace {

/// As text, or why there is none. Every symbol is 3.
std::string result(const std::string& text, Arithmetic arithmetic)
{
    const Result<Formula> formula = Formula::parse(text);
    if (!formula.isOk()) {
        return formula.status().text();
    }
    const Result<Number> value = formula.value().evaluate(
        arithmetic, [](std::size_t) { return Number::of(std::int64_t(3)); });
    if (!value.isOk()) {
        return value.status().text();
    }
    return value.value().isReal ? floatText(value.value().real)
                                : integerText(value.value().integer);
}

struct FormulaCase {
    std::string formula;
    std::string ofIntegers;
    std::string ofReals = {}; ///< empty: the same
};

const std::string byZero = "its formula divides by zero now";
const std::string beyond = "its formula has a result beyond 64 bits now";
const std::string infinite = "its formula has no finite result now";

const std::vector<FormulaCase> formulas { { "1 + 2 * 3 ** 2 << 1 & 0xFE | 1 = 1", "39" },
    { "(6 ^ 3 & 1) + 10 * (1 | 6 ^ 4)", "37" }, { "(1 || 1 && 0) + 2 * (3 > 2 = 1)", "3" },
    { "7 - 2 - 1 + 2 ** 3 ** 2", "516" }, { "(1 ? 0 ? 4 : 5 : 6) + 10 * (+X - -X + ~X)", "25" },
    { "(2 < X) + 10 * (X < X) + 100 * (X <= X) + 1000 * (X <= 2)", "101" },
    { "(X > 2) + 10 * (X > X) + 100 * (X >= X) + 1000 * (2 >= X)", "101" },
    { "(2.5 < X) + 10 * (X < 3.5) + 100 * (X = 3.5) + 1000 * (5 <> X) + 2000 * (X <> 3)", "1011" },
    { "(0 && X / 0) + 2 * (1 || X / 0) + 4 * (0 || 2)", "6" }, { "1 && X / 0", byZero },
    { "7 / 2 * 2 + -7 % 4", "3", "4" }, { "(1 = 1) / (1 + (2 > 1))", "0", "0.5" },
    { "7.5 % 2", "2", "1.5" },
    { "(-9223372036854775807 - 1) / -1 + X % -1", "-9223372036854775808", "9223372036854775808" },
    { "0 ? X / 0 : 4", "4" }, { "X % 0", byZero }, { "1.5 % 0", byZero },
    { "10 * (-1) ** -2 + (-1) ** -3 + 2 ** -1 + 2 * 1 ** -3 + 3 ** 5 + 2 ** 0", "255", "255.5" },
    { "0 ** -1", byZero, infinite },
    { "(-8 >> 63) + 10 * (-8 >> 64) + 100 * (8 >> 64) + 1000 * (1 << 64)", "-11" },
    { "(8 << -2) + (2 >> -2) + (-9 >> 1)", "5" }, { "1 << 62", "4611686018427387904" },
    { "(X + 0.7) & 7", "3" }, { "1e300 & 1", "its formula takes bits of no integer now" },
    { "ABS(-X) + 10 * NEG(X) + 100 * SGN(-X) + 1000 * SGN(X) + 10000 * SGN(X - 3)", "873" },
    { "SGN(-2.5) + 10 * SGN(0.0) + 100 * SGN(0.5) + ABS(-2.0) - NEG(1.0)", "102" },
    { "FLOOR(-0.5) + 10 * CEIL(0.5) + 100 * TRUNC(-1.5) + 1000 * ROUND(2.5)", "2909" },
    { "ROUND(2.71, 1)", "3", "2.7" }, { "ROUND(1e300, 20)", beyond, "1e+300" },
    { "TRUNC(1e6 * (EXP(1) + LN(2) + LG(2) + SQRT(2)))", "5126672" },
    { "TRUNC(1e6 * (SIN(1) + COS(1) + TAN(1) + ASIN(1) + ACOS(-1) + ATAN(1)))", "8436968" },
    { "PI() > 3.14 && E() < 2.72", "1" }, { ".5 + 1.e1 + 2E-1 + 0x1F", "42", "41.7" },
    { "9223372036854775808", beyond, "9223372036854775808" }, { "0xFFFFFFFFFFFFFFFF", "-1" },
    { "", "it ends too early" }, { "X + * 1", "\"* 1\" is not expected" },
    { "(X", "\")\" is missing" }, { "0y", "\"0y\" is no number" },
    { std::string(499, '(') + "X" + std::string(499, ')'), "3" },
    { std::string(500, '(') + "X" + std::string(500, ')'), "it is nested too deeply" },
    { "0" + repeated(1999, [](int) { return "+1"; }), "1999" },
    { "0" + repeated(2000, [](int) { return "+1"; }), "it is too long" } };

TEST(Formula, GivesWhatTheStandardSays)
{
    for (const FormulaCase& test : formulas) {
        EXPECT_EQ(result(test.formula, Arithmetic::Integer), test.ofIntegers) << test.formula;
        EXPECT_EQ(result(test.formula, Arithmetic::Real),
            test.ofReals.empty() ? test.ofIntegers : test.ofReals)
            << test.formula;
    }
}

} // namespace
} // namespace zqcameralib
