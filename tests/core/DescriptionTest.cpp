#include "CoreFixture.h"

#include <list>
#include <vector>

namespace featurebrowser {
namespace {

struct DescriptionCase {
    int type;
    std::string expected;
    int level = LEVEL_EXPERT;
    int representation = REPRESENTATION_NUMBER;
    std::string description = "Text %d";
    double min = -5.5, max = 100.0, inc = 0.02;
    std::list<std::string> entries = { "one", "two" };
};

const std::string enumLines = "Type: Enumeration \r\nVisibility: Expert \r\n\n";
const std::string stringLines
    = "Text %d\r\nType: String \r\nVisibility: Expert\r\nMax Length: 4000000000 bytes ";
const std::string integerLines = "\r\nIncrement: 4294967295\r\nType: Integer \r\nVisibility: ";

const std::vector<DescriptionCase> descriptionCases = {
    { 0, "Category" },
    { 1, "" },
    { 9, "" },
    { 2, "Text %d\r\nMin: -16 Max: 4096" + integerLines + "Expert" },
    { 2, "\r\nMin: -16 Max: 4096" + integerLines + "Beginner", 1, REPRESENTATION_ADDRESS, "" },
    { 2, "Text %d" + integerLines + "Guru", 3, REPRESENTATION_IPV4 },
    { 3,
        "Text %d\r\nMin: -5.5 Max: 100.00\r\nIncrement: 0.02\r\nType: Float \r\n"
        "Visibility: Expert" },
    { 3, "Text %d\r\nMin: -5.5e+00 Max: 1.000e+09\r\nType: Float \r\nVisibility: ", 0, 0, "Text %d",
        -5.5, 1e9, 0.01 },
    { 3,
        "Text %d\r\nMin: -1e+08 Max: 1.00e+02\r\nIncrement: 1.23457e+06\r\nType: Float \r\n"
        "Visibility: ",
        4, 0, "Text %d", -100000001.0, 100.0, 1234567.5 },
    { 3, "Text %d\r\nMin: -100000000 Max: 100000000\r\nType: Float \r\nVisibility: Expert", 2, 0,
        "Text %d", -1e8, 1e8, 0.0 },
    { 4, stringLines },
    { 5,
        "Text %d\r\nEnum Entry Name: one \r\n" + enumLines + "Enum Entry Name: two \r\n"
            + enumLines },
    { 5, "Text %d\r\n", 2, 0, "Text %d", 0.0, 0.0, 0.0, {} },
    { 6, "Text %d\r\nType: Command \r\nVisibility: Expert" },
    { 7, "Text %d\r\nType: Boolean \r\nVisibility: Expert" },
    { 8, stringLines },
};

TEST_F(CoreTest, SelectionShowsTheDescriptionByteForByte)
{
    m_script.decimals = { { -5.5, 1 }, { 100.0, 2 }, { 1e9, 3 } };
    for (const DescriptionCase& c : descriptionCases) {
        const Item item = makeItem(FEATURE_INTEGER, "F", "");
        item->type = static_cast<std::uint8_t>(c.type);
        item->level = static_cast<std::uint8_t>(c.level);
        item->representation = static_cast<std::uint16_t>(c.representation);
        item->description = c.description;
        item->intMin = -16;
        item->intMax = 4096;
        item->intInc = 4294967295U;
        item->floatMin = c.min;
        item->floatMax = c.max;
        item->floatInc = c.inc;
        item->maxLength = 4000000000U;
        item->enumEntries = c.entries;
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
