// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "WidgetTest.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

namespace featurebrowser {

namespace {

class EditingTest : public WidgetTest {
protected:
    EditingTest() { show(); }
    static QWidget* field() { return QApplication::focusWidget(); }
    std::string fieldText() const { return field()->property("text").toString().toStdString(); }
    /// What the target does not take goes on to its parents.
    static void turnWheel(QWidget* target)
    {
        const QPoint at = target->rect().center();
        QWheelEvent event(at, target->mapToGlobal(at), {}, { 0, -240 }, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        do {
            QApplication::sendEvent(target, &event);
            target = target->parentWidget();
        } while (!event.isAccepted() && target != nullptr);
    }
    void mouse(Qt::MouseButton button, QPoint press, QPoint release) const
    {
        QTest::mousePress(tree()->viewport(), button, {}, press);
        QTest::mouseRelease(tree()->viewport(), button, {}, release);
    }
};

Qt::Key keyOf(const QString& name)
{
    return static_cast<Qt::Key>(
        QMetaEnum::fromType<Qt::Key>().keyToValue(("Key_" + name).toLatin1()));
}

} // namespace

TEST_F(EditingTest, WhatIsTypedIsOneEventOrAMessage)
{
    journal.answer = nullptr; // so that each value is another one
    browser->setItemDescription("ExposureTime", "Exposure time (in microseconds).");
    setText("GevMACAddress", "00:00:00:00:00:01");
    for (const QStringList& row : table("typed")) {
        edit(row[0].toStdString(), row[1].toUtf8());
        const bool isEvent = row[2].contains(' ' + row[0]);
        EXPECT_EQ(isEditing(), !isEvent) << "what is no value stays to be mended";
        const QString last = journal.lines.empty() ? "" : journal.lines.back().c_str();
        EXPECT_EQ(
            (isEvent ? last.trimmed() : message().c_str()).toStdString(), row[2].toStdString());
        EXPECT_EQ(journal.take().size(), isEvent ? 1U : 0U);
        press(Qt::Key_Escape);
        EXPECT_EQ(message(), "") << "what was typed is gone, and so is what was wrong with it";
    }
}

TEST_F(EditingTest, TheUnitStandsInTheDescription)
{
    open("ExposureTime");
    for (const QStringList& unit : table("units")) {
        browser->setItemDescription("ExposureTime", unit[0].toStdString());
        EXPECT_EQ(row("ExposureTime", 1).data(Qt::AccessibleTextRole).toString().toStdString(),
            ("5000 " + unit[1]).trimmed().toStdString() + ", editable")
            << unit[0].toStdString();
    }
}

TEST_F(EditingTest, EveryKeyLeavesEveryEditorAsItShould)
{
    struct Case {
        const char *name, *typed, *event;
        std::string tab, backtab;
    };
    for (const Case& c :
        std::vector<Case> { { "Width", "3%1", "Int Width 3%1", "ExposureTime", "Width" },
            { "ExposureTime", "7%1", "Double ExposureTime 7%1", "DeviceUserID", "Width" },
            { "DeviceUserID", "a%1", "String DeviceUserID a%1", "PixelFormat", "ExposureTime" },
            { "GevCurrentIPAddress", "1.2.3.%1", "IP GevCurrentIPAddress 1.2.3.%1",
                "GevCurrentIPAddress", "AcquisitionStart" } }) {
        int number = 0;
        for (const auto& [key, next] : { std::pair(Qt::Key_Return, std::string(c.name)),
                 { Qt::Key_Enter, c.name }, { Qt::Key_Escape, c.name }, { Qt::Key_Tab, c.tab },
                 { Qt::Key_Backtab, c.backtab }, { Qt::Key_Shift, "ReverseX" } }) {
            const auto with
                = [at = ++number](const char* text) { return QString(text).arg(at).toStdString(); };
            edit(c.name, with(c.typed).c_str(), key);
            if (key == Qt::Key_Shift) {
                click(next, 0);
            }
            const Lines written { with(c.event) };
            EXPECT_EQ(journal.take(), key == Qt::Key_Escape ? Lines() : written);
            EXPECT_EQ(tree()->currentIndex().row(), row(next).row()) << c.name << key;
            const bool opensList = next == "PixelFormat";
            EXPECT_EQ(isEditing() && !opensList,
                next != c.name && (next == "Width" || next[0] == 'E' || next[0] == 'D'))
                << c.name << key;
            EXPECT_TRUE(!opensList || popup() != nullptr);
            press(Qt::Key_Escape);
            EXPECT_TRUE(QTest::qWaitFor([this] { return tree()->hasFocus(); })) << c.name << key;
        }
    }
    for (const char* name : { "Width", "GevCurrentIPAddress" }) {
        edit(name, "abc", Qt::Key_Shift);
        click("PixelFormat", 0);
        EXPECT_FALSE(isEditing()) << "what is no value does not hold the user back";
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return said(name).find("“abc” is not") != std::string::npos; }));
    }
    for (const char* name : { "Width", "ExposureTime", "DeviceUserID", "GevCurrentIPAddress" }) {
        open(name);
        type("1");
        EXPECT_EQ(fieldText(), "1") << "what was there is replaced";
        for (const auto& [key, own] : { std::pair(Qt::Key_Escape, true), { Qt::Key_Return, true },
                 { Qt::Key_Enter, true }, { Qt::Key_F4, false } }) {
            QKeyEvent event(QEvent::ShortcutOverride, key, Qt::NoModifier);
            event.ignore();
            QApplication::sendEvent(field(), &event);
            EXPECT_EQ(event.isAccepted(), own) << "not a dialog's: " << key;
        }
        EXPECT_EQ(field()->accessibleName().toStdString(), name);
        press(Qt::Key_Escape);
    }
}

TEST_F(EditingTest, AnotherWindowInFrontDoesNotEndAnEdit)
{
    open("Width");
    type("7");
    QWidget other;
    other.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&other));
    other.activateWindow();
    ASSERT_TRUE(waitForActive(&other));
    window()->activateWindow();
    ASSERT_TRUE(waitForActive(window()));
    EXPECT_TRUE(isEditing() && journal.take().empty());
    EXPECT_EQ(fieldText(), "7");
}

TEST_F(EditingTest, ListsOpenAtOnceAndWriteTheChosenEntry)
{
    click("PixelFormat");
    ASSERT_NE(popup(), nullptr);
    QTest::keyClicks(field(), "RGB");
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !isEditing() && tree()->hasFocus(); }));
    EXPECT_EQ(journal.take(), Lines { "Enum PixelFormat RGB8 2" });
    browser->modifyFeature("PixelFormat", "1", CAM_TYPE_ENUMERATION, { "A", "B" }, false, false);
    click("PixelFormat");
    ASSERT_NE(popup(), nullptr);
    EXPECT_EQ(tree()->findChild<QComboBox*>()->currentIndex(), -1) << "without a value";
    press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return tree()->hasFocus(); }));
    setChoice("PixelFormat", "1", { "A", "B" });
    open("PixelFormat");
    ASSERT_NE(popup(), nullptr);
    const auto* list = tree()->findChild<QComboBox*>();
    EXPECT_TRUE(list->currentIndex() == 1 && list->maxVisibleItems() == 20 && !list->hasFrame());
    press(Qt::Key_Up);
    press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return tree()->hasFocus(); }));
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(text("PixelFormat"), "B");
    open("PixelFormat");
    ASSERT_NE(popup(), nullptr);
    setChoice("PixelFormat", "0", { "Only" }); // shrinks while it is open
    press(Qt::Key_End);
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return tree()->hasFocus(); }));
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(text("PixelFormat"), "Only");
    setChoice("PixelFormat", "1", { "A", "B" });
    choose("PixelFormat", "A");
    EXPECT_EQ(journal.take(), Lines { "Enum PixelFormat A 0" });
}

TEST_F(EditingTest, KeysActOnEveryKindOfRow)
{
    for (const Qt::Key key : { Qt::Key_Return, Qt::Key_Enter, Qt::Key_F2, Qt::Key_Space }) {
        for (const auto& [name, event, edits] :
            { std::tuple("Width", "", true), { "DeviceUserID", "", true },
                { "AcquisitionStart", "Command AcquisitionStart", false },
                { "ReverseX", "Bool ReverseX 1", false }, { "Camera", "", false },
                { "GevMACAddress", "", false } }) {
            QToolTip::showText({}, "none", window());
            setChoice("ReverseX", "0", { "False", "True" });
            select(name);
            press(key, Qt::ControlModifier);
            EXPECT_TRUE(journal.take().empty() && !isEditing()) << name;
            press(key);
            EXPECT_EQ(journal.take(), *event ? Lines { event } : Lines()) << name << key;
            EXPECT_EQ(isEditing(), edits) << name << key;
            press(Qt::Key_Escape);
            EXPECT_EQ(tree()->isExpanded(row("Camera")), name != std::string("Camera"));
            EXPECT_EQ(QToolTip::text().contains("Read-only"), name == std::string("GevMACAddress"))
                << "says why nothing happens";
            tree()->expandAll();
        }
    }
}

TEST_F(EditingTest, TheMouseActsOnBoxesAndButtonsOnRelease)
{
    const QRect box = tree()->visualRect(row("ReverseX", 1));
    const QRect button = tree()->visualRect(row("AcquisitionStart", 1));
    const QPoint onBox = box.topLeft() + QPoint(10, 10);
    const QPoint onButton = button.topLeft() + QPoint(20, 10);
    const QPoint onName = tree()->visualRect(row("AcquisitionStart")).center();
    struct Case {
        const char* what;
        Qt::MouseButton with;
        QPoint press, release;
        Lines events;
    };
    for (const Case& c :
        std::vector<Case> { { "box", Qt::LeftButton, onBox, onBox, { "Bool ReverseX 1" } },
            { "text of the box", Qt::LeftButton, onBox + QPoint(30, 0), onBox + QPoint(30, 0),
                { "Bool ReverseX 0" } },
            { "beside it", Qt::LeftButton, box.center(), box.center(), {} },
            { "button", Qt::LeftButton, onButton, onButton, { "Command AcquisitionStart" } },
            { "beside it", Qt::LeftButton, { button.right() - 5, onButton.y() },
                { button.right() - 5, onButton.y() }, {} },
            { "right", Qt::RightButton, onButton, onButton, {} },
            { "left, taken back", Qt::LeftButton, onButton, { 20, 10 }, {} },
            { "from another", Qt::LeftButton, onBox, onButton, {} },
            { "name", Qt::LeftButton, onName, onName, {} } }) {
        mouse(c.with, c.press, c.release);
        EXPECT_EQ(journal.take(), c.events) << c.what;
    }
    const auto doubleClick = [this](QPoint at) {
        mouse(Qt::LeftButton, at, at);
        QTest::mouseDClick(tree()->viewport(), Qt::LeftButton, {}, at);
        QTest::mouseRelease(tree()->viewport(), Qt::LeftButton, {}, at);
    };
    doubleClick(onButton);
    EXPECT_EQ(journal.take().size(), 2U) << "two presses";
    doubleClick(tree()->visualRect(row("Camera")).center());
    EXPECT_FALSE(tree()->isExpanded(row("Camera")));
    tree()->expandAll();
    click("Camera");
    EXPECT_TRUE(tree()->isExpanded(row("Camera"))) << "a category has no value to click";
    click("GevMACAddress");
    setChoice("ReverseX", "0", { "False" });
    click("ReverseX", 1, { 10, 0 }); // has nothing to go to
    tree()->setCurrentIndex({});
    press(Qt::Key_Return);
    EXPECT_TRUE(journal.take().empty() && !isEditing());
}

TEST_F(EditingTest, StepsFollowTheGrid)
{
    browser->setItemDescription("Width", "Unit: us");
    for (const QStringList& row : table("steps")) {
        setInteger("Width", 640, row[0].toLong(), row[1].toLong(), row[2].toUInt());
        edit("Width", row[3].toUtf8(), keyOf(row[4]));
        press(Qt::Key_Return);
        EXPECT_EQ(journal.take(), Lines { "Int Width " + row[5].toStdString() })
            << row.join('|').toStdString();
    }
    setInteger("Width", 640, 0, 1000, 10);
    open("Width");
    press(Qt::Key_Up); // without a letter
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "Int Width 650" });
}

TEST_F(EditingTest, ArrowsStepAFloatThroughRoundNumbersAndWriteNothingBeforeItIsAccepted)
{
    browser->addDoubleFeature("Camera", "Gain", 1, 0, 1, 0, LEVEL_BEGINNER, SLIDER_LINEAR, false,
        true, SELECTOR_NONE, "");
    for (const QStringList& row : table("float steps")) {
        const std::string name = row[0].toStdString();
        setFloat(name, 7, row[1].toDouble(), row[2].toDouble(), row[3].toDouble());
        edit(name, row[4].toUtf8(), Qt::Key_Shift);
        const int steps = row[5].toInt();
        const bool isPage = std::abs(steps) == 10;
        press(steps > 0 ? (isPage ? Qt::Key_PageUp : Qt::Key_Up)
                        : (isPage ? Qt::Key_PageDown : Qt::Key_Down));
        EXPECT_TRUE(journal.take().empty());
        EXPECT_EQ(fieldText(), row[6].toStdString()) << row.join('|').toStdString();
        press(Qt::Key_Return);
        EXPECT_EQ(journal.take().size(), 1U);
    }
}

TEST_F(EditingTest, ARowWithoutAValueIsEditedFromNothing)
{
    setInteger("Width", 1, 0, 9, 1, false, false);
    setFloat("ExposureTime", 1, 0, 9, 0, false, false);
    for (const char* name : { "DeviceUserID", "GevCurrentIPAddress" }) {
        browser->modifyFeature(name, "1.2.3.4", CAM_TYPE_STRING, {}, false, false);
    }
    for (const char* name : { "Width", "ExposureTime", "DeviceUserID", "GevCurrentIPAddress" }) {
        open(name);
        EXPECT_EQ(fieldText(), "") << name;
        EXPECT_GT(2 * field()->width(), tree()->visualRect(row(name, 1)).width())
            << "the field has the room";
        press(Qt::Key_Escape);
    }
    EXPECT_TRUE(journal.take().empty());
    edit("Width", "1");
    EXPECT_EQ(journal.take(), Lines { "Int Width 1" }) << "nobody has seen that it is 1";
}

TEST_F(EditingTest, ClosingTheWindowTakesAnOpenEditBack)
{
    open("Width");
    type("7");
    browser->closeDialog();
    EXPECT_EQ(journal.take(), Lines { "Close 600 700 3" });
    EXPECT_EQ(text("Width"), "640");
    browser->showDialog();
    EXPECT_FALSE(tree()->isPersistentEditorOpen(row("Width", 1)));
}

TEST_F(EditingTest, TheWheelScrollsTheTreeAndChangesNoValue)
{
    window()->resize(1200, 260);
    for (const char* name : { "ExposureTime", "Width", "DeviceUserID" }) {
        open(name);
        QApplication::processEvents();
        for (QWidget* part : tree()->viewport()->findChildren<QWidget*>()) {
            tree()->verticalScrollBar()->setValue(0);
            turnWheel(part);
            EXPECT_GT(tree()->verticalScrollBar()->value(), 0) << part->metaObject()->className();
        }
        press(Qt::Key_Return);
    }
    click("PixelFormat");
    ASSERT_NE(popup(), nullptr);
    auto* list = tree()->findChild<QComboBox*>();
    turnWheel(list);
    EXPECT_EQ(list->currentIndex(), 0);
    press(Qt::Key_Escape);
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(EditingTest, AnUpdateDoesNotTakeTypedTextAway)
{
    open("Width");
    setInteger("Width", 100, 0, 200, 2);
    EXPECT_EQ(fieldText(), "100") << "untouched: follows the row";
    type("77");
    setInteger("Width", 120, 0, 200, 2);
    EXPECT_EQ(fieldText(), "77");
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "Int Width 77" });
    // A row that becomes read-only ends its edit.
    open("Width");
    type("5");
    setInteger("Width", 120, 0, 200, 2, true);
    EXPECT_FALSE(isEditing());
    press(Qt::Key_F2);
    EXPECT_FALSE(isEditing());
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(EditingTest, AMacAddressIsANumberToTheCamera)
{
    setText("GevMACAddress", "00:00:00:00:00:01");
    journal.answer = [this](const std::string&) {
        browser->setDefaultValue("GevMACAddress", 0x1234L, "Out of range");
    };
    edit("GevMACAddress", "020000000007");
    EXPECT_EQ(journal.take(), Lines { "Int GevMACAddress 2199023255559" });
    EXPECT_EQ(text("GevMACAddress"), "00:00:00:00:12:34");
    EXPECT_EQ(message(), "Out of range\nEntered: 02:00:00:00:00:07");
    journal.answer = [this](const std::string&) { setText("GevMACAddress", "02:00:00:00:00:07"); };
    edit("GevMACAddress", " 0200.0000.0007 ");
    EXPECT_EQ(journal.take().size(), 1U);
    EXPECT_EQ(message(), "") << "what came back is what was entered";
    edit("GevMACAddress", "02-00-00-00-00-07");
    EXPECT_TRUE(journal.take().empty()) << "held already";
    edit("GevCurrentIPAddress", " 10.0.0.7 ");
    EXPECT_EQ(journal.take(), Lines { "IP GevCurrentIPAddress 10.0.0.7" });
}

TEST_F(EditingTest, AnEditorCanStartWithWhatTheTreeWasTyped)
{
    setText("GevMACAddress", "00:00:00:00:00:01");
    for (const char* name :
        { "Width", "ExposureTime", "DeviceUserID", "GevCurrentIPAddress", "GevMACAddress" }) {
        select(name);
        type("78");
        EXPECT_EQ(fieldText(), "78");
        press(Qt::Key_Home); // as if typed: nothing of it is lost to an update
        setInteger("Width", 1);
        EXPECT_EQ(fieldText(), "78");
        press(Qt::Key_Escape);
    }
}

TEST_F(EditingTest, TextsAreCountedInBytesAndNeverCut)
{
    edit("DeviceUserID", "\u00E4\u00E4\u00E4\u00E41", Qt::Key_Shift);
    const auto* counter = child<QLabel>("byteCounter");
    EXPECT_EQ(counter->text(), "9/8");
    const auto color = [counter] { return counter->palette().color(counter->foregroundRole()); };
    const QColor alarm = color();
    EXPECT_TRUE(counter->font().bold() && alarm.red() > alarm.blue());
    press(Qt::Key_Return);
    EXPECT_TRUE(isEditing());
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(message(), "The text has 9 bytes; the camera takes at most 8");
    press(Qt::Key_Backspace);
    EXPECT_TRUE(!counter->font().bold() && color().red() == color().blue());
    window()->setPalette(QPalette(Qt::black));
    EXPECT_GT(color().lightness(), 128) << "follows the palette";
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "String DeviceUserID \u00E4\u00E4\u00E4\u00E4" });
    browser->addStringFeature(
        "Camera", "Free", "", LEVEL_BEGINNER, 0, false, true, ADDRESS_NONE, SELECTOR_NONE, "");
    setText("DeviceUserID", "");
    open("DeviceUserID");
    EXPECT_EQ(field()->parentWidget()->findChild<QLabel*>()->text(), "0/8");
    open("Free");
    EXPECT_FALSE(field()->parentWidget()->findChild<QLabel*>()->isVisible()) << "no limit";
    type("more than eight bytes");
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "String Free more than eight bytes" });
}

} // namespace featurebrowser
