#include "CoreFixture.h"

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <vector>

namespace featurebrowser {
namespace {

using doubles::journal;

TEST_F(CoreTest, DeviceMadeFromACameraDiesAfterTheWidget)
{
    std::string error;
    const auto camera = zqcameralib::ZQCamera::OpenSimulated(error);
    {
        const ZQFeatureBrowser browser(camera.get(), nullptr);
    }
    EXPECT_EQ(journal(),
        "device.create(true, false)\n"
        "widget.create(false)\n"
        "widget.destroy()\n"
        "device.destroy()\n");
}

TEST_F(CoreTest, DeviceOfTheApplicationOutlivesTheBrowser)
{
    ZQCameraDevice device(nullptr, nullptr);
    journal().clear();
    {
        ICameraDevice* given = &device;
        ZQFeatureBrowser browser(given, nullptr);
        EXPECT_EQ(browser.GetCameraRepository(), device.GetRepository());
    }
    EXPECT_EQ(journal(), "widget.create(false)\nwidget.destroy()\n");
}

struct FacadeCase {
    const char* name;
    bool visible;
    std::function<void(ZQFeatureBrowser&)> act;
    const char* expected;
};

void showDialog(ZQFeatureBrowser& browser)
{
    browser.ShowDialog(640, 480, { 10, 20 }, LEVEL_EXPERT);
}

void showStandalone(ZQFeatureBrowser& browser)
{
    browser.ShowStandalone(640, 480, { 10, 20 }, LEVEL_EXPERT);
}

const std::vector<FacadeCase> facadeCases = {
    { "ShowDialog", false, showDialog,
        "widget.isVisible()\nwidget.setNumberOfSteps(1000)\nwidget.setVisibility(2)\n"
        "repository.GetFeatureStates()\nwidget.showDialog(640, 480, [10 20], [\"Gain\":1])\n" },
    { "ShowDialogAgain", true, showDialog, "widget.isVisible()\nwidget.showDialog()\n" },
    { "ShowStandalone", false, showStandalone,
        "widget.isVisible()\nwidget.setNumberOfSteps(1000)\nwidget.setVisibility(2)\n"
        "repository.GetFeatureStates()\nwidget.showStandalone(640, 480, [10 20], [\"Gain\":1])\n" },
    { "ShowStandaloneAgain", true, showStandalone, "widget.isVisible()\n" },
    { "Show", true, [](ZQFeatureBrowser& b) { b.Show(); }, "widget.showDialog()\n" },
    { "Hide", false, [](ZQFeatureBrowser& b) { b.Hide(); }, "widget.hideDialog()\n" },
    { "CloseHidden", false, [](ZQFeatureBrowser& b) { b.CloseDialog(); }, "widget.isVisible()\n" },
    { "CloseVisible", true, [](ZQFeatureBrowser& b) { b.CloseDialog(); },
        "widget.isVisible()\nwidget.closeDialog()\n" },
    { "Clear", true, [](ZQFeatureBrowser& b) { b.ClearFeatureBrowser(); },
        "widget.clearFeatureItems()\nrepository.Clear()\n" },
    { "GetWidget", true, [](ZQFeatureBrowser& b) { b.GetWidget(); }, "widget.GetWidget()\n" },
    { "RefreshHiddenStates", false, [](ZQFeatureBrowser& b) { b.RefreshStates(); },
        "widget.isVisible()\n" },
    { "RefreshVisibleStates", true, [](ZQFeatureBrowser& b) { b.RefreshStates(); },
        "widget.isVisible()\nrepository.GetFeatureStates()\n"
        "widget.modifyFeatureStates([\"Gain\":1])\n" },
};

TEST_F(CoreTest, FacadeOperationsReachTheWidget)
{
    m_script.states["Gain"] = FEATURE_LOCKED;
    for (const FacadeCase& c : facadeCases) {
        m_script.visible = c.visible;
        EXPECT_EQ(journalOf([&](auto& browser, auto&) { c.act(browser); }), c.expected) << c.name;
    }
}

TEST_F(CoreTest, VisualEventsArePassedOnWhenThereIsAReceiver)
{
    const Act act = [](auto&, IEventFeatureReceiver& events) {
        events.ItemColumnResized(1, 200);
        events.FeatureCloseDialog(3, 4, LEVEL_BEGINNER);
        events.SendError(7, "text");
        events.FeatureLevelChanged(LEVEL_GURU);
        events.AllConfigChanged();
    };
    EXPECT_EQ(journalOf(act),
        "receiver.ItemColumnResized(1, 200)\nreceiver.FeatureCloseDialog(3, 4, 1)\n"
        "receiver.SendError(7, \"text\")\nreceiver.FeatureLevelChanged(3)\n"
        "receiver.AllConfigChanged()\n");
    EXPECT_EQ(journalOf(act, false), "");
}

} // namespace
} // namespace featurebrowser
