#include "Browser.h"

#include <gtest/gtest.h>

using Lines = std::vector<std::string>;

namespace {

TEST(Edit, IntegerGoesToTheCameraAndItsDependentsFollow)
{
    Browser b;
    const std::string payload = b.shown("PayloadSize");
    testing::internal::CaptureStderr();
    b.type("Width", "640");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "Update feature in camera: Width value: 640\n"
        "Update feature in repository: Width value: 640\n");
    EXPECT_EQ(b.integer("Width"), 640);
    EXPECT_EQ(b.shown("Width"), "640");
    EXPECT_EQ(b.shown("PayloadSize"), std::to_string(b.integer("PayloadSize")));
    EXPECT_NE(b.shown("PayloadSize"), payload);
    EXPECT_EQ(b.role("OffsetX", "maximum").toLongLong(), b.integer("WidthMax") - 640);
    EXPECT_EQ(b.receiver.take(), Lines { "int Width 640" });
}

TEST(Edit, IntegerIsMovedOntoTheGridOrSetBackWithAWord)
{
    Browser b;
    for (const auto& [typed, said] :
        { std::pair("643", "Value adjusted to 640"), { "1000000", "Value must be between " } }) {
        b.type("Width", typed);
        EXPECT_EQ(b.integer("Width"), 640);
        EXPECT_EQ(b.shown("Width"), "640");
        EXPECT_TRUE(b.showsText(said));
        EXPECT_EQ(b.receiver.take(), Lines {});
    }
    b.type("DeviceUserTag", "1234567890123456789"); // beyond 32 bits
    EXPECT_EQ(b.integer("DeviceUserTag"), 1234567890123456789L);
    EXPECT_EQ(b.shown("DeviceUserTag"), "1234567890123456789");
}

TEST(Edit, FloatArrivesAsTypedLimitsOthersAndStaysInItsRange)
{
    Browser b;
    testing::internal::CaptureStderr();
    b.type("ExposureTime", "1234");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "<>Feature double set: ExposureTime 1234.000000 0\n");
    EXPECT_EQ(b.number("ExposureTime"), 1234.0);
    EXPECT_EQ(b.receiver.take(), Lines { "double ExposureTime 1234.000000" });

    b.type("ExposureTime", "1e9");
    EXPECT_EQ(b.number("ExposureTime"), 1234.0);
    EXPECT_TRUE(b.showsText("value must be between 10.00000 and 10000000.00000"));
    EXPECT_EQ(b.receiver.take(), Lines {});

    const double before = b.role("AcquisitionFrameRate", "maximum").toDouble();
    b.type("ExposureTime", "1000000");
    EXPECT_LT(b.role("AcquisitionFrameRate", "maximum").toDouble(), std::min(before, 1.01));
}

TEST(Edit, TextsEntriesAndBoxesArrive)
{
    Browser b;
    b.type("DeviceUserID", "left camera");
    EXPECT_EQ(b.shown("DeviceUserID"), "left camera");
    EXPECT_EQ(b.receiver.take(), Lines { "string DeviceUserID left camera" });
    b.device().SetStringValue("DeviceUserID", "unchanged");
    b.browser().RefreshFeature("DeviceUserID");
    b.type("DeviceUserID", "much too long for sixteen bytes");
    EXPECT_EQ(b.shown("DeviceUserID"), "unchanged");
    b.receiver.take();

    b.type("GevPersistentIPAddress", "192.168.1.77");
    EXPECT_EQ(b.integer("GevPersistentIPAddress"), 3232235853L);
    EXPECT_EQ(b.shown("GevPersistentIPAddress"), "192.168.1.77");
    EXPECT_EQ(b.receiver.take(), Lines { "ip GevPersistentIPAddress 192.168.1.77" });

    const std::string payload = b.shown("PayloadSize");
    b.choose("PixelFormat", "Mono16"); // by its letters
    EXPECT_EQ(b.shown("PixelFormat"), "Mono16");
    EXPECT_NE(b.shown("PayloadSize"), payload);
    EXPECT_EQ(b.receiver.take(), Lines { "enum PixelFormat Mono16 3" });

    b.click("ReverseX");
    bool reversed = false;
    b.device().GetBooleanValue("ReverseX", &reversed);
    EXPECT_TRUE(reversed);
    EXPECT_EQ(b.shown("ReverseX"), "True");
    EXPECT_EQ(b.receiver.take(), Lines { "bool ReverseX 1" });
}

TEST(Edit, SelectorShowsWhatItSelects)
{
    Browser b;
    b.choose("GainSelector", "Red");
    b.type("Gain", "6");
    b.choose("GainSelector", "Blue");
    b.type("Gain", "3");
    b.choose("GainSelector", "Red");
    EXPECT_EQ(b.shown("Gain"), "6");
    EXPECT_EQ(b.number("Gain"), 6.0);
}

TEST(Edit, EscapeAndUnchangedValuesWriteNothing)
{
    Browser b;
    for (const char* name : { "Width", "ExposureTime", "DeviceUserID", "GevPersistentIPAddress" }) {
        const std::string before = b.shown(name);
        b.open(name);
        b.press(Qt::Key_Escape);
        b.open(name);
        b.press(Qt::Key_Return);
        EXPECT_EQ(b.shown(name), before) << name;
    }
    EXPECT_EQ(b.receiver.take(), Lines {});
}

} // namespace
