// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/NumberText.h"
#include "base/BigEndian.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstring>
#include <random>

namespace zqcameralib {
namespace {

TEST(NumberText, OfADoubleIsTheShortestThatReadsBack)
{
    for (const auto& [value, text] :
        { std::pair(0.1, "0.1"), { -0.0, "-0" }, { 1e22, "1e+22" }, { 123456.0, "123456" },
            { 1.0 / 3.0, "0.3333333333333333" }, { DBL_MAX, "1.7976931348623157e+308" },
            { DBL_TRUE_MIN, "5e-324" }, { HUGE_VAL, "" }, { std::nan(""), "" } }) {
        EXPECT_EQ(floatText(value), text);
    }
    std::mt19937_64 bits(1);
    for (int i = 0; i < 20000; ++i) {
        const std::uint64_t pattern = bits();
        double value = 0.0;
        std::memcpy(&value, &pattern, sizeof value);
        const std::string text = floatText(value);
        EXPECT_EQ(text.empty(), !std::isfinite(value));
        EXPECT_TRUE(text.empty() || g_ascii_strtod(text.c_str(), nullptr) == value) << text;
        EXPECT_LE(text.size(), 24U);
    }
}

struct IntegerCase {
    const char* text;
    std::int64_t leading;
    std::uint64_t leadingUnsigned;
    bool isWhole;
};

TEST(NumberText, IsReadAsDescriptionsWriteIntegers)
{
    for (const IntegerCase& test : std::vector<IntegerCase> {
             { "42", 42, 42, true },
             { "-1", -1, UINT64_MAX, true },
             { "0x1F", 31, 31, true },
             { "0xffffffffffffffff", INT64_MAX, UINT64_MAX, true },
             { "010", 10, 10, true },
             { "8 ", 8, 8, false },
             { "12 px", 12, 12, false },
             { "1;2", 1, 1, false },
             { "px", 0, 0, false },
             { "", 0, 0, false },
         }) {
        EXPECT_EQ(leadingInteger(test.text), test.leading) << test.text;
        EXPECT_EQ(leadingUnsigned(test.text), test.leadingUnsigned) << test.text;
        const std::optional<std::int64_t> whole = wholeInteger(test.text);
        EXPECT_EQ(whole.has_value(), test.isWhole) << test.text;
        EXPECT_EQ(whole.value_or(test.leading), test.leading) << test.text;
    }
}

TEST(BigEndian, PutsTheHighestByteFirst)
{
    const std::array<std::uint8_t, 4> word { 0x12, 0x34, 0x56, 0x78 };
    EXPECT_EQ(toBigEndian(std::uint32_t { 0x12345678 }), word);
    EXPECT_EQ(fromBigEndian<std::uint32_t>(word), 0x12345678U);
    const std::array<std::uint8_t, 8> minusTwo { 0xC0, 0, 0, 0, 0, 0, 0, 0 };
    EXPECT_EQ(toBigEndian(-2.0), minusTwo);
    EXPECT_EQ(fromBigEndian<double>(minusTwo), -2.0);
    EXPECT_EQ(fromBigEndian<std::int64_t>(minusTwo), INT64_MIN / 2);
}

} // namespace
} // namespace zqcameralib
