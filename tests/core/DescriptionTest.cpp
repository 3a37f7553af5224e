#include "CoreFixture.h"

#include <vector>

namespace featurebrowser {
namespace {

struct DescriptionCase {
    int type;
    std::function<void(FeatureItem&)> change;
    std::string expected;
};

const auto unchanged = [](FeatureItem&) {};
const std::string enumLines = "Type: Enumeration \r\nVisibility: Expert \r\n\n";

const std::vector<DescriptionCase> descriptionCases = {
    { 0, unchanged, "Category" },
    { 1, unchanged, "" },
    { 9, unchanged, "" },
    { 2, unchanged,
        "Text %d\r\nMin: -16 Max: 4096\r\nIncrement: 4294967295\r\nType: Integer \r\n"
        "Visibility: Expert" },
    { 2,
        [](FeatureItem& item) {
            item.representation = REPRESENTATION_ADDRESS;
            item.level = 1;
            item.description = "";
        },
        "\r\nMin: -16 Max: 4096\r\nIncrement: 4294967295\r\nType: Integer \r\n"
        "Visibility: Beginner" },
    { 2,
        [](FeatureItem& item) {
            item.representation = REPRESENTATION_IPV4;
            item.level = 3;
        },
        "Text %d\r\nIncrement: 4294967295\r\nType: Integer \r\nVisibility: Guru" },
    { 3, unchanged,
        "Text %d\r\nMin: -5.5 Max: 100.00\r\nIncrement: 0.02\r\nType: Float \r\n"
        "Visibility: Expert" },
    { 3,
        [](FeatureItem& item) {
            item.floatMax = 1e9;
            item.floatInc = 0.01;
            item.level = 0;
        },
        "Text %d\r\nMin: -5.5e+00 Max: 1.000e+09\r\nType: Float \r\nVisibility: " },
    { 3,
        [](FeatureItem& item) {
            item.floatMin = -100000001.0;
            item.floatInc = 1234567.5;
            item.level = 4;
        },
        "Text %d\r\nMin: -1e+08 Max: 1.00e+02\r\nIncrement: 1.23457e+06\r\nType: Float \r\n"
        "Visibility: " },
    { 3,
        [](FeatureItem& item) {
            item.floatMin = -1e8;
            item.floatMax = 1e8;
            item.floatInc = 0.0;
        },
        "Text %d\r\nMin: -100000000 Max: 100000000\r\nType: Float \r\nVisibility: Expert" },
    { 4, unchanged,
        "Text %d\r\nType: String \r\nVisibility: Expert\r\nMax Length: 4000000000 bytes " },
    { 5, unchanged,
        "Text %d\r\nEnum Entry Name: one \r\n" + enumLines + "Enum Entry Name: two \r\n"
            + enumLines },
    { 5, [](FeatureItem& item) { item.enumEntries.clear(); }, "Text %d\r\n" },
    { 6, unchanged, "Text %d\r\nType: Command \r\nVisibility: Expert" },
    { 7, unchanged, "Text %d\r\nType: Boolean \r\nVisibility: Expert" },
    { 8, unchanged,
        "Text %d\r\nType: String \r\nVisibility: Expert\r\nMax Length: 4000000000 bytes " },
};

TEST_F(CoreTest, SelectionShowsTheDescriptionByteForByte)
{
    m_script.decimals = { { -5.5, 1 }, { 100.0, 2 }, { 1e9, 3 } };
    for (const DescriptionCase& c : descriptionCases) {
        const Item item = makeItem(FEATURE_INTEGER, "F", "");
        item->type = static_cast<std::uint8_t>(c.type);
        item->level = LEVEL_EXPERT;
        item->description = "Text %d";
        item->intMin = -16;
        item->intMax = 4096;
        item->intInc = 4294967295U;
        item->floatMin = -5.5;
        item->floatMax = 100.0;
        item->floatInc = 0.02;
        item->maxLength = 4000000000U;
        item->enumEntries = { "one", "two" };
        c.change(*item);
        EXPECT_EQ(getTextDescription(item), c.expected);

        std::string shown;
        doubles::append(shown, c.expected);
        m_script.features = { item };
        m_script.onRead = [](auto&) { return false; };
        EXPECT_EQ(journalOf([](auto&, auto& events) { events.ItemSelectionChanged("F"); }),
            "repository.GetFeature(\"F\")\nrepository.ReadFeature(\"F\")\n"
            "widget.setItemDescription(\"F\", "
                + shown + ")\nreceiver.ItemSelectionChanged(\"F\")\n");
    }
}

TEST_F(CoreTest, SelectionOfAnUnknownNameStillReachesTheApplication)
{
    const Act act = [](auto&, auto& events) { events.ItemSelectionChanged("X"); };
    EXPECT_EQ(
        journalOf(act), "repository.GetFeature(\"X\")\nreceiver.ItemSelectionChanged(\"X\")\n");
    EXPECT_EQ(journalOf(act, false), "repository.GetFeature(\"X\")\n");
}

} // namespace
} // namespace featurebrowser
