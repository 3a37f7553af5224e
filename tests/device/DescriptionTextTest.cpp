// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"

#include "description/ReferenceWalk.h"

namespace zqcameralib {
namespace {

std::unique_ptr<Description> parse(const std::string& nodes)
{
    std::string error;
    std::unique_ptr<Description> description
        = Description::parse(TestCamera::description("A", nodes), error);
    EXPECT_EQ(error, "");
    return description;
}

TEST(DescriptionText, WhatIsNoTextBecomesAQuestionMarkPerByte)
{
    const std::vector<std::pair<std::string, std::string>> cases {
        { "\xC2\xB5m \xE2\x82\xAC \xF0\x9F\x93\xB7", "\xC2\xB5m \xE2\x82\xAC \xF0\x9F\x93\xB7" },
        { "20 \xB0"
          "C",
            "20 ?C" },
        { "cut \xE2\x82", "cut ??" },
        { "\xC0\xAF over", "?? over" },
        { "\xED\xA0\x80 half", "??? half" },
        { std::string("a\0b\x01"
                      "c",
              5),
            "a?b?c" },
        { "tab\tstays", "tab\tstays" },
    };
    for (const auto& [bytes, text] : cases) {
        const auto description = parse(
            element("Integer", "") + "<Float Name=\"A\"><ToolTip>" + bytes + "</ToolTip></Float>");
        const DescriptionNode& node = description->node(description->find("A"));
        EXPECT_EQ(childText(node.element, "ToolTip"), text);
    }
}

/// Indices as names, so that a failure can be read.
std::string names(const Description& description, const std::vector<std::size_t>& nodes)
{
    std::string text;
    for (const std::size_t node : nodes) {
        text += description.node(node).name;
    }
    return text;
}

TEST(ReferenceWalk, ComesToEachNodeOnceNearestFirstWithinItsBudget)
{
    const auto description
        = parse("<Integer Name=\"A\"><pValue>B</pValue><pMax>F</pMax></Integer>"
                "<IntSwissKnife Name=\"B\"><pVariable>C</pVariable><pVariable>D</pVariable>"
                "<pVariable>Missing</pVariable></IntSwissKnife>"
                "<Integer Name=\"C\"><pValue>E</pValue><pValue>A</pValue></Integer>"
                "<Integer Name=\"D\"><pValue>E</pValue></Integer>"
                "<Integer Name=\"E\"><pValue>B</pValue></Integer><Integer Name=\"F\"/>");
    const std::size_t start = description->find("A");
    const auto walked = [&](ReferenceTags followed, std::size_t most) {
        return names(*description, reachable(*description, start, followed, most));
    };

    EXPECT_EQ(walked(isValueSource, NodeWalk::unlimited), "ABCDE");
    EXPECT_EQ(walked(isValueSource, 4), "ABCD");
    EXPECT_EQ(walked(isValueSource, 1), "A");
    EXPECT_EQ(walked(isLimit, 9), "AF");
    EXPECT_EQ(walked(only(ReferenceTag::Value), 9), "AB");
}

} // namespace
} // namespace zqcameralib
