// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "SettingsUser.h"

#include <thread>

using namespace zqcameralib;

namespace {

using Outcome = ZQRestoredLine::Outcome;
using State = ZQCameraTask::State;

/// A few settings of several kinds, with a selector, in a state to which the camera can be put back
/// quickly.
class RestoringInTrouble : public testing::Test {
protected:
    RestoringInTrouble()
        : camera(TestCamera::simulated())
        , settings(settingsOf("Width = 640\nOffsetX = 96\nBinningVertical = 2\n"
                              "Gain[GainSelector=Red] = 2\nGain[GainSelector=Blue] = 3\n"
                              "TriggerMode[TriggerSelector=FrameStart] = On\n"
                              "TriggerDelay[TriggerSelector=FrameStart] = 20\n"
                              "ExposureAuto = Continuous\nDeviceUserTag = 99\nNone = 1\n"))
    {
        start = savedAs(camera, settings);
        selectors = positions();
    }

    std::string positions() { return camera.read("GainSelector") + camera.read("TriggerSelector"); }
    void reset()
    {
        camera.port.setFaultHook(nullptr);
        restored(camera, start);
    }
    /// From now on a poll has time for a few writes only; counts them.
    std::shared_ptr<int> slowWrites()
    {
        auto count = std::make_shared<int>(0);
        camera.port.setFaultHook([count](auto, auto, bool isWrite) {
            if (isWrite) {
                ++*count;
                std::this_thread::sleep_for(std::chrono::milliseconds(3));
            }
            return false;
        });
        return count;
    }

    TestCamera camera;
    ZQSettings settings;
    ZQSettings start;
    std::string selectors;
};

TEST_F(RestoringInTrouble, TheReportIsTrueWhicheverAccessFails)
{
    const std::uint64_t accesses = withFault(camera, 0, [this] { restored(camera, settings); });
    for (std::uint64_t failing = 1; failing <= accesses; failing += stepOf(7)) {
        reset();
        ZQSettingsRestoring restoring(*camera.camera, settings);
        withFault(camera, failing, [&restoring] { restoring.wait(settingsLimit); });
        const std::string when = "fault " + std::to_string(failing);
        EXPECT_EQ(restoring.poll(), State::Done) << when << restoring.error();
        expectTrue(camera, settings, restoring.report(), when);
        EXPECT_EQ(positions(), selectors) << when;
    }
}

TEST_F(RestoringInTrouble, TheReportIsTrueWhenAllAccessesFailFromOneOn)
{
    for (std::uint64_t failing = 1; failing < 260; failing += stepOf(11)) {
        reset();
        ZQSettingsRestoring restoring(*camera.camera, settings);
        camera.port.setFaultHook(
            [count = 0U, failing](auto, auto, bool) mutable { return ++count >= failing; });
        camera.port.invalidate();
        restoring.wait(settingsLimit);
        camera.port.setFaultHook(nullptr);
        camera.port.invalidate();
        const std::string when = "from fault " + std::to_string(failing);
        expectTrue(camera, settings, restoring.report(), when);
    }
}

TEST_F(RestoringInTrouble, ReadsBackWhenItIsCancelled)
{
    for (int writes = 1; writes < 12; ++writes) {
        reset();
        ZQSettingsRestoring restoring(*camera.camera, settings);
        const auto done = slowWrites();
        while (restoring.poll() == State::Running && *done < writes) { }
        restoring.cancel();
        EXPECT_EQ(restoring.wait(settingsLimit), State::Cancelled) << writes;
        EXPECT_EQ(restoring.report().exitStatus(), 2);
        expectTrue(camera, settings, restoring.report(), "cancelled " + std::to_string(writes));
        EXPECT_EQ(positions(), selectors) << writes;
    }
}

TEST_F(RestoringInTrouble, SaysWhatIsLockedWhileTheCameraAcquires)
{
    camera.camera->impl().setGrabbing(true);
    const ZQRestoreReport report = restored(camera, settings);
    EXPECT_EQ(report.exitStatus(), 1);
    EXPECT_EQ(
        report.lines[0].reason, "locked by TLParamsLocked: stop the acquisition to change it");
    EXPECT_EQ(report.lines[3].outcome, Outcome::Restored);
    expectTrue(camera, settings, report, "while acquiring");
}

TEST_F(RestoringInTrouble, EndsInTime)
{
    ZQSettingsRestoring::Options options;
    options.limit = std::chrono::milliseconds(1);
    ZQSettingsRestoring restoring(*camera.camera, settings, options);
    slowWrites();
    EXPECT_EQ(restoring.wait(settingsLimit), State::Failed);
    EXPECT_EQ(restoring.report().error, "not done within 1 ms");
    EXPECT_EQ(restoring.report().exitStatus(), 2);
    expectTrue(camera, settings, restoring.report(), "late");
}

} // namespace
