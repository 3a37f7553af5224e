// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "DistantCamera.h"
#include "TestCamera.h"
#include "simulation/SimulatedCamera.h"

#include <functional>
#include <map>

using namespace featurebrowser;

// For every N, the Nth register access of a load fails: nothing may be shown that the camera did
// not say, and the next load is right again. By default some N are tried; with ZQ_ALL_FAULTS, which
// the test preset all-faults sets, all are.
namespace {

using Values = std::map<std::string, std::string>;

Values shown(TestCamera& camera)
{
    Values values;
    for (const auto& item : camera.repository.GetFeatureList()) {
        if (item->displayFlag == 1 && !camera.changesByItself(item->name)) {
            values[item->name] = item->valueText + "|" + std::to_string(item->intMin) + "|"
                + std::to_string(item->intMax) + "|" + std::to_string(item->floatMax) + "|"
                + std::to_string(item->accessMode) + std::to_string(item->lockedFlag);
        }
    }
    return values;
}

/// Loads with the Nth access failing, none for 0; how many accesses there were.
using Load = std::function<std::uint64_t(std::uint64_t failing)>;

std::uint64_t loadWithFault(TestCamera& camera, std::uint64_t failing)
{
    std::uint64_t count = 0;
    camera.port.setFaultHook([&count, failing](auto, auto, bool) { return ++count == failing; });
    camera.port.invalidate();
    camera.repository.Load();
    camera.port.setFaultHook(nullptr);
    return count;
}

void sweep(TestCamera& camera, std::uint64_t step, const Load& load)
{
    const std::uint64_t accesses = load(0);
    const Values right = shown(camera);
    std::size_t unread = 0;
    for (std::uint64_t failing = 1; failing <= accesses; failing += step) {
        load(failing);
        for (const auto& [name, state] : camera.repository.GetFeatureStates()) {
            unread += state == FEATURE_READ_FAILED ? 1U : 0U;
        }
        for (const auto& [name, value] : shown(camera)) {
            const auto expected = right.find(name);
            ASSERT_NE(expected, right.end()) << name << " after fault " << failing;
            EXPECT_EQ(value, expected->second) << name << " after fault " << failing;
        }
    }
    EXPECT_GT(unread, 0U);
    load(0);
    EXPECT_EQ(shown(camera), right);
}

std::uint64_t stepOf(std::uint64_t few)
{
    return std::getenv("ZQ_ALL_FAULTS") == nullptr ? few : 1;
}

TEST(FaultSweep, NeverShowsAWrongValueOfTheSimulatedCamera)
{
    TestCamera camera(TestCamera::simulated());
    sweep(camera, stepOf(3), [&](std::uint64_t failing) { return loadWithFault(camera, failing); });
}

TEST(FaultSweep, NeverShowsAWrongValueOfACameraReadTogether)
{
    auto owned = std::make_unique<DistantCamera>(zqcameralib::makeSimulatedCameraBehaviour());
    DistantCamera& distant = *owned;
    TestCamera camera(zqcameralib::openOver(
        std::string(zqcameralib::simulatedCameraDescription()), std::move(owned)));
    TestCamera near(TestCamera::simulated());
    EXPECT_EQ(shown(camera), shown(near));
    EXPECT_GT(distant.together, 3 * distant.alone); // the first time from the description alone

    sweep(camera, stepOf(3), [&](std::uint64_t failing) {
        distant.reset(failing);
        camera.port.invalidate();
        camera.repository.Load();
        return distant.accesses();
    });
    EXPECT_EQ(distant.alone, 0U); // from what the last load has read
}

TEST_F(RealDescriptions, FaultSweepNeverShowsAWrongValue)
{
    for (const std::string& path : m_files) {
        TestCamera camera(TestCamera::ofFile(path));
        sweep(camera, stepOf(29),
            [&](std::uint64_t failing) { return loadWithFault(camera, failing); });
    }
}

} // namespace
