#include "CoreFixture.h"

#include <stdexcept>

namespace featurebrowser {
namespace {

std::string readAndShow(const std::string& name)
{
    return "repository.ReadFeature(\"" + name + "\")\nwidget.modifyText(\"" + name
        + "\", \"Go\", 7, [], false, true)\n";
}

std::string lookUp(const std::string& name)
{
    return "repository.GetFeature(\"" + name + "\")\n";
}

Item makeCommand(const std::string& name)
{
    return makeItem(FEATURE_COMMAND, name, "Go");
}

const std::string fixedDependent = lookUp("PayloadSize") + readAndShow("PayloadSize");

class RefreshTest : public CoreTest {
protected:
    RefreshTest()
    {
        for (const char* name : { "F", "Width", "Height", "HeightInterface", "PayloadSize",
                 "DoubleRate_Enable", "DoubleRate_Enable2" }) {
            m_script.features.push_back(makeCommand(name));
        }
    }

    /// What follows the record's own update in a refresh of `name`.
    static std::string refresh(const std::string& name)
    {
        const std::string text
            = journalOf([&](auto& browser, auto&) { browser.RefreshFeature(name); });
        const std::string own = lookUp(name) + readAndShow(name)
            + "stderr(\"Refresh feature in repository: " + name
            + " value: Go\\n\")\nrepository.GetInvalidatedFeatures(\"" + name + "\")\n";
        EXPECT_EQ(text.substr(0, own.size()), own);
        return text.substr(std::min(own.size(), text.size()));
    }
};

TEST_F(RefreshTest, FixedDependentsFollowTheListedOnes)
{
    m_script.invalidated["F"] = { makeCommand("A"), nullptr, makeCommand("B"), makeCommand("A") };
    EXPECT_EQ(
        refresh("F"), readAndShow("A") + readAndShow("B") + readAndShow("A") + fixedDependent);
    EXPECT_EQ(
        refresh("DoubleRate_Enable"), lookUp("Width") + readAndShow("Width") + fixedDependent);
    EXPECT_EQ(refresh("DoubleRate_Enable2"), fixedDependent);
}

TEST_F(RefreshTest, MultiRoiHeightsFollowEachMatchingItemWhenEnabled)
{
    const std::string asks = "device.GetBooleanValue(\"MROI_Enable\")\n";
    const std::string heights = lookUp("Height") + readAndShow("Height") + lookUp("HeightInterface")
        + readAndShow("HeightInterface");
    m_script.invalidated["F"] = { makeCommand("My_MROI_Htot2"), makeCommand("mroi_Htot") };
    const auto expected = [&](const std::string& middle) {
        return readAndShow("My_MROI_Htot2") + asks + middle + readAndShow("mroi_Htot")
            + fixedDependent;
    };
    m_script.booleanValue = true;
    EXPECT_EQ(refresh("F"), expected(heights));
    m_script.statuses["GetBooleanValue"] = { 1 };
    EXPECT_EQ(refresh("F"), expected(""));
    m_script.booleanValue = false;
    EXPECT_EQ(refresh("F"), expected(""));
}

TEST_F(RefreshTest, UnknownFeatureIsSilent)
{
    EXPECT_EQ(journalOf([](auto& browser, auto&) { browser.RefreshFeature("X"); }), lookUp("X"));
}

TEST_F(RefreshTest, UnreadableFeatureIsTracedButNotShown)
{
    m_script.onRead = [](FeatureItem& item) {
        item.valueText = std::string("new\0%s", 6);
        return false;
    };
    EXPECT_EQ(journalOf([](auto& browser, auto&) { browser.RefreshFeature("F"); }),
        lookUp("F") + "repository.ReadFeature(\"F\")\n"
            + "stderr(\"Refresh feature in repository: F value: new\\0%s\\n\")\n"
            + "repository.GetInvalidatedFeatures(\"F\")\n" + lookUp("PayloadSize")
            + "repository.ReadFeature(\"PayloadSize\")\n");
}

TEST_F(RefreshTest, ConversionErrorEndsTheWalk)
{
    m_script.invalidated["F"]
        = { makeItem(FEATURE_INTEGER, "Huge", "9223372036854775808"), makeCommand("Later") };
    EXPECT_EQ(journalOf([](auto& browser, auto&) {
        EXPECT_THROW(browser.RefreshFeature("F"), std::out_of_range);
    }),
        lookUp("F") + readAndShow("F")
            + "stderr(\"Refresh feature in repository: F value: Go\\n\")\n"
              "repository.GetInvalidatedFeatures(\"F\")\nrepository.ReadFeature(\"Huge\")\n");
}

TEST_F(RefreshTest, SelectorRefreshesWhatItSelectsOnce)
{
    const Item self = m_script.features.front();
    self->isSelector = true;
    m_script.selected["F"] = { self, makeCommand("A") };
    const std::string text
        = journalOf([](auto&, auto& events) { events.FeatureEnumModified("F", "e", 0); });
    const std::string walk
        = "repository.GetSelectedFeatures(\"F\")\n" + readAndShow("F") + readAndShow("A");
    EXPECT_NE(text.find(walk + "repository.UpdateFeatureStates()\n"), std::string::npos) << text;
}

} // namespace
} // namespace featurebrowser
