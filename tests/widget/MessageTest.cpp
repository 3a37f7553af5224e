// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "WidgetTest.h"

#include <QAbstractButton>
#include <QFrame>

#include <stdexcept>

namespace featurebrowser {

namespace {

class MessageTest : public WidgetTest {
protected:
    MessageTest() { show(); }
};

} // namespace

TEST_F(MessageTest, ARejectionStaysAtItsRowUntilTheNextGoodValue)
{
    journal.answer = [this](const std::string&) {
        browser->setDefaultValue("Width", 640L, "Error writing value\nValue must be <b>16</b>");
    };
    edit("Width", "5");
    EXPECT_EQ(text("Width"), "640");
    EXPECT_EQ(message(), "Error writing value\nValue must be <b>16</b>\nEntered: 5");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(row("Width").data(Qt::AccessibleDescriptionRole).toString(),
        "Width\n640\nRange: 16 … 4096\nStep: 16\n" + QString::fromStdString(message()));
    EXPECT_FALSE(child<QAbstractButton>("dismissButton")->icon().isNull());

    QTest::mouseClick(child<QAbstractButton>("dismissButton"), Qt::LeftButton);
    EXPECT_EQ(message(), "");
    select("ExposureTime");
    select("Width");
    press(Qt::Key_Escape);
    EXPECT_EQ(message(), "");
    select("ExposureTime");
    select("Width");
    EXPECT_NE(message(), "") << "still marked, so it can be read again";

    setInteger("Width", 640, 16, 2048);
    EXPECT_NE(message(), "") << "another limit is no answer";
    select("PixelFormat");
    EXPECT_NE(message(), "") << "going on does not take it away";
    edit("DeviceUserID", "x", Qt::Key_Escape);
    EXPECT_NE(message(), "") << "this Escape was the editor's";
    setInteger("Width", 656, 16, 2048);
    EXPECT_EQ(message(), "") << "another value is";
    browser->setDefaultValue("Width", 640L, "no");

    journal.answer = [this](const std::string&) { setInteger("Width", 32, 16, 64); };
    edit("Width", "32");
    EXPECT_EQ(message(), "");
}

TEST_F(MessageTest, WhatIsNotConfirmedAsEnteredIsSaidAtItsRow)
{
    const auto accept
        = [this](const char* text) { return [this, text] { setText("DeviceUserID", text); }; };
    struct Case {
        const char *name, *typed;
        std::function<void()> answer;
        const char *value, *message;
    };
    for (const Case& c : std::vector<Case> {
             { "Width", "48", [] {}, "640",
                 "The camera has not confirmed “48”; the row shows the last known value" },
             { "Width", "48", [] {}, "640",
                 "The camera has not confirmed “48”; the row shows the last known value" },
             { "Width", "7", [] { throw std::out_of_range("stoll"); }, "640",
                 "Internal error: stoll\nEntered: 7" },
             { "Width", "8", [] { throw 1; }, "640", // NOLINT(hicpp-exception-baseclass)
                 "Internal error\nEntered: 8" },
             { "DeviceUserID", "right", accept("left"), "left",
                 "The camera has not taken “right”; the row shows what it holds" },
             { "DeviceUserID", "right", accept("right"), "right", "" },
             { "ExposureTime", "7000",
                 [this] { browser->setDefaultValue("ExposureTime", 5000.0, "Error\n"); }, "5000",
                 "Error\nEntered: 7000" },
             { "ExposureTime", "7000.2", [this] { setFloat("ExposureTime", 7000); }, "7000",
                 "The camera has put “7000.2” onto “7000”" } }) {
        journal.answer = [&c](const std::string&) { c.answer(); };
        edit(c.name, c.typed);
        EXPECT_EQ(journal.take().size(), 1U) << "trying again is possible";
        EXPECT_EQ(text(c.name), c.value);
        EXPECT_EQ(message(), c.message);
    }
    EXPECT_EQ(role("ExposureTime", "minimum"), QVariant(1.0));
    EXPECT_EQ(role("ExposureTime", "maximum"), QVariant(1e6));
    journal.answer = [this](const std::string&) { setChoice("ReverseX", "0", { "No", "Yes" }); };
    select("ReverseX");
    press(Qt::Key_Space);
    EXPECT_EQ(message(), "The camera has not taken “Yes”; the row shows what it holds");
    browser->setDefaultValue("Width", 32L, "odd");
    EXPECT_EQ(text("Width"), "32");
    EXPECT_EQ(role("Width", "maximum"), QVariant(qlonglong(4096)));
    EXPECT_EQ(message(), "odd");
    browser->setDefaultValue("Width", 7.5, "of another kind");
    EXPECT_EQ(text("Width"), "32");
    EXPECT_EQ(message(), "of another kind");
    journal.answer = [](const std::string&) { throw std::runtime_error("no"); };
    open("AcquisitionStart");
    EXPECT_EQ(message(), "Internal error: no");
    journal.take();
    browser->showDialog(nullptr, 0, 0, {}, {});
    edit("Width", "64");
    EXPECT_EQ(message(), "“64” was not written: nothing is connected to this browser");
    EXPECT_TRUE(journal.take().empty());
    browser->showDialog(&journal, 0, 0, {}, {});
    journal.answer = [](const std::string&) { throw std::runtime_error("no"); };
    browser->closeDialog();
    EXPECT_FALSE(browser->isVisible());
}

TEST_F(MessageTest, ACalloutStandsBesideItsRowAndLeavesWithIt)
{
    const auto* callout = child<QFrame>("messageCallout");
    const auto area = [this](const char* name) { return tree()->visualRect(row(name)); };
    for (const char* name : { "Width", "ExposureTime" }) {
        browser->setDefaultValue(name, 640L, "no");
        EXPECT_NE(message(), "");
        EXPECT_GE(callout->y(), area(name).top()) << "beside the value";
        EXPECT_LT(callout->y(), area(name).bottom());
        EXPECT_GT(callout->x(), tree()->visualRect(row(name, 1)).left() + 40);
    }
    window()->resize(320, 700);
    QApplication::processEvents();
    EXPECT_GT(callout->y(), area("ExposureTime").bottom()) << "no room there";
    EXPECT_LT(callout->y(), area("ExposureTime").bottom() + area("ExposureTime").height());
    EXPECT_LT(callout->geometry().right(), tree()->viewport()->width());
    EXPECT_GT(callout->x(), 0);

    select("GevMACAddress");
    const QFontMetrics font = window()->fontMetrics(); // Qt 6 takes no resolution from the screen
    window()->resize(85 * font.averageCharWidth(), 20 * font.height());
    QApplication::processEvents();
    EXPECT_LE(area("GevMACAddress").bottom(), tree()->viewport()->height()) << "stays in sight";
    tree()->scrollToBottom();
    browser->setDefaultValue("GevMACAddress", 0L, "one\ntwo");
    EXPECT_EQ(message(), "one\ntwo");
    EXPECT_LT(callout->geometry().bottom(), area("GevMACAddress").top()) << "no room below";
    EXPECT_GT(callout->geometry().bottom(), area("GevMACAddress").top() - 8);
    tree()->scrollToTop();
    EXPECT_EQ(message(), "") << "its row is out of sight";
    tree()->scrollToBottom();
    EXPECT_NE(message(), "");
    QTest::keySequence(window(), QKeySequence::Find);
    type("Width");
    EXPECT_EQ(message(), "") << "its row is filtered away";
    find("");
    tree()->scrollToBottom();
    EXPECT_NE(message(), "");
    browser->clearFeatureItems();
    EXPECT_EQ(message(), "") << "its row is gone";
}

} // namespace featurebrowser
