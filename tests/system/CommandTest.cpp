// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Browser.h"

#include <gtest/gtest.h>

namespace {

TEST(Command, RunsAtTheKeyOrAClickAndShowsTheWholeCameraAnew)
{
    Browser b;
    const auto executed = [](const std::string& name) {
        return Lines { "Error 0 Executed Command [" + name + "]", "AllConfig" };
    };
    const long before = b.integer("TriggerCount");
    b.choose("TriggerMode", "On");
    b.choose("TriggerSource", "Software");
    b.journal.take();
    b.open("TriggerSoftware");
    EXPECT_EQ(b.journal.take(), executed("TriggerSoftware"));
    EXPECT_EQ(b.integer("TriggerCount"), before + 1);
    EXPECT_EQ(b.text("TriggerCount"), std::to_string(before + 1));
    b.click("TimestampLatch", 1, { 10, 0 });
    EXPECT_EQ(b.journal.take(), executed("TimestampLatch"));
    EXPECT_EQ(b.text("TimestampLatchValue"), std::to_string(b.integer("TimestampLatchValue")));

    b.choose("UserSetSelector", "UserSet1");
    b.edit("Width", "640");
    b.edit("DeviceUserID", "kept");
    b.run("UserSetSave");
    b.edit("Width", "320");
    b.choose("TestPattern", "ColorBar");
    b.journal.take();
    b.run("UserSetLoad");
    EXPECT_EQ(b.text("Width"), "640");
    EXPECT_EQ(b.text("TestPattern"), "Off");
    EXPECT_EQ(b.journal.take(), executed("UserSetLoad"));

    // Becomes unavailable behind the browser's back: the row still offers it.
    b.open("UserSetSave");
    b.device().SetEnumValue("UserSetSelector", "Default", 0);
    TreeUser::press(Qt::Key_Left);
    TreeUser::press(Qt::Key_Return);
    const Lines heard = b.journal.take();
    ASSERT_EQ(heard.size(), 2U);
    EXPECT_NE(heard[0].find(" Command [UserSetSave] failed! - error: "), std::string::npos)
        << heard[0];
    EXPECT_NE(heard[0].rfind("Error 0", 0), 0U);
    EXPECT_EQ(heard[1], "AllConfig");
}

// With a receiver the application starts the acquisition, without one the browser does; either way
// what may not change meanwhile is locked, and free again afterwards.
TEST(Command, AcquisitionLocksTheGeometryUntilItStops)
{
    for (const bool forwards : { true, false }) {
        Browser b(forwards);
        b.journal.answer = [&b](const std::string& line) {
            b.device().ExecuteCommand(line.substr(line.find(' ') + 1).c_str(), 1);
        };
        ASSERT_FALSE(b.isReadOnly("Width"));
        testing::internal::CaptureStderr();
        b.open("AcquisitionStart");
        EXPECT_TRUE(b.device().IsGrabbing() && b.isReadOnly("Width") && !b.isReadOnly("Gain"));
        b.open("AcquisitionStart"); // nothing happens
        b.open("AcquisitionStop");
        EXPECT_FALSE(b.device().IsGrabbing() || b.isReadOnly("Width"));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
            std::string("Exec command: AcquisitionStart\n")
                + (forwards ? "Starting to grab..." : "")
                + "Exec command: AcquisitionStart\nExec command: AcquisitionStop\n"
                + (forwards ? "Stopping to grab..." : ""));
        EXPECT_EQ(b.journal.take(),
            forwards ? (Lines { "Command AcquisitionStart", "Command AcquisitionStop" })
                     : Lines {});
    }
}

} // namespace
