// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "CoreFixture.h"

#include <clocale>
#include <cstdlib>
#include <limits>
#include <locale>
#include <utility>
#include <vector>

namespace featurebrowser {
namespace {

const double largest = std::numeric_limits<double>::max();

const std::vector<std::pair<const char*, double>> numbers = { { "3.5", 3.5 }, { "", 0.0 },
    { "abc", 0.0 }, { "2.5mm", 2.5 }, { " \t7", 7.0 }, { "1e3", 1000.0 }, { "1E-3", 0.001 },
    { "-0.25", -0.25 }, { "1,000.5", 1000.5 }, { "1,00,0.5", 1000.5 }, { "1,5", 15.0 },
    { "1,,000", 0.0 }, { "1.5,000", 1.5 }, { "1e999", largest }, { "-1e999", -largest },
    { "1e-999", 0.0 }, { "inf", 0.0 }, { "nan", 0.0 }, { "-", 0.0 } };

bool namedLocaleExists()
{
    try {
        return std::locale("en_US.UTF8").name() == "en_US.UTF8";
    } catch (const std::runtime_error&) {
        return false;
    }
}

/// In a process whose locale has a decimal comma; skipped where the host has none.
class GermanProcess : public CoreTest {
protected:
    void SetUp() override
    {
        try {
            std::locale::global(std::locale("de_DE.UTF-8")); // of C functions as well
        } catch (const std::runtime_error&) {
            GTEST_SKIP() << "no locale with a decimal comma";
        }
    }
    void TearDown() override { std::locale::global(std::locale::classic()); }
};

/// The test run sets this variable, so that both ways of customatof are known to be covered.
TEST(Customatof, RunsWithAndWithoutTheNamedLocale)
{
    const char* expected = std::getenv("ZQ_EXPECT_NAMED_LOCALE");
    if (!expected) {
        GTEST_SKIP() << "run by hand, on whatever the host has";
    }
    EXPECT_EQ(namedLocaleExists(), std::string(expected) == "1");
}

void expectNumbers()
{
    for (const auto& [text, value] : numbers) {
        EXPECT_EQ(customatof(text), value) << '\'' << text << '\'';
    }
}

TEST(Customatof, ReadsCameraNumbers)
{
    expectNumbers();
}

TEST_F(GermanProcess, DoesNotChangeNumbersMessagesAndDescriptions)
{
    ASSERT_EQ(std::localeconv()->decimal_point, std::string(","));
    expectNumbers();
    const Item item = makeItem(FEATURE_FLOAT, "F", "1");
    item->floatMax = 1234567.5;
    m_script.features = { item };
    m_script.statuses["SetFloatValue"] = { ERROR_FLOAT_OUT_OF_RANGE };
    const std::string text
        = journalOf([](auto&, auto& events) { events.FeatureDoubleModified("F", 1.0); });
    EXPECT_NE(text.find("between 0.00000 and 1234567.50000\")"), std::string::npos) << text;
    m_script.decimals[1234567.5] = 1;
    EXPECT_NE(getTextDescription(item).find("Max: 1234567.5\r\n"), std::string::npos);
}

TEST_F(CoreTest, DottedTextIsWrittenAsAPositiveNumber)
{
    const std::vector<std::pair<const char*, const char*>> addresses
        = { { "192.168.1.1", "3232235777" }, { "255.255.255.255", "4294967295" }, { "", "0" },
              { "1.2.3", "0" }, { "1.2.3.400", "0" }, { "10.0.0.1 ", "0" } };
    for (const auto& [text, value] : addresses) {
        const std::string written
            = linesWith("device.", journalOf([&, entered = std::string(text)](auto&, auto& events) {
                  events.FeatureIPModified("IP", entered);
              }));
        EXPECT_EQ(written, std::string("device.SetIntegerValue(\"IP\", ") + value + ", 1)\n");
    }
}

} // namespace
} // namespace featurebrowser
