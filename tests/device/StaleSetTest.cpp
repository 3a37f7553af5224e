#include "TestCamera.h"

#include <map>
#include <set>

using namespace featurebrowser;

// What is announced as changed after a write is compared with what a complete reading finds
// changed.
namespace {

using Snapshot = std::map<std::string, std::string>;

std::string wholeRecord(TestCamera& camera, const FeatureItem& item)
{
    std::string text = item.valueText + "|" + std::to_string(item.displayFlag) + "|"
        + std::to_string(item.accessMode) + "|" + std::to_string(item.lockedFlag) + "|"
        + std::to_string(item.intMin) + "|" + std::to_string(item.intMax) + "|"
        + std::to_string(item.intInc) + "|" + std::to_string(item.floatMin) + "|"
        + std::to_string(item.floatMax) + "|" + std::to_string(item.floatInc) + "|"
        + std::to_string(camera.state(item.name));
    for (const std::string& entry : item.enumEntries) {
        text += "|" + entry;
    }
    return text;
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
    int misses = 0;
    int announced = 0;
    int vain = 0;
    std::string examples;
};

void compare(TestCamera& camera, const std::string& name, const Snapshot& before,
    const Snapshot& after, Tally& tally)
{
    std::set<std::string> announced { name };
    for (const auto& item : camera.repository.GetInvalidatedFeatures(name)) {
        announced.insert(item->name);
    }
    for (const auto& item : camera.repository.GetSelectedFeatures(name)) {
        announced.insert(item->name);
    }
    const bool all = announced.count("Device") != 0;
    for (const auto& [feature, record] : after) {
        const bool changed = before.at(feature) != record;
        const bool told = all || announced.count(feature) != 0;
        if (changed && !told) {
            ++tally.misses;
            tally.examples
                += name + " -> " + feature + ": " + before.at(feature) + " to " + record + "\n";
        }
        if (told && feature != name && !all) {
            ++tally.announced;
            tally.vain += changed ? 0 : 1;
        }
    }
}

Tally writeEverything(TestCamera& camera)
{
    Tally tally;
    std::vector<std::string> names;
    for (const auto& item : camera.repository.GetFeatureList()) {
        names.push_back(item->name);
    }
    Snapshot before = readEverything(camera);
    for (const std::string& name : names) {
        const FeatureItem item = camera.item(name);
        if (item.type == FEATURE_CATEGORY || item.lockedFlag == 1
            || writeAnother(camera, item) != STATUS_OK) {
            continue;
        }
        ++tally.writes;
        Snapshot after = readEverything(camera);
        compare(camera, name, before, after, tally);
        before = std::move(after);
    }
    return tally;
}

TEST(StaleSet, OfTheSimulatedCameraMissesNothing)
{
    TestCamera camera(TestCamera::simulated());
    Tally tally = writeEverything(camera);
    const Tally again = writeEverything(camera);
    RecordProperty("announced", tally.announced + again.announced);
    RecordProperty("vain", tally.vain + again.vain);
    EXPECT_GT(tally.writes, 60);
    EXPECT_EQ(tally.misses + again.misses, 0) << tally.examples << again.examples;
}

TEST(StaleSet, OfRealDescriptionsMissesNothing)
{
    const std::vector<std::string> files = realDescriptions();
    if (files.empty()) {
        GTEST_SKIP() << "no folder of real cameras' descriptions";
    }
    int announced = 0;
    int vain = 0;
    for (const std::string& path : files) {
        std::string error;
        TestCamera camera(zqcameralib::ZQCamera::OpenDescription(path, error));
        const Tally tally = writeEverything(camera);
        EXPECT_EQ(tally.misses, 0) << path << "\n" << tally.examples;
        EXPECT_GT(tally.writes, 10) << path;
        announced += tally.announced;
        vain += tally.vain;
    }
    RecordProperty("announced", announced);
    RecordProperty("vain", vain);
}

} // namespace
