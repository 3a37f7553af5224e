// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "SettingsUser.h"

using namespace zqcameralib;

namespace {

using Action = ZQUserSet::Action;
using State = ZQCameraTask::State;

/// The simulated camera with a set that holds another width and gain than the camera.
class UserSet : public testing::Test {
protected:
    UserSet()
        : camera(TestCamera::simulated())
    {
        camera.set("Width", 640);
        camera.set("Gain", 3.0);
        run("UserSet1", Action::Save);
        camera.set("Width", 512);
        camera.set("Gain", 1.0);
        camera.device.SetEnumValue("UserSetSelector", "UserSet2", -1);
    }

    void run(const char* set, Action action) const
    {
        ZQUserSet task(*camera.camera, set, action);
        EXPECT_EQ(task.wait(settingsLimit), State::Done) << task.error();
    }
    std::string position()
    {
        return valueIn(saved(camera), "UserSetSelector") + camera.read("UserSetSelector");
    }

    TestCamera camera;
};

TEST_F(UserSet, IsLoadedAndSavedWithTheSelectorPutBack)
{
    EXPECT_EQ(ZQUserSet::Names(*camera.camera),
        (std::vector<std::string> { "Default", "UserSet1", "UserSet2" }));
    const std::string before = position();
    run("UserSet1", Action::Load);
    EXPECT_EQ(camera.read("Width"), "640");
    EXPECT_EQ(position(), before);
}

TEST_F(UserSet, IsLookedIntoAndEverythingPutBack)
{
    const std::string before = everything(camera);
    ZQUserSet task(*camera.camera, "UserSet1", Action::LookInto);
    ASSERT_EQ(task.wait(settingsLimit), State::Done) << task.error();
    EXPECT_EQ(differences(task.contents(), task.now()),
        "Width: 640 [px] | 512 [px]\nGain[GainSelector=All]: 3 [dB] | 1 [dB]\n");
    EXPECT_EQ(task.report().exitStatus(), 0) << task.report().toText();
    EXPECT_EQ(everything(camera), before);
}

TEST_F(UserSet, LooksIntoWithoutATraceWhereverItIsCancelled)
{
    const std::string before = everything(camera);
    for (int polls = 1; polls < 20; polls += 2) {
        ZQUserSet task(*camera.camera, "UserSet1", Action::LookInto);
        for (int i = 0; i < polls; ++i) {
            task.poll();
        }
        task.cancel();
        EXPECT_EQ(everything(camera), before) << polls;
    }
}

TEST_F(UserSet, SaysWhyItCannotBeUsed)
{
    ZQUserSet unknown(*camera.camera, "UserSet9", Action::Load);
    EXPECT_EQ(unknown.wait(settingsLimit), State::Failed);
    EXPECT_EQ(unknown.error(), "there is no user set \"UserSet9\" now");
    camera.camera->impl().setGrabbing(true);
    ZQUserSet locked(*camera.camera, "UserSet1", Action::Load);
    EXPECT_EQ(locked.wait(settingsLimit), State::Failed);
    EXPECT_EQ(
        locked.error(), "UserSetLoad: locked by TLParamsLocked: stop the acquisition to change it");

    TestCamera none("Width", intReg("Width", 0));
    EXPECT_TRUE(ZQUserSet::Names(*none.camera).empty());
    ZQUserSet task(*none.camera, "UserSet1", Action::Save);
    EXPECT_EQ(task.wait(settingsLimit), State::Failed);
    EXPECT_EQ(task.error(), "the camera offers no user sets now");
}

} // namespace
