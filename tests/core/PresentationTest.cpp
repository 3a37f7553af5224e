// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "CoreFixture.h"

#include <stdexcept>
#include <vector>

namespace featurebrowser {
namespace {

/// A record, the line that adds it to the tree and the line that updates it, by their columns.
enum Column { typeOf, representationOf, nameOf, valueTextOf, addedBy, updatedBy };

Item makeRecord(const Columns& c)
{
    Item item = makeItem(
        FEATURE_INTEGER, c.at(nameOf), replaced(c.at(valueTextOf), "\\0", std::string("\0", 1)));
    item->type = static_cast<std::uint8_t>(std::stoi(c.at(typeOf)));
    item->representation = static_cast<std::uint16_t>(std::stoi(c.at(representationOf)));
    item->level = LEVEL_EXPERT;
    item->intMin = -5;
    item->intMax = 1L << 40;
    item->intInc = 4000000000U;
    item->floatMin = 0.5;
    item->floatMax = 9.5;
    item->floatInc = 0.25;
    item->maxLength = 32;
    item->enumEntries = { "a", "b", "a" };
    item->selectorParent = "Sel";
    return item;
}

/// The whole journal line of a pattern: # stands for category and name, ~ for the limits, @ for the
/// flags, $ for the selector's role and text. Patterns without arguments stay as they are.
std::string expand(std::string pattern, bool adding, const Columns& c)
{
    if (pattern.find('#') == std::string::npos) {
        return pattern;
    }
    const std::string name = '"' + c.at(nameOf) + '"';
    pattern = replaced(
        pattern, "~", c.at(typeOf) == "3" ? "0.5, 9.5, 0.25" : "-5, 1099511627776, 4000000000");
    pattern = replaced(pattern, "(#", adding ? "Feature(\"Cat\", " + name : '(' + name);
    pattern = replaced(pattern, "@", c.at(typeOf) == "8" ? "true, true" : "false, true");
    return (adding ? "widget.add" : "widget.modify") + replaced(pattern, "$", R"(, 3, "Sel"))")
        + '\n';
}

/// What is left in `lines` of the journal, or the exception that came out.
template <class Act> std::string outcome(Act act)
{
    try {
        return act();
    } catch (const std::invalid_argument& e) {
        return std::string("invalid: ") + e.what();
    } catch (const std::out_of_range& e) {
        return std::string("out of range: ") + e.what();
    }
}

TEST_F(CoreTest, EveryKindOfRecordIsAddedAndUpdatedAsItIsShown)
{
    m_script.selectorState = SELECTOR_BOTH;
    for (const Columns& c : table("records")) {
        SCOPED_TRACE(c.at(typeOf) + " " + c.at(nameOf) + " '" + c.at(valueTextOf) + "'");
        const Item item = makeRecord(c);
        m_script.features = { makeItem(FEATURE_CATEGORY, "Cat", ""), item };
        m_script.onRead = [](auto&) { return false; }; // nothing may be updated then
        const std::string added = outcome([&] {
            return linesWith(R"("Cat", ")",
                journalOf([&](auto& browser, auto&) { browser.LoadFeatureBrowser(); }));
        });
        EXPECT_EQ(added, expand(c.at(addedBy), true, c));
        m_script.onRead = [](auto&) { return true; };
        const std::string updated = outcome([&] {
            return linesWith("widget.",
                journalOf([&](auto& browser, auto&) { browser.RefreshFeature(c.at(nameOf)); }));
        });
        EXPECT_EQ(updated, expand(c.at(updatedBy), false, c));
    }
}

TEST_F(CoreTest, CategoriesNestByDepthAndFeaturesStandInTheInnermostOne)
{
    const auto category = [](const char* name, std::uint8_t depth) {
        return makeItem(FEATURE_CATEGORY, name, "", depth);
    };
    const auto command = [](const char* name, std::uint8_t depth) {
        return makeItem(FEATURE_COMMAND, name, "Go", depth);
    };
    m_script.features = { command("Top", 0), command("Loose", 1), category("A", 0),
        category("B", 1), category("C", 2), command("InC", 3), command("InB", 2), category("D", 1),
        command("InD", 2), category("E", 0), command("InE", 1), category("Deep", 3) };
    const std::string tree
        = "widget.addCommandFeature(\"\", \"Top\", \"Go\", 1, false, true, 0, \"\")\n"
          "widget.addCommandFeature(\"\", \"Loose\", \"Go\", 1, false, true, 0, \"\")\n"
          "widget.addCategory(\"A\", 1)\n"
          "widget.addSubCategory(\"A\", \"B\", 1)\n"
          "widget.addSubCategory(\"B\", \"C\", 1)\n"
          "widget.addCommandFeature(\"C\", \"InC\", \"Go\", 1, false, true, 0, \"\")\n"
          "widget.addCommandFeature(\"B\", \"InB\", \"Go\", 1, false, true, 0, \"\")\n"
          "widget.addSubCategory(\"A\", \"D\", 1)\n"
          "widget.addCommandFeature(\"D\", \"InD\", \"Go\", 1, false, true, 0, \"\")\n"
          "widget.addCategory(\"E\", 1)\n"
          "widget.addCommandFeature(\"E\", \"InE\", \"Go\", 1, false, true, 0, \"\")\n"
          "widget.addSubCategory(\"\", \"Deep\", 1)\n";
    const std::string text = journalOf([](auto& browser, auto&) {
        EXPECT_EQ(browser.LoadFeatureBrowser(), 0);
        EXPECT_EQ(browser.LoadFeatureBrowser(), 0);
    });
    EXPECT_EQ(linesWith("widget.add", text), tree + tree);
}

TEST_F(CoreTest, ReadOnlyRuleIsTheSameWhenAddedAndWhenUpdated)
{
    for (const Columns& row : table("read-only")) {
        const Item item = makeItem(static_cast<FEATURE_TYPE>(std::stoi(row.at(0))), "F", "1");
        item->accessMode = static_cast<std::uint16_t>(std::stoi(row.at(1), nullptr, 16));
        item->lockedFlag = static_cast<std::uint8_t>(std::stoi(row.at(2)));
        item->intWritable = std::stoi(row.at(3));
        item->displayFlag = 2; // not 1: not set
        m_script.features = { makeItem(FEATURE_CATEGORY, "Cat", ""), item };
        const std::string text = linesWith(row.at(4) + ", false",
            journalOf([](auto& browser, auto&) { browser.LoadFeatureBrowser(); }));
        EXPECT_NE(text.find("widget.add"), std::string::npos) << row.at(0) << ' ' << row.at(1);
        EXPECT_NE(text.find("widget.modify"), std::string::npos) << row.at(0) << ' ' << row.at(1);
    }
}

TEST(Types, OnlyShownKindsHaveAValueKind)
{
    const std::vector<int> kinds = { 0, 0, 5, 4, 3, 6, 7, 8, 9, 0 };
    for (int type = 0; type < 10; ++type) {
        EXPECT_EQ(getType(type), kinds.at(static_cast<std::size_t>(type))) << type;
    }
    for (const int type : { -5, -1, 255, 258, 2147483647, -2147483647 - 1 }) {
        EXPECT_EQ(getType(type), CAM_TYPE_NONE) << type;
    }
}

} // namespace
} // namespace featurebrowser
