#include "HostileDescriptions.h"
#include "TestCamera.h"

using namespace featurebrowser;

namespace {

std::string criticalMessages;

void keepMessage(const char*, GLogLevelFlags level, const char* message, gpointer)
{
    if ((level & (G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_ERROR)) != 0) {
        criticalMessages += std::string(message) + "\n";
    }
}

/// Whatever a browser does with a camera, on every feature.
void useEverything(TestCamera& camera)
{
    int left = 2000; // per description
    for (const auto& item : camera.repository.GetFeatureList()) {
        const char* name = item->name.c_str();
        if (item->type == FEATURE_CATEGORY || --left < 0) {
            continue;
        }
        camera.port.invalidate();
        camera.repository.ReadFeature(item);
        camera.device.SetIntegerValue(name, item->intMin, 1);
        camera.device.SetFloatValue(name, item->floatMin);
        camera.device.SetStringValue(name, "text");
        camera.device.SetBooleanValue(name, 1);
        camera.device.SetEnumValue(
            name, item->enumEntries.empty() ? "" : item->enumEntries.front().c_str(), 0);
        camera.device.ExecuteCommand(name, 1);
        if (left > 1900) {
            camera.repository.GetInvalidatedFeatures(name);
            camera.repository.GetSelectedFeatures(name);
        }
    }
}

TEST(HostileDescriptions, AreRefusedInOneLineOrToleratedQuietly)
{
    g_log_set_default_handler(keepMessage, nullptr);
    const std::vector<HostileDescription> all = hostileDescriptions();
    ASSERT_GT(all.size(), 200U);
    for (const HostileDescription& description : all) {
        criticalMessages.clear();
        auto opened = zqcameralib::openDescription(description.text);
        if (opened.isOk()) {
            TestCamera camera(std::move(opened));
            useEverything(camera);
        } else {
            EXPECT_EQ(opened.status().text().find('\n'), std::string::npos) << description.name;
        }
        EXPECT_EQ(criticalMessages, "") << description.name;
    }
    g_log_set_default_handler(g_log_default_handler, nullptr);
}

} // namespace
