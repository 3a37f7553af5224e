// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"

using namespace featurebrowser;

namespace {

struct Case {
    std::string node; ///< defines F, and what it needs
    const char* why; ///< it cannot be read; empty where it can
};

std::string named(const std::string& kind, const std::string& content)
{
    return node(kind, "F", content);
}

std::string placed(const std::string& kind, const std::string& more)
{
    return named(kind, "<Address>0</Address><pPort>Device</pPort>" + more);
}

std::string length(const std::string& text)
{
    return element("Length", text);
}

/// "F" over so many nodes that each hand on the value of the next one.
std::string chain(int nodes)
{
    const auto name = [](int i) { return "N" + std::to_string(i); };
    return named("Integer", "<pValue>N1</pValue>") + repeated(nodes - 1, [&](int i) {
        return node("Integer", name(i + 1), element("pValue", name(i + 2)));
    }) + node("Integer", name(nodes), "<Value>1</Value>");
}

const char* const badLength = "its register has an impossible length";
const char* const badBits = "its bits lie outside of its register";
const char* const noPort = "its register has no port";
const char* const noValue = "it has no value";
const char* const tooLong = "its formula is too long";
const char* const noName = "its formula has a variable without a name";
const std::string text = reg("StringReg", "T", 8);

/// A formula of so many expressions within each other.
std::string nested(int count)
{
    return named("IntSwissKnife", repeated(count, [count](int i) {
        const std::string next = i + 1 < count ? "E" + std::to_string(i + 1) : "1";
        return node("Expression", "E" + std::to_string(i), next);
    }) + "<Formula>E0</Formula>");
}

std::string expressionOf(int i, const std::string& formula)
{
    return node("Expression", "E" + std::to_string(i), formula);
}

/// A formula of expressions each of which takes the one before twice.
std::string sums(int count)
{
    return named("IntSwissKnife",
        expressionOf(0, "1")
            + repeated(count,
                [](int i) {
                    const std::string last = "E" + std::to_string(i);
                    return expressionOf(i + 1, last + "+" + last);
                })
            + "<Formula>E" + std::to_string(count) + "</Formula>");
}

const std::string blanks(19998, '\n');

TEST(BrokenNode, IsListedWithTheReasonAndOneAtTheLimitIsNone)
{
    const std::vector<Case> cases { { placed("IntReg", length("0")), badLength },
        { placed("IntReg", length("1")), "" }, { placed("IntReg", length("8")), "" },
        { placed("IntReg", length("9")), badLength },
        { placed("IntReg", length("four")), badLength },
        { placed("IntReg", length("-1")), badLength },
        { placed("StringReg", length("9223372036854775807")), badLength },
        { placed("IntReg", "<pLength>L</pLength>")
                + node("Integer", "L", "<Value>-9223372036854775808</Value>"),
            badLength },
        { placed("IntReg", "<pLength>L</pLength>")
                + "<Integer Name=\"L\"><Value>8</Value></Integer>",
            "" },
        { placed("IntReg", "<pLength>L</pLength>") + intReg("L", 8), badLength },
        { placed("StringReg", "<pLength>L</pLength>") + intReg("L", 8), "" },
        { placed("StringReg", length("four")), badLength }, { placed("FloatReg", length("4")), "" },
        { placed("FloatReg", length("8")), "" }, { placed("FloatReg", length("6")), badLength },
        { placed("StringReg", length("1048576")), "" },
        { placed("StringReg", length("1048577")), badLength },
        { placed("MaskedIntReg", "<LSB>31</LSB><MSB>0</MSB>"), "" },
        { placed("MaskedIntReg", "<LSB>0</LSB><MSB>32</MSB>"), badBits },
        { placed("MaskedIntReg", "<LSB>-1</LSB><MSB>3</MSB>"), badBits },
        { placed("MaskedIntReg", "<Bit>32</Bit>"), badBits },
        { reg("StructReg", "S", 0, named("StructEntry", "<LSB>40</LSB><MSB>99</MSB>")), badBits },
        { "<StructEntry Name=\"F\"><Bit>1</Bit></StructEntry>", "it stands outside of a register" },
        { named("IntReg", "<Address>0</Address>"), noPort },
        { named("IntReg", "<Address>0</Address><pPort>Main</pPort>"), noPort },
        { named("IntReg", "<pPort>Device</pPort>"), "its register has no address" },
        { placed("IntReg", "<IntSwissKnife><Formula>4</Formula></IntSwissKnife>"),
            "its address has a formula without a name" },
        { named("Integer", ""), noValue }, { named("Converter", "<Value>1</Value>"), noValue },
        { named("Boolean", "<ValueIndexed Index=\"1\">1</ValueIndexed>"), noValue },
        { named("Integer",
              "<pIndex>L</pIndex><ValueIndexed Index=\"0\">1</ValueIndexed><ValueDefault>2"
              "</ValueDefault>")
                + intReg("L", 8),
            "" },
        { named("Float", "<pIndex>L</pIndex><ValueIndexed Index=\"0\">1</ValueIndexed>")
                + intReg("L", 8),
            "" },
        { named("Command", "<Value>1</Value>"), "it has no value to write" },
        { named("IntSwissKnife", element("Formula", "1+" + blanks.substr(3) + "11")), "" },
        { named("IntSwissKnife", element("Formula", "1+" + blanks + "1")), tooLong },
        { named("SwissKnife", "<pVariable>L</pVariable><Formula>1</Formula>") + intReg("L", 8),
            noName },
        { named("SwissKnife", "<Constant>1</Constant><Formula>1</Formula>"), noName },
        { named("SwissKnife", "<Expression>1</Expression><Formula>1</Formula>"), noName },
        { named("SwissKnife", "<Formula>1 +</Formula>"),
            "its formula is wrong: it ends too early" },
        { named("SwissKnife", "<Constant Name=\"C\">F</Constant><Formula>C</Formula>"),
            "its constant C is no number" },
        { sums(14), "" }, { sums(15), "it takes too long to evaluate" },
        { named("SwissKnife",
              repeated(60, [](int i) { return expressionOf(i, "1"); }) + "<Formula>0"
                  + repeated(60, [](int i) { return "+E" + std::to_string(i); }) + "</Formula>"),
            "" },
        { nested(50), "" }, { nested(51), "its expressions are nested too deeply" },
        { named("Converter",
              "<pValue>L</pValue><FormulaTo>No</FormulaTo><FormulaFrom>TO</FormulaFrom>")
                + intReg("L", 8),
            "its formula uses No, which is not defined" },
        { named("Integer", "<pValue>No</pValue>"), "it refers to No, which does not exist" },
        { named("Integer", "<pValue>T</pValue>") + text,
            "it refers to T, which has no such value" },
        { named("String", "<pValue>T</pValue>") + text, "" },
        { named("String", "<pValue>L</pValue>") + intReg("L", 8),
            "it refers to L, which has no such value" },
        { named("Integer", "<pValue>L</pValue>") + intReg("L", 8, length("9")),
            "it needs L, which cannot be read" },
        { named("Integer", "<pValue>F</pValue>"), "its value depends on itself" },
        { placed("IntReg", "<pValue>F</pValue><pValue>F</pValue>" + length("4")),
            "its value depends on itself" },
        { named("Float", "<Value>1</Value><pMin>M</pMin>")
                + knife("SwissKnife", "M", { "F.Min" }, "F.Min"),
            "it refers to F.Min, which does not exist" },
        { chain(399), "" }, { chain(400), "it takes too long to evaluate" },
        { chain(50000), "it needs N1, which cannot be read" },
        { named("Integer", "<pValue>K60</pValue>") + doubling(60),
            "it needs K60, which cannot be read" } };
    for (const Case& test : cases) {
        SCOPED_TRACE(test.node.substr(0, 1000));
        TestCamera camera("F", test.node);
        const std::string reason = std::string("Cannot be read: ") + test.why + ".";
        EXPECT_EQ(camera.item("F").description, *test.why == '\0' ? "" : reason);
        EXPECT_EQ(camera.state("F") == FEATURE_READ_FAILED, *test.why != '\0');
    }
}

} // namespace
