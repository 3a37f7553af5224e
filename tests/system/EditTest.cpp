#include "Browser.h"

#include <gtest/gtest.h>

#include <tuple>

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

TEST(Edit, OffGridIntegerMovesOntoTheGridAndSaysSo)
{
    Browser b;
    b.type("Width", "643");
    EXPECT_EQ(b.integer("Width"), 640);
    EXPECT_EQ(b.shown("Width"), "640");
    EXPECT_TRUE(b.showsText("Value adjusted to 640"));
    EXPECT_EQ(b.receiver.take(), Lines {});
}

TEST(Edit, OutOfRangeIntegerIsSetBackAndSaysTheRange)
{
    Browser b;
    const std::string before = b.shown("Width");
    b.type("Width", "1000000");
    EXPECT_EQ(b.shown("Width"), before);
    EXPECT_EQ(std::to_string(b.integer("Width")), before);
    EXPECT_TRUE(b.showsText("Value must be between "));
    EXPECT_EQ(b.receiver.take(), Lines {});
}

TEST(Edit, IntegerBeyond32BitsArrivesWhole)
{
    Browser b;
    b.type("DeviceUserTag", "1234567890123456789");
    EXPECT_EQ(b.integer("DeviceUserTag"), 1234567890123456789L);
    EXPECT_EQ(b.shown("DeviceUserTag"), "1234567890123456789");
}

TEST(Edit, FloatArrivesAsTyped)
{
    Browser b;
    testing::internal::CaptureStderr();
    b.type("ExposureTime", "1234");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "<>Feature double set: ExposureTime 1234.000000 0\n");
    EXPECT_EQ(b.number("ExposureTime"), 1234.0);
    EXPECT_EQ(b.receiver.take(), Lines { "double ExposureTime 1234.000000" });
}

TEST(Edit, LongExposureLowersTheFrameRateLimit)
{
    Browser b;
    const double before = b.role("AcquisitionFrameRate", "maximum").toDouble();
    b.type("ExposureTime", "1000000");
    EXPECT_LT(b.role("AcquisitionFrameRate", "maximum").toDouble(), std::min(before, 1.01));
}

TEST(Edit, OutOfRangeFloatIsSetBackAndSaysTheRange)
{
    Browser b;
    const double before = b.number("ExposureTime");
    b.type("ExposureTime", "1e9");
    EXPECT_EQ(b.number("ExposureTime"), before);
    EXPECT_TRUE(b.showsText("value must be between 10.00000 and 10000000.00000"));
    EXPECT_EQ(b.receiver.take(), Lines {});
}

TEST(Edit, TextArrivesAndTooLongATextIsRefused)
{
    Browser b;
    b.type("DeviceUserID", "left camera");
    EXPECT_EQ(b.shown("DeviceUserID"), "left camera");
    EXPECT_EQ(b.receiver.take(), Lines { "string DeviceUserID left camera" });

    b.device().SetStringValue("DeviceUserID", "unchanged");
    b.browser().RefreshFeature("DeviceUserID");
    b.type("DeviceUserID", "much too long for sixteen bytes");
    EXPECT_EQ(b.shown("DeviceUserID"), "unchanged");
}

TEST(Edit, AddressArrivesAsItsNumber)
{
    Browser b;
    b.type("GevPersistentIPAddress", "192.168.1.77");
    EXPECT_EQ(b.integer("GevPersistentIPAddress"), 3232235853L);
    EXPECT_EQ(b.shown("GevPersistentIPAddress"), "192.168.1.77");
    EXPECT_EQ(b.receiver.take(), Lines { "ip GevPersistentIPAddress 192.168.1.77" });
}

TEST(Edit, EnumerationIsChosenByItsLetters)
{
    Browser b;
    const std::string payload = b.shown("PayloadSize");
    b.choose("PixelFormat", "Mono16");
    EXPECT_EQ(b.shown("PixelFormat"), "Mono16");
    EXPECT_NE(b.shown("PayloadSize"), payload);
    const Lines heard = b.receiver.take();
    ASSERT_EQ(heard.size(), 1U);
    EXPECT_EQ(heard[0].rfind("enum PixelFormat Mono16 ", 0), 0U) << heard[0];
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

TEST(Edit, BooleanIsSetByMouse)
{
    Browser b;
    b.click("ReverseX");
    bool reversed = false;
    b.device().GetBooleanValue("ReverseX", &reversed);
    EXPECT_TRUE(reversed);
    EXPECT_EQ(b.shown("ReverseX"), "True");
    EXPECT_EQ(b.receiver.take(), Lines { "bool ReverseX 1" });
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
