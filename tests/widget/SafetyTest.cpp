// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// Nothing acts that the user does not see, or did not mean.
#include "WidgetTest.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>

namespace featurebrowser {

namespace {

class SafetyTest : public WidgetTest {
protected:
    SafetyTest()
    {
        browser->addSubCategory("Camera", "Tests", LEVEL_BEGINNER);
        for (const char* name : { "SelfTestRun", "DeviceReset", "UserSetSave" }) {
            addCommand(name);
        }
        show();
    }
    void addCommand(const char* name, bool readOnly = false) const
    {
        browser->addCommandFeature(
            "Tests", name, "Run", LEVEL_BEGINNER, readOnly, true, SELECTOR_NONE, "");
    }
    std::string currentName() const
    {
        return tree()->currentIndex().siblingAtColumn(0).data().toString().toStdString();
    }
    bool isAsked() const { return child<QWidget>("commandQuestion")->isVisible(); }
    void hold(Qt::Key key, const QString& text) const
    {
        press(key);
        for (int i = 0; i < 5; ++i) {
            QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text, true);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        }
    }
};

} // namespace

TEST_F(SafetyTest, ARowThatIsNotSeenIsNotActedOn)
{
    const auto* description = child<QPlainTextEdit>("descriptionText");
    const auto hide = std::map<std::string, std::function<void()>> {
        { "by the search", [this] { find("PixelF"); } },
        { "by the level",
            [this] {
                browser->addCategory("Other", LEVEL_BEGINNER);
                browser->addCommandFeature(
                    "Tests", "SelfTestRun", "Run", LEVEL_GURU, false, true, SELECTOR_NONE, "");
                browser->setVisibility(LEVEL_BEGINNER);
            } },
        { "in a closed category", [this] { tree()->collapse(row("Tests")); } },
    };
    for (const auto& [how, act] : hide) {
        browser->setVisibility(LEVEL_GURU);
        find("");
        tree()->expandAll();
        select("SelfTestRun");
        browser->setItemDescription("SelfTestRun", "tests itself");
        EXPECT_EQ(description->toPlainText(), "tests itself");
        act();
        EXPECT_NE(currentName(), "SelfTestRun") << how;
        EXPECT_EQ(description->toPlainText(), "") << how;
        tree()->setFocus();
        press(Qt::Key_Space);
        press(Qt::Key_Return);
        EXPECT_TRUE(journal.take().empty()) << how;
    }
    select("PixelFormat");
    find("Width");
    find("");
    EXPECT_EQ(currentName(), "PixelFormat") << "what was left is gone back to";
    browser->setVisibility(LEVEL_GURU);
    tree()->expandAll();
    for (int i = 0; i < 60; ++i) {
        addInteger("Tests", "N" + std::to_string(i));
    }
    QApplication::processEvents();
    select("SelfTestRun");
    tree()->verticalScrollBar()->setValue(tree()->verticalScrollBar()->maximum());
    press(Qt::Key_Space);
    EXPECT_TRUE(journal.take().empty()) << "first it comes into sight";
    EXPECT_TRUE(isShown("SelfTestRun"));
    press(Qt::Key_Space);
    EXPECT_EQ(journal.take(), Lines { "Command SelfTestRun" });
    open("Width");
    find("Exposure");
    EXPECT_FALSE(isEditing());
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(SafetyTest, TypingFindsNamesAndPressesNothing)
{
    QApplication::setKeyboardInputInterval(60000); // however slow this machine is
    select("Camera");
    for (const int column : { 0, 1 }) {
        tree()->setCurrentIndex(row("Camera", column));
        type("self test");
        EXPECT_EQ(currentName(), "SelfTestRun");
        press(Qt::Key_Escape);
    }
    type("mono"); // a value, no name
    EXPECT_EQ(currentName(), "SelfTestRun");
    press(Qt::Key_Escape);
    for (const char* next : { "DeviceReset", "DeviceUserID", "DeviceReset" }) {
        type("d");
        EXPECT_EQ(currentName(), next);
    }
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(SafetyTest, AKeyThatIsHeldActsOnce)
{
    for (const auto& [name, line] :
        { std::pair("SelfTestRun", "Command SelfTestRun"), { "ReverseX", "Bool ReverseX 1" } }) {
        select(name);
        name[0] == 'S' ? hold(Qt::Key_Space, " ") : hold(Qt::Key_Return, "\r");
        EXPECT_EQ(journal.take(), Lines { line });
    }
    // The server's repetition, where it has arrived in two parts.
    select("SelfTestRun");
    for (const auto& [type, time] : { std::pair(QEvent::KeyPress, 1000U),
             { QEvent::KeyRelease, 1700U }, { QEvent::KeyPress, 1700U },
             { QEvent::KeyRelease, 1740U }, { QEvent::KeyPress, 1790U } }) {
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier, " ");
        event.setTimestamp(time);
        QApplication::sendEvent(tree(), &event);
    }
    EXPECT_EQ(journal.take().size(), 2U) << "pressed twice, and held once";
    select("DeviceReset");
    hold(Qt::Key_Return, "\r");
    EXPECT_TRUE(isAsked() && journal.take().empty());
}

TEST_F(SafetyTest, WhatThrowsWorkAwayIsAskedAtItsRow)
{
    const auto ask = [this](const char* name) {
        open(name);
        EXPECT_TRUE(isAsked() && journal.take().empty()) << name;
    };
    EXPECT_FALSE(isAsked());
    ask("DeviceReset");
    EXPECT_EQ(child<QLabel>("questionText")->text(),
        "DeviceReset can throw away what is not saved. Run it?");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    press(Qt::Key_Return); // a second press has not read the question
    EXPECT_FALSE(isAsked());
    EXPECT_TRUE(tree()->hasFocus());
    ask("UserSetSave");
    press(Qt::Key_Escape);
    EXPECT_TRUE(!isAsked() && journal.take().empty());
    ask("UserSetSave");
    press(Qt::Key_Left);
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "Command UserSetSave" });
    EXPECT_FALSE(isAsked());
    ask("DeviceReset");
    QTest::mouseClick(child<QPushButton>("runButton"), Qt::LeftButton);
    EXPECT_EQ(journal.take(), Lines { "Command DeviceReset" });
    const auto goes = std::vector<std::function<void()>> {
        [this] { select("Width"); },
        [this] { browser->modifyFeature("DeviceReset", "Run", CAM_TYPE_COMMAND, {}, true, true); },
        [this] { find("Width"); },
        [this] { browser->clearFeatureItems(); },
    };
    for (const auto& act : goes) {
        browser->modifyFeature("DeviceReset", "Run", CAM_TYPE_COMMAND, {}, false, true);
        ask("DeviceReset");
        act();
        QApplication::processEvents();
        EXPECT_TRUE(!isAsked() && journal.take().empty());
        find("");
    }
    browser->addCategory("Tests", LEVEL_BEGINNER);
    for (const char* name : { "LoadIt", "DeviceReset" }) {
        addCommand(name);
    }
    tree()->expandAll();
    window()->setProperty("confirmedCommands", QStringList("load*"));
    ask("LoadIt");
    open("DeviceReset");
    EXPECT_EQ(journal.take(), Lines { "Command DeviceReset" });
    window()->setProperty("confirmedCommands", QStringList());
    open("LoadIt");
    EXPECT_EQ(journal.take(), Lines { "Command LoadIt" });
}

TEST_F(SafetyTest, ANumberOrAPastedTextStartsTheEdit)
{
    const auto* tree = this->tree();
    QGuiApplication::clipboard()->setText(" 48");
    for (const auto& [name, keys, line] : std::vector<std::tuple<const char*, const char*, Lines>> {
             { "Width", "64", { "Int Width 64" } },
             { "ExposureTime", ".5", { "Double ExposureTime 0.5" } },
             { "DeviceUserID", "7x", { "String DeviceUserID 7x" } },
             { "Width", nullptr, { "Int Width 48" } }, { "GevMACAddress", "1", {} },
             { "PixelFormat", "1", {} }, { "ReverseX", "1", {} } }) {
        select(name);
        keys != nullptr ? type(keys) : press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(isEditing(), !line.empty()) << name;
        if (isEditing()) {
            press(Qt::Key_Return);
        }
        EXPECT_EQ(journal.take(), line);
        EXPECT_TRUE(tree->hasFocus());
        press(Qt::Key_Escape);
    }
}

TEST_F(SafetyTest, NothingOfALostCameraCanBeEdited)
{
    QWidget* window = browser->GetWidget();
    open("Width");
    EXPECT_TRUE(isEditing());
    journal.take();
    window->setProperty("cameraLost", true);
    EXPECT_FALSE(isEditing());
    addCommand("AddedMeanwhile");
    for (const char* name :
        { "Width", "ReverseX", "PixelFormat", "SelfTestRun", "AddedMeanwhile" }) {
        open(name);
        EXPECT_FALSE(isEditing()) << name;
        EXPECT_EQ(popup(), nullptr) << name;
    }
    for (const std::string& event : journal.take()) {
        EXPECT_EQ(event.find("Select"), 0U) << event;
    }
    EXPECT_TRUE(row("Width").data(Qt::ToolTipRole).toString().contains("camera is lost"));
    window->setProperty("cameraLost", false);
    edit("Width", "512");
    EXPECT_EQ(journal.take().back(), "Int Width 512");
}

} // namespace featurebrowser
