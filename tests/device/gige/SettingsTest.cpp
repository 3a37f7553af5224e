// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "GigeFixture.h"

#include "featurebrowser/ZQSettings.h"

using namespace featurebrowser;
using namespace zqcameralib;
using namespace std::chrono_literals;

namespace {

using Outcome = ZQRestoredLine::Outcome;
using State = ZQCameraTask::State;

class SettingsOverALink : public GigeFixture {
protected:
    void SetUp() override
    {
        GigeFixture::SetUp();
        open(FaultProxy::address, CameraAccess::Control);
        ZQSettingsSaving saving(*m_camera);
        ASSERT_EQ(saving.wait(60s), State::Done) << saving.error();
        m_settings = saving.takeSettings().only({ "Width", "DeviceUserTag", "BlackLevel",
            "TriggerMode[TriggerSelector=FrameStart]", "LUTValue[LUTSelector=Red, LUTIndex=9]" });
        ASSERT_GE(m_settings.lines().size(), 3U);
        m_settings.put({ "Width", {}, "96", "", 0 });
        m_settings.put(
            { "LUTValue", { { "LUTSelector", "Red" }, { "LUTIndex", "9" } }, "7", "", 0 });
    }

    ZQSettings m_settings;
};

TEST_F(SettingsOverALink, AreSavedRestoredAndTakenBack)
{
    ZQSettingsRestoring restoring(*m_camera, m_settings);
    ASSERT_EQ(restoring.wait(60s), State::Done) << restoring.error();
    EXPECT_EQ(restoring.report().exitStatus(), 0) << restoring.report().toText(true);
    EXPECT_EQ(restoring.report().count(Outcome::Restored), 2U);
    EXPECT_EQ(m_repository->Load(), STATUS_OK);
    EXPECT_EQ(value("Width"), "96");

    ZQSettingsRestoring back(*m_camera, restoring.before());
    ASSERT_EQ(back.wait(60s), State::Done) << back.error();
    EXPECT_EQ(back.report().count(Outcome::Restored), 2U) << back.report().toText();
}

TEST_F(SettingsOverALink, SayWhatHoldsWhenTheCameraIsLost)
{
    ZQSettingsRestoring restoring(*m_camera, m_settings);
    m_proxy.set(Faults::slow(3ms));
    for (int i = 0; i < 5; ++i) {
        ASSERT_EQ(restoring.poll(), State::Running);
    }
    m_proxy.set(Faults::requestsLost());
    EXPECT_EQ(restoring.wait(60s), State::Failed);
    EXPECT_EQ(restoring.report().exitStatus(), 2);
    EXPECT_GT(restoring.report().count(Outcome::NotKnown), 0U);
    m_proxy.set({});
    ASSERT_TRUE(recovers());
    ZQSettingsRestoring again(*m_camera, m_settings);
    ASSERT_EQ(again.wait(60s), State::Done) << again.error();
    EXPECT_EQ(again.report().exitStatus(), 0) << again.report().toText(true);
}

} // namespace
