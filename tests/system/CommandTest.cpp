#include "Browser.h"

#include <gtest/gtest.h>

using Lines = std::vector<std::string>;

namespace {

TEST(Command, RunsAtTheKeyOrAClickAndReportsSuccess)
{
    Browser b;
    const long before = b.integer("TriggerCount");
    b.choose("TriggerMode", "On");
    b.choose("TriggerSource", "Software");
    b.receiver.take();
    b.open("TriggerSoftware");
    EXPECT_EQ(
        b.receiver.take(), (Lines { "done: Executed Command [TriggerSoftware]", "all changed" }));
    EXPECT_EQ(b.integer("TriggerCount"), before + 1);
    EXPECT_EQ(b.shown("TriggerCount"), std::to_string(before + 1));
    b.click("TimestampLatch");
    EXPECT_EQ(
        b.receiver.take(), (Lines { "done: Executed Command [TimestampLatch]", "all changed" }));
    EXPECT_EQ(b.shown("TimestampLatchValue"), std::to_string(b.integer("TimestampLatchValue")));
}

TEST(Command, UserSetLoadShowsTheWholeCameraAnew)
{
    Browser b;
    b.choose("UserSetSelector", "UserSet1");
    b.type("Width", "640");
    b.type("DeviceUserID", "kept");
    b.open("UserSetSave");
    b.type("Width", "320");
    b.choose("TestPattern", "ColorBar");
    b.receiver.take();
    b.open("UserSetLoad");
    EXPECT_EQ(b.shown("Width"), "640");
    EXPECT_EQ(b.shown("TestPattern"), "Off");
    EXPECT_EQ(b.receiver.take(), (Lines { "done: Executed Command [UserSetLoad]", "all changed" }));
}

TEST(Command, FailureIsToldAndTheRowsAreRefreshed)
{
    Browser b;
    b.choose("UserSetSelector", "UserSet1");
    b.select("UserSetSave");
    // Becomes unavailable behind the browser's back: the row still offers it.
    b.device().SetEnumValue("UserSetSelector", "Default", 0);
    b.receiver.take();
    b.press(Qt::Key_Return);
    const Lines heard = b.receiver.take();
    ASSERT_EQ(heard.size(), 2U);
    EXPECT_EQ(heard[0].rfind("error: Command [UserSetSave] failed! - error: ", 0), 0U) << heard[0];
    EXPECT_EQ(heard[1], "all changed");
}

// With a receiver the application starts the acquisition, without one the browser does; either way
// what may not change meanwhile is locked, and free again afterwards.
class Acquisition : public testing::TestWithParam<Browser::Ear> { };

TEST_P(Acquisition, LocksTheGeometryUntilItStops)
{
    Browser b(GetParam());
    b.receiver.executor = &b.device();
    ASSERT_FALSE(b.isReadOnly("Width"));
    testing::internal::CaptureStderr();
    b.open("AcquisitionStart");
    EXPECT_TRUE(b.device().IsGrabbing());
    EXPECT_TRUE(b.isReadOnly("Width"));
    EXPECT_FALSE(b.isReadOnly("Gain"));
    b.open("AcquisitionStart"); // nothing happens
    b.open("AcquisitionStop");
    EXPECT_FALSE(b.device().IsGrabbing());
    EXPECT_FALSE(b.isReadOnly("Width"));
    const bool forwarded = GetParam() == Browser::Ear::present;
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        std::string("Exec command: AcquisitionStart\n") + (forwarded ? "Starting to grab..." : "")
            + "Exec command: AcquisitionStart\nExec command: AcquisitionStop\n"
            + (forwarded ? "Stopping to grab..." : ""));
    EXPECT_EQ(b.receiver.take(),
        forwarded ? (Lines { "command AcquisitionStart", "command AcquisitionStop" }) : Lines {});
}

INSTANTIATE_TEST_SUITE_P(Ears, Acquisition,
    testing::Values(Browser::Ear::present, Browser::Ear::absent), [](const auto& ears) {
        return ears.param == Browser::Ear::present ? "WithReceiver" : "WithoutReceiver";
    });

} // namespace
