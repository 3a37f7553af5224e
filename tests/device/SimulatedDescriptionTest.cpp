// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"
#include "simulation/SimulatedCamera.h"

#include <map>
#include <set>

namespace featurebrowser {
namespace {

bool fits(const FeatureItem& item)
{
    if (item.type == FEATURE_INTEGER) {
        const long long value = std::stoll(item.valueText);
        const auto above
            = static_cast<std::uint64_t>(value) - static_cast<std::uint64_t>(item.intMin);
        return item.intMin <= value && value <= item.intMax && item.intInc > 0
            && above % item.intInc == 0;
    }
    if (item.type == FEATURE_FLOAT) {
        const double value = std::stod(item.valueText);
        return item.floatMin <= value && value <= item.floatMax;
    }
    const bool isChoice = item.type == FEATURE_ENUMERATION || item.type == FEATURE_BOOLEAN;
    return !isChoice || std::stoul(item.valueText) < item.enumEntries.size();
}

// Features that cannot be read, or whose value is not one that they allow.
std::set<std::string> offLimits(ZQCameraRepository& repository)
{
    std::set<std::string> names;
    for (const auto& item : repository.GetFeatureList()) {
        const bool isCategory = item->type == FEATURE_CATEGORY;
        const bool isRead = isCategory || repository.ReadFeature(item);
        if (!isRead || (!isCategory && item->displayFlag == 1 && !fits(*item))) {
            names.insert(item->name);
        }
    }
    return names;
}

TEST(SimulatedDescription, EveryChoiceLeavesEveryFeatureWithinItsLimits)
{
    TestCamera camera(TestCamera::simulated());
    EXPECT_EQ(offLimits(camera.repository), std::set<std::string>());
    for (const auto& item : camera.repository.GetFeatureList()) {
        EXPECT_TRUE(camera.repository.ReadFeature(item)) << item->name;
        if (item->type != FEATURE_ENUMERATION || item->accessMode != ACCESS_READ_WRITE
            || item->lockedFlag == 1) {
            continue;
        }
        int index = 0;
        for (const std::string& entry : std::list<std::string>(item->enumEntries)) {
            EXPECT_EQ(camera.device.SetEnumValue(item->name.c_str(), entry.c_str(), index++), 0);
            EXPECT_EQ(offLimits(camera.repository), std::set<std::string>())
                << item->name << " = " << entry;
        }
        EXPECT_EQ(camera.device.SetEnumValue("UserSetSelector", "Default", 0), 0);
        EXPECT_EQ(camera.device.ExecuteCommand("UserSetLoad", 1), 0);
    }
}

TEST(SimulatedDescription, ShowsEveryKindOfFeatureAtEveryLevel)
{
    TestCamera camera(TestCamera::simulated());
    std::map<int, int> kinds;
    std::set<int> levels;
    std::set<int> representations;
    int depth = 0;
    for (const auto& item : camera.repository.GetFeatureList()) {
        ++kinds[item->type];
        levels.insert(item->level);
        representations.insert(item->representation);
        depth = std::max<int>(depth, item->depth);
    }
    for (const int kind : { FEATURE_INTEGER, FEATURE_FLOAT, FEATURE_STRING, FEATURE_ENUMERATION,
             FEATURE_COMMAND, FEATURE_BOOLEAN, FEATURE_READ_ONLY_STRING }) {
        EXPECT_GE(kinds[kind], 2) << kind;
    }
    EXPECT_EQ(levels, (std::set<int> { LEVEL_BEGINNER, LEVEL_EXPERT, LEVEL_GURU }));
    EXPECT_EQ(representations,
        (std::set<int> { REPRESENTATION_NUMBER, REPRESENTATION_ADDRESS, REPRESENTATION_IPV4 }));
    EXPECT_GE(camera.repository.GetFeatureList().size()
            - static_cast<std::size_t>(kinds[FEATURE_CATEGORY]),
        150U);
    EXPECT_GE(depth, 4);

    const FeatureItem& exposure = camera.item("ExposureTime");
    EXPECT_GE(exposure.floatMax / exposure.floatMin, 1e6);
    EXPECT_EQ(camera.item("GevSupportedOptions").representation, REPRESENTATION_NUMBER);
    EXPECT_GT(std::stoll(camera.read("DeviceHardwareID")), 1LL << 32);
}

// A camera that serves this description over GigE Vision has 64 KB of registers.
TEST(SimulatedDescription, RegistersStayBelow64KB)
{
    TestCamera camera(TestCamera::simulated());
    const zqcameralib::RegisterPort::Recorder recorder(camera.port);
    EXPECT_EQ(camera.repository.Load(), 0);
    EXPECT_GT(recorder.read.size(), 150U);
    for (const auto& [address, size] : recorder.read) {
        EXPECT_LT(address + size, 0x10000U);
    }
}

TEST(SimulatedDescription, PollingSeesReadingsChange)
{
    std::chrono::nanoseconds now(0);
    TestCamera camera(
        zqcameralib::openSimulated(std::string(zqcameralib::simulatedCameraDescription()),
            zqcameralib::makeSimulatedCameraBehaviour([&now] { return now; })));
    for (const char* name : { "DeviceTemperature", "DeviceSupplyVoltage" }) {
        std::set<std::string> values;
        for (int i = 0; i < 10; ++i, now += camera.repository.GetPollingTime(name)) {
            camera.port.invalidate();
            values.insert(camera.read(name));
        }
        EXPECT_GT(values.size(), 3U) << name;
    }
}

} // namespace
} // namespace featurebrowser
