#include "CoreFixture.h"

#include <stdexcept>
#include <vector>

namespace featurebrowser {
namespace {

constexpr std::uint16_t address = REPRESENTATION_ADDRESS;
constexpr std::uint16_t ipv4 = REPRESENTATION_IPV4;

/// One record, the line that adds it to the tree and the line that updates it.
struct PresentationCase {
    int type;
    int representation;
    std::string name;
    std::string valueText;
    std::string added;
    std::string updated;
};

Item makeRecord(const PresentationCase& c)
{
    Item item = makeItem(FEATURE_INTEGER, c.name, c.valueText);
    item->type = static_cast<std::uint8_t>(c.type);
    item->representation = static_cast<std::uint16_t>(c.representation);
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

const std::string nul("\0", 1);

const std::vector<PresentationCase> presentationCases = {
    { 1, 0, "Reserved", "1", "", "" },
    { 9, 0, "Unknown", "1", "", "" },
    { 255, 0, "Unknown", "1", "", "" },
    // Plain integers: leading digits when added, strict when updated.
    { 2, 0, "Width", "42", "Int(#, 42, ~, 2, @$", "Integer(#, 42, ~, @)" },
    { 2, 0, "Width", "", "Int(#, 0, ~, 2, @$", "Integer(#, 0, ~, @)" },
    { 2, 0, "Width", "abc", "Int(#, 0, ~, 2, @$", "Integer(#, 9223372036854775807, ~, @)" },
    { 2, 0, "Width", "  012abc", "Int(#, 12, ~, 2, @$", "Integer(#, 12, ~, @)" },
    { 2, 5, "Width", "-9223372036854775808", "Int(#, -9223372036854775808, ~, 2, @$",
        "Integer(#, -9223372036854775808, ~, @)" },
    { 2, 0, "Width", "99999999999999999999", "Int(#, 9223372036854775807, ~, 2, @$",
        "out of range: stoll" },
    // Integers shown as addresses; the case of the name's parts counts.
    { 2, address, "WidthmacgeV", "7", "Int(#, 7, ~, 2, @$", "Integer(#, 7, ~, @)" },
    { 2, 5, "GevMAC", "7", "Int(#, 7, ~, 2, @$", "Integer(#, 7, ~, @)" },
    { 2, address, "GevMACAddress", "258x", R"(String(#, "mac 258", 2, 0, @, 2$)",
        R"(Text(#, "mac 258", 3, [], @))" },
    { 2, address, "DeviceMAC", "0", R"(String(#, "mac 0", 2, 0, @, 2$)",
        R"(Text(#, "mac 0", 3, [], @))" },
    { 2, address, "DeviceMAC", "", "", "" },
    { 2, address, "DeviceMAC", "x", "invalid: stoll", "invalid: stoll" },
    { 2, address, "DeviceMAC", "9223372036854775808", "out of range: stoll",
        "out of range: stoll" },
    { 2, address, "MyGevIP", "3232235777", R"(String(#, "192.168.1.1", 2, 0, @, 1$)",
        R"(Text(#, "192.168.1.1", 3, [], @))" },
    { 2, address, "MyGevIP", "", R"(String(#, "", 2, 0, @, 1$)", R"(Text(#, "", 3, [], @))" },
    { 2, ipv4, "MAC", "0", R"(String(#, "0.0.0.0", 2, 0, @, 1$)",
        R"(Text(#, "0.0.0.0", 3, [], @))" },
    { 2, ipv4, "Mask", "", R"(String(#, "", 2, 0, @, 1$)", R"(Text(#, "", 3, [], @))" },
    { 2, ipv4, "Mask", "4294967297", R"(String(#, "0.0.0.1", 2, 0, @, 1$)",
        R"(Text(#, "0.0.0.1", 3, [], @))" },
    { 2, ipv4, "Mask", "-1", R"(String(#, "255.255.255.255", 2, 0, @, 1$)",
        R"(Text(#, "255.255.255.255", 3, [], @))" },
    { 2, ipv4, "Mask", " 10abc", R"(String(#, "0.0.0.10", 2, 0, @, 1$)",
        R"(Text(#, "0.0.0.10", 3, [], @))" },
    { 2, ipv4, "Mask", "x", "invalid: stoul", "invalid: stoul" },
    { 2, ipv4, "Mask", "18446744073709551616", "out of range: stoul", "out of range: stoul" },
    // Floats: the whole name decides about the slider.
    { 3, 0, "ExposureTime", "2.5mm", "Double(#, 2.5, ~, 2, 1, @$", "Double(#, 2.5, ~, @)" },
    { 3, 0, "exposureTime", "", "Double(#, 0, ~, 2, 0, @$", "Double(#, 0, ~, @)" },
    { 3, 0, "ExposureTimeAbs", "x", "Double(#, 0, ~, 2, 0, @$", "Double(#, 0, ~, @)" },
    // Texts: up to the first NUL when added, whole when updated.
    { 4, 0, "ID", "one" + nul + "two", R"(String(#, "one", 2, 32, @, 0$)",
        R"(Text(#, "one\0two", 3, [], @))" },
    { 8, 0, "Model", "100%", R"(String(#, "100%", 2, 32, @, 0$)", R"(Text(#, "100%", 9, [], @))" },
    { 5, 0, "Mode", "12", R"(Enum(#, 12, ["a" "b" "a"], 2, false, false, true$)",
        R"(Text(#, "12", 6, ["a" "b" "a"], @))" },
    { 5, 0, "Mode", " -x", R"(Enum(#, 0, ["a" "b" "a"], 2, false, false, true$)",
        R"(Text(#, " -x", 6, ["a" "b" "a"], @))" },
    { 5, 0, "Mode", "4294967297", R"(Enum(#, 2147483647, ["a" "b" "a"], 2, false, false, true$)",
        R"(Text(#, "4294967297", 6, ["a" "b" "a"], @))" },
    { 6, 0, "Run", "Go" + nul, R"(Command(#, "Go\0", 2, @$)", R"(Text(#, "Go\0", 7, [], @))" },
    { 7, 0, "Flag", "1", R"(Enum(#, 1, ["a" "b" "a"], 2, false, true, true$)",
        R"(Text(#, "1", 8, ["a" "b" "a"], @))" },
};

std::string replaced(std::string text, const std::string& what, const std::string& by)
{
    const auto at = text.find(what);
    return at == std::string::npos ? text : text.replace(at, what.size(), by);
}

/// The whole journal line of a pattern: # stands for category and name, ~ for the limits, @ for the
/// flags, $ for the selector's role and text. Patterns without arguments stay as they are.
std::string expand(std::string pattern, bool adding, const PresentationCase& c)
{
    if (pattern.find('#') == std::string::npos) {
        return pattern;
    }
    const std::string name = '"' + c.name + '"';
    pattern = replaced(
        pattern, "~", c.type == FEATURE_FLOAT ? "0.5, 9.5, 0.25" : "-5, 1099511627776, 4000000000");
    pattern = replaced(pattern, "(#", adding ? "Feature(\"Cat\", " + name : '(' + name);
    pattern
        = replaced(pattern, "@", c.type == FEATURE_READ_ONLY_STRING ? "true, true" : "false, true");
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
    for (const PresentationCase& c : presentationCases) {
        SCOPED_TRACE(std::to_string(c.type) + " " + c.name + " '" + c.valueText + "'");
        const Item item = makeRecord(c);
        m_script.features = { makeItem(FEATURE_CATEGORY, "Cat", ""), item };
        m_script.onRead = [](auto&) { return false; }; // nothing may be updated then
        const std::string added = outcome([&] {
            return linesWith(R"("Cat", ")",
                journalOf([&](auto& browser, auto&) { browser.LoadFeatureBrowser(); }));
        });
        EXPECT_EQ(added, expand(c.added, true, c));
        m_script.onRead = [](auto&) { return true; };
        const std::string updated = outcome([&] {
            return linesWith("widget.",
                journalOf([&](auto& browser, auto&) { browser.RefreshFeature(c.name); }));
        });
        EXPECT_EQ(updated, expand(c.updated, false, c));
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

struct ReadOnlyCase {
    FEATURE_TYPE type;
    std::uint16_t accessMode;
    std::uint8_t lockedFlag;
    bool readOnly;
    std::int32_t intWritable;
};

const std::vector<ReadOnlyCase> readOnlyCases = {
    { FEATURE_INTEGER, ACCESS_READ_WRITE, 0, false, 1 },
    { FEATURE_INTEGER, ACCESS_READ_WRITE, 0, true, 0 },
    { FEATURE_FLOAT, ACCESS_READ_WRITE, 0, false, 0 },
    { FEATURE_STRING, ACCESS_READ_WRITE, 2, false, 0 },
    { FEATURE_STRING, ACCESS_READ_WRITE, 1, true, 1 },
    { FEATURE_FLOAT, 0, 0, true, 1 },
    { FEATURE_INTEGER, 0x524F, 0, true, 1 },
    { FEATURE_FLOAT, 0x4F52, 0, false, 1 },
    { FEATURE_READ_ONLY_STRING, ACCESS_READ_WRITE, 0, true, 1 },
};

TEST_F(CoreTest, ReadOnlyRuleIsTheSameWhenAddedAndWhenUpdated)
{
    for (const ReadOnlyCase& c : readOnlyCases) {
        const Item item = makeItem(c.type, "F", "1");
        item->accessMode = c.accessMode;
        item->lockedFlag = c.lockedFlag;
        item->intWritable = c.intWritable;
        item->displayFlag = 2; // not 1: not set
        m_script.features = { makeItem(FEATURE_CATEGORY, "Cat", ""), item };
        const std::string text = linesWith(c.readOnly ? "true, false" : "false, false",
            journalOf([](auto& browser, auto&) { browser.LoadFeatureBrowser(); }));
        EXPECT_NE(text.find("widget.add"), std::string::npos) << c.type << ' ' << c.accessMode;
        EXPECT_NE(text.find("widget.modify"), std::string::npos) << c.type << ' ' << c.accessMode;
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
