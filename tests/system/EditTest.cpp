// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Browser.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(Edit, WhatIsTypedArrivesOrIsSetBackWithAWord)
{
    Browser b;
    struct Case {
        const char *name, *typed, *shown, *event, *message;
        long camera = 0;
    };
    for (const Case& c :
        std::vector<Case> { { "Width", "640", "640", "Int Width 640", "", 640 },
            { "Width", "643", "640", "", "Value adjusted to 640", 640 },
            { "Width", "1000000", "640", "", "Value must be between ", 640 },
            { "DeviceUserTag", "1234567890123456789", "1234567890123456789", // beyond 32 bits
                "Int DeviceUserTag 1234567890123456789", "", 1234567890123456789 },
            { "ExposureTime", "1234", "1234", "Double ExposureTime 1234", "" },
            { "ExposureTime", "1e9", "1234", "",
                "value must be between 10.00000 and 10000000.00000" },
            { "DeviceUserID", "left camera", "left camera", "String DeviceUserID left camera", "" },
            { "DeviceUserID", "much too long for sixteen bytes", "left camera", "", "16" },
            { "GevPersistentIPAddress", "192.168.1.77", "192.168.1.77",
                "IP GevPersistentIPAddress 192.168.1.77", "", 3232235853 } }) {
        b.edit(c.name, c.typed);
        const std::string message = b.message();
        b.press(Qt::Key_Escape);
        EXPECT_EQ(b.text(c.name), c.shown);
        EXPECT_EQ(b.journal.take(), *c.event ? Lines { c.event } : Lines()) << c.typed;
        EXPECT_NE(message.find(c.message), std::string::npos) << c.typed << message;
        EXPECT_EQ(message.empty(), *c.message == '\0') << message;
        EXPECT_TRUE(c.camera == 0 || b.integer(c.name) == c.camera) << c.typed;
    }
    EXPECT_EQ(b.number("ExposureTime"), 1234.0);
    for (const char* name : { "Width", "ExposureTime", "DeviceUserID", "GevPersistentIPAddress" }) {
        for (const Qt::Key key : { Qt::Key_Escape, Qt::Key_Return }) {
            const std::string before = b.text(name);
            b.open(name);
            b.press(key);
            EXPECT_EQ(b.text(name), before) << name;
        }
    }
    EXPECT_EQ(b.journal.take(), Lines {}) << "what is unchanged is not written";
}

TEST(Edit, DependentsFollow)
{
    Browser b;
    std::string payload = b.text("PayloadSize");
    testing::internal::CaptureStderr();
    b.edit("Width", "640");
    b.edit("ExposureTime", "1234");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
        "Update feature in camera: Width value: 640\n"
        "Update feature in repository: Width value: 640\n"
        "<>Feature double set: ExposureTime 1234.000000 0\n");
    EXPECT_EQ(b.text("PayloadSize"), std::to_string(b.integer("PayloadSize")));
    EXPECT_NE(b.text("PayloadSize"), std::exchange(payload, b.text("PayloadSize")));
    EXPECT_EQ(b.role("OffsetX", "maximum").toLongLong(), b.integer("WidthMax") - 640);
    const double rate = b.role("AcquisitionFrameRate", "maximum").toDouble();
    b.edit("ExposureTime", "1000000");
    EXPECT_LT(b.role("AcquisitionFrameRate", "maximum").toDouble(), std::min(rate, 1.01));
    b.journal.take();

    b.choose("PixelFormat", "Mono16");
    EXPECT_NE(b.text("PayloadSize"), payload);
    b.click("ReverseX", 1, { 10, 0 });
    bool reversed = false;
    b.device().GetBooleanValue("ReverseX", &reversed);
    EXPECT_TRUE(reversed);
    EXPECT_EQ(b.text("ReverseX"), "True");
    EXPECT_EQ(b.journal.take(), (Lines { "Enum PixelFormat Mono16 3", "Bool ReverseX 1" }));
    for (const auto& [entry, gain] :
        { std::pair("Red", "6"), { "Blue", "3" }, { "Red", nullptr } }) {
        b.choose("GainSelector", entry);
        if (gain != nullptr) {
            b.edit("Gain", gain);
        }
    }
    EXPECT_EQ(b.text("Gain"), "6");
    EXPECT_EQ(b.number("Gain"), 6.0);
}

} // namespace
