// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "CoreFixture.h"

namespace featurebrowser {
namespace {

TEST_F(CoreTest, SelectionShowsTheDescriptionByteForByte)
{
    m_script.decimals = { { -5.5, 1 }, { 100.0, 2 }, { 1e9, 3 } };
    const auto expect = [this](const Item& item, const std::string& expected) {
        EXPECT_EQ(getTextDescription(item), expected);
        std::string shown;
        doubles::append(shown, expected);
        m_script.features = { item };
        m_script.onRead = [](auto&) { return false; };
        EXPECT_EQ(journalOf([](auto&, auto& events) { events.ItemSelectionChanged("F"); }),
            "repository.GetFeature(\"F\")\nrepository.ReadFeature(\"F\")\n"
            "widget.setItemDescription(\"F\", "
                + shown + ")\nreceiver.ItemSelectionChanged(\"F\")\n");
    };
    for (const Columns& row : table("descriptions")) {
        const Item item = makeItem(FEATURE_INTEGER, "F", "");
        item->type = static_cast<std::uint8_t>(std::stoi(row.at(0)));
        item->level = static_cast<std::uint8_t>(std::stoi(row.at(1)));
        item->representation = static_cast<std::uint16_t>(std::stoi(row.at(2)));
        item->description = "Text %d";
        item->intMin = -16;
        item->intMax = 4096;
        item->intInc = 4294967295U;
        item->floatMin = std::stod(row.at(3));
        item->floatMax = std::stod(row.at(4));
        item->floatInc = std::stod(row.at(5));
        item->maxLength = 4000000000U;
        item->enumEntries = { "one", "two" };
        std::string text = row.at(6);
        for (const auto& [written, meant] : { std::pair("\\r", "\r"), { "\\n", "\n" } }) {
            while (text.find(written) != std::string::npos) {
                text = replaced(text, written, meant);
            }
        }
        expect(item, text.substr(0, text.size() - (text.find(" .") + 2 == text.size() ? 1 : 0)));
    }
    const Item bare = makeItem(FEATURE_INTEGER, "F", "");
    bare->intMax = 5;
    expect(bare, "\r\nMin: 0 Max: 5\r\nIncrement: 0\r\nType: Integer \r\nVisibility: Beginner");
    bare->type = FEATURE_ENUMERATION;
    bare->description = "Text";
    expect(bare, "Text\r\n");
}

} // namespace
} // namespace featurebrowser
