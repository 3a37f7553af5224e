#include "CoreFixture.h"

namespace featurebrowser {
namespace {

Item makeCategory(const char* name, std::uint8_t depth)
{
    return makeItem(FEATURE_CATEGORY, name, "", depth);
}

Item makeCommand(const char* name, std::uint8_t depth)
{
    return makeItem(FEATURE_COMMAND, name, "Go", depth);
}

TEST_F(CoreTest, LoadRefusesARepositoryThatIsNotLoaded)
{
    m_script.loaded = false;
    EXPECT_EQ(journalOf([](auto& browser, auto&) { EXPECT_EQ(browser.LoadFeatureBrowser(), -1); }),
        "repository.isLoaded()\nstderr(\"Repository not loaded !!!\")\n");
}

TEST_F(CoreTest, CategoriesNestByDepthAndFeaturesStandInTheInnermostOne)
{
    m_script.features = { makeCommand("Top", 0), makeCommand("Loose", 1), makeCategory("A", 0),
        makeCategory("B", 1), makeCategory("C", 2), makeCommand("InC", 3), makeCommand("InB", 2),
        makeCategory("D", 1), makeCommand("InD", 2), makeCategory("E", 0), makeCommand("InE", 1),
        makeCategory("Deep", 3) };
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

TEST_F(CoreTest, LoadRebuildsTheTreeAndReloadOnlyPushesValues)
{
    m_script.features = { makeCategory("A", 0), nullptr, makeCommand("Go", 1) };
    const std::string values = "repository.GetFeatureList()\n"
                               "repository.ReadFeature(\"A\")\n"
                               "repository.ReadFeature(\"Go\")\n"
                               "widget.modifyText(\"Go\", \"Go\", 7, [], false, true)\n"
                               "stderr(\"Fill finished !!!\")\n";
    const std::string tree
        = "widget.clearFeatureItems()\n"
          "repository.GetFeatureList()\n"
          "widget.addCategory(\"A\", 1)\n"
          "widget.addCommandFeature(\"A\", \"Go\", \"Go\", 1, false, true, 0, \"\")\n";
    const std::string reload = "repository.Clear()\nrepository.Load()\nrepository.isLoaded()\n";
    EXPECT_EQ(journalOf([](auto& browser, auto&) {
        browser.ReloadFeatureBrowser(); // the first load, whoever asks for it, builds the tree
        browser.ReloadFeatureBrowser();
        browser.LoadFeatureBrowser();
        browser.ClearFeatureBrowser(); // does not make a reload rebuild
        browser.ReloadFeatureBrowser();
    }),
        reload + tree + values + reload + values + "repository.isLoaded()\n" + tree + values
            + "widget.clearFeatureItems()\nrepository.Clear()\n" + reload + values);
}

TEST_F(CoreTest, EmptyRepositoryGivesAnEmptyTree)
{
    EXPECT_EQ(journalOf([](auto& browser, auto&) { EXPECT_EQ(browser.LoadFeatureBrowser(), 0); }),
        "repository.isLoaded()\nwidget.clearFeatureItems()\nrepository.GetFeatureList()\n"
        "repository.GetFeatureList()\nstderr(\"Fill finished !!!\")\n");
}

} // namespace
} // namespace featurebrowser
