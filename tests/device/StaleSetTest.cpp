// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"

#include <map>
#include <set>
#include <sstream>

using namespace featurebrowser;

// What is announced as changed after a write is compared with what a complete reading finds
// changed.
namespace {

using Snapshot = std::map<std::string, std::string>;

std::string wholeRecord(TestCamera& camera, const FeatureItem& item)
{
    std::ostringstream text;
    text.precision(17);
    text << item.valueText << '|' << int(item.displayFlag) << '|' << item.accessMode << '|'
         << int(item.lockedFlag) << '|' << item.intMin << '|' << item.intMax << '|' << item.intInc
         << '|' << item.floatMin << '|' << item.floatMax << '|' << item.floatInc << '|'
         << camera.state(item.name);
    for (const std::string& entry : item.enumEntries) {
        text << '|' << entry;
    }
    return text.str();
}

Snapshot readEverything(TestCamera& camera)
{
    camera.port.invalidate();
    const zqcameralib::RegisterPort::Pass pass(camera.port);
    Snapshot snapshot;
    for (const auto& item : camera.repository.GetFeatureList()) {
        if (item->type != FEATURE_CATEGORY && !camera.changesByItself(item->name)) {
            camera.repository.ReadFeature(item);
            snapshot[item->name] = wholeRecord(camera, *item);
        }
    }
    return snapshot;
}

/// Writes another value than the present one, if there is one; 0 when something was written.
int writeAnother(TestCamera& camera, const FeatureItem item)
{
    ZQCameraDevice& device = camera.device;
    const char* name = item.name.c_str();
    const std::int64_t index = item.valueText.empty() ? 0 : std::atoll(item.valueText.c_str());
    switch (item.type) {
    case FEATURE_INTEGER:
        return device.SetIntegerValue(
            name, index == item.intMin ? item.intMin + std::max(item.intInc, 1U) : item.intMin, 1);
    case FEATURE_FLOAT:
        return device.SetFloatValue(name,
            std::atof(item.valueText.c_str()) == item.floatMin ? item.floatMax : item.floatMin);
    case FEATURE_STRING:
        return device.SetStringValue(name, item.valueText == "x" ? "y" : "x");
    case FEATURE_BOOLEAN:
        return device.SetBooleanValue(name, index == 0 ? 1 : 0);
    case FEATURE_COMMAND:
        return device.ExecuteCommand(name, 1);
    case FEATURE_ENUMERATION: {
        const auto count = static_cast<std::int64_t>(item.enumEntries.size());
        if (count == 0) {
            return -1;
        }
        auto entry = item.enumEntries.begin();
        std::advance(entry, (index + 1) % count);
        return device.SetEnumValue(name, entry->c_str(), static_cast<int>((index + 1) % count));
    }
    default:
        return -1;
    }
}

struct Tally {
    int writes = 0;
    std::string misses;
};

void compare(TestCamera& camera, const std::string& name, const Snapshot& before,
    const Snapshot& after, Tally& tally)
{
    auto items = camera.repository.GetInvalidatedFeatures(name);
    items.splice(items.end(), camera.repository.GetSelectedFeatures(name));
    std::set<std::string> announced { name };
    for (const auto& item : items) {
        announced.insert(item->name);
    }
    for (const auto& [feature, record] : after) {
        const bool told = announced.count("Device") + announced.count(feature) != 0;
        if (!told && before.at(feature) != record) {
            tally.misses
                += name + " -> " + feature + ": " + before.at(feature) + " to " + record + "\n";
        }
    }
}

Tally writeEverything(TestCamera& camera)
{
    Tally tally;
    Snapshot before = readEverything(camera);
    const auto features = camera.repository.GetFeatureList();
    for (const auto& feature : features) {
        const FeatureItem item = *feature;
        if (item.type == FEATURE_CATEGORY || item.lockedFlag == 1
            || writeAnother(camera, item) != STATUS_OK) {
            continue;
        }
        ++tally.writes;
        Snapshot after = readEverything(camera);
        compare(camera, item.name, before, after, tally);
        before = std::move(after);
    }
    return tally;
}

TEST(StaleSet, OfTheSimulatedCameraMissesNothing)
{
    TestCamera camera(TestCamera::simulated());
    const Tally tally = writeEverything(camera);
    EXPECT_GT(tally.writes, 60);
    EXPECT_EQ(tally.misses + writeEverything(camera).misses, "");
}

TEST_F(RealDescriptions, StaleSetMissesNothing)
{
    for (const std::string& path : m_files) {
        TestCamera camera(TestCamera::ofFile(path));
        const Tally tally = writeEverything(camera);
        EXPECT_GT(tally.writes, 10) << path;
        EXPECT_EQ(tally.misses, "") << path;
    }
}

} // namespace
