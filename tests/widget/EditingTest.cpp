#include "WidgetTest.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QWheelEvent>

namespace featurebrowser {

namespace {

struct IntegerLimits {
    long minimum, maximum;
    unsigned int increment;
};

struct FloatLimits {
    double minimum, maximum, increment;
};

class EditingTest : public WidgetTest {
protected:
    EditingTest() { show(); }
    QWidget* popup() const
    {
        QTest::qWait(0);
        return QApplication::activePopupWidget();
    }
};

} // namespace

TEST_F(EditingTest, ACommitIsOneEventWithTheValueAsEntered)
{
    struct Case {
        const char* name;
        const char* typed;
        const char* event;
    };
    const std::vector<Case> cases { { "Width", "-5", "Int Width -5" },
        { "Width", "0x1F", "Int Width 31" },
        { "Width", "9223372036854775807", "Int Width 9223372036854775807" },
        { "ExposureTime", "0.30000000000000004", "Double ExposureTime 0.30000000000000004" },
        { "DeviceUserID", "\u00E4 right", "String DeviceUserID \u00E4 right" },
        { "DeviceUserID", "", "String DeviceUserID " },
        { "GevCurrentIPAddress", "192.168.0.255", "IP GevCurrentIPAddress 192.168.0.255" } };
    for (const Case& edited : cases) {
        edit(edited.name, edited.typed);
        EXPECT_EQ(journal.take(), Lines { edited.event });
        EXPECT_FALSE(isEditing());
    }
}

TEST_F(EditingTest, LeavingWritesOnceAndOnlyWhatChanged)
{
    edit("Width", "32", Qt::Key_Tab);
    EXPECT_EQ(journal.take(), Lines { "Int Width 32" });
    EXPECT_TRUE(isEditing()); // the next row
    EXPECT_EQ(tree()->currentIndex().row(), row("ExposureTime").row());
    press(Qt::Key_Backtab);
    EXPECT_EQ(tree()->currentIndex().row(), row("Width").row());
    type("48");
    click("PixelFormat", 0);
    EXPECT_EQ(journal.take(), Lines { "Int Width 48" });
    edit("ExposureTime", "5000.0");
    edit("DeviceUserID", "right", Qt::Key_Escape);
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(text("DeviceUserID"), "left");
}

TEST_F(EditingTest, ListsOpenAtOnceAndWriteTheChosenEntry)
{
    click("PixelFormat");
    ASSERT_NE(popup(), nullptr);
    QTest::keyClicks(QApplication::focusWidget(), "RGB");
    press(Qt::Key_Return);
    QTest::qWait(0);
    EXPECT_EQ(journal.take(), Lines { "Enum PixelFormat RGB8 2" });
    EXPECT_FALSE(isEditing());

    select("PixelFormat");
    press(Qt::Key_Return);
    ASSERT_NE(popup(), nullptr);
    press(Qt::Key_Up);
    press(Qt::Key_Escape);
    QTest::qWait(0);
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(text("PixelFormat"), "RGB8");
    EXPECT_FALSE(isEditing());
}

TEST_F(EditingTest, BooleansAndCommandsActOnTheirBoxAndButton)
{
    click("ReverseX", 1, { 10, 0 });
    press(Qt::Key_Space);
    EXPECT_EQ(journal.take(), (Lines { "Bool ReverseX 1", "Bool ReverseX 0" }));
    click("AcquisitionStart", 1, { 20, 0 });
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), (Lines { "Command AcquisitionStart", "Command AcquisitionStart" }));
    // Beside the button, or taken back before the release: nothing happens.
    const QRect area = tree()->visualRect(row("AcquisitionStart", 1));
    click("AcquisitionStart", 1, { area.width() - 5, 0 });
    QTest::mousePress(tree()->viewport(), Qt::LeftButton, {}, area.topLeft() + QPoint(20, 10));
    QTest::mouseRelease(tree()->viewport(), Qt::LeftButton, {}, QPoint(20, 10));
    click("GevMACAddress");
    EXPECT_TRUE(journal.take().empty());
    EXPECT_FALSE(isEditing());
}

TEST_F(EditingTest, StepsFollowTheGrid)
{
    constexpr long most = std::numeric_limits<long>::max();
    struct Case {
        IntegerLimits limits;
        const char* typed;
        Qt::Key key;
        const char* written;
    };
    const IntegerLimits odd { 1, 4096, 16 };
    const IntegerLimits widest { -most - 1, most, 0xFFFFFFFFU };
    const std::vector<Case> cases { { odd, "17", Qt::Key_Up, "33" },
        { odd, "17", Qt::Key_Down, "1" }, { odd, "20", Qt::Key_Up, "33" },
        { odd, "20", Qt::Key_Down, "17" }, { odd, "20", Qt::Key_PageUp, "177" },
        { odd, "200", Qt::Key_PageDown, "49" }, { odd, "20", Qt::Key_PageDown, "1" },
        { odd, "4000", Qt::Key_PageUp, "4081" }, { odd, "4090", Qt::Key_Up, "4081" },
        { odd, "4096", Qt::Key_Down, "4081" }, { odd, "1", Qt::Key_Down, "1" },
        { odd, "9999", Qt::Key_PageDown, "4081" }, { odd, "-9", Qt::Key_PageUp, "1" },
        { odd, "abc", Qt::Key_Up, "17" }, { { 0, 9, 0 }, "4", Qt::Key_Up, "5" },
        { { 7, 7, 1 }, "5", Qt::Key_Up, "5" },
        { widest, "9223372036854775807", Qt::Key_Down, "9223372032559808512" },
        { widest, "9223372036854775807", Qt::Key_Up, "9223372036854775807" },
        { widest, "-9223372036854775808", Qt::Key_Up, "-9223372032559808513" } };
    for (const auto& [limits, typed, key, written] : cases) {
        browser->modifyFeature(
            "Width", 640L, limits.minimum, limits.maximum, limits.increment, false, true);
        edit("Width", typed, key);
        press(Qt::Key_Return);
        EXPECT_EQ(journal.take(), Lines { std::string("Int Width ") + written }) << typed;
    }
}

TEST_F(EditingTest, ArrowsStepAFloatAsItsSliderAndWriteNothingBeforeItIsAccepted)
{
    browser->addDoubleFeature("Camera", "Gain", 1, 0, 1, 0, LEVEL_BEGINNER, SLIDER_LINEAR, false,
        true, SELECTOR_NONE, "");
    browser->setNumberOfSteps(100);
    struct Case {
        const char* name;
        FloatLimits limits;
        const char* typed;
        int steps;
        const char* written;
    };
    const FloatLimits fifty { 0, 50, 0 };
    const std::vector<Case> cases { { "Gain", fifty, "10", 1, "10.5" },
        { "Gain", fifty, "10", -2, "9" }, { "Gain", fifty, "10.3", 1, "11" },
        { "Gain", fifty, "49.5", 2, "50" }, { "Gain", fifty, "0.5", -2, "0" },
        { "Gain", fifty, "99", -1, "49.5" }, { "Gain", fifty, "-9", 1, "0.5" },
        { "Gain", fifty, "abc", 1, "0.5" }, { "Gain", { -50, 50, 0 }, "-50", 1, "-49" },
        { "Gain", { 3.3, 7.7, 0 }, "3.3", 1, "3.34" }, { "Gain", { 1, 51, 0.2 }, "1", 1, "1.6" },
        { "Gain", { 0, 12345678, 0 }, "0", 1, "120000" },
        { "Gain", { 0, 1e-4, 0 }, "0", 1, "0.000001" }, { "Gain", { 5, 5, 0 }, "6", 1, "6" },
        { "Gain", { 0.126, 10.126, 0 }, "0.2", -3, "0.126" },
        { "Gain", { 0, 8, 3 }, "7.84", 1, "8" }, { "ExposureTime", { 1, 100, 0 }, "1", 50, "10" },
        { "ExposureTime", { 1, 100, 0 }, "10", -50, "1" },
        { "ExposureTime", { 1, 100, 0 }, "50", 1, "52" },
        { "ExposureTime", { 0, 200, 0 }, "1", 1, "4" } };
    for (const auto& [name, limits, typed, steps, written] : cases) {
        browser->modifyFeature(
            name, 7.0, limits.minimum, limits.maximum, limits.increment, false, true);
        edit(name, typed, Qt::Key_Shift);
        for (int i = 0; i < std::abs(steps); ++i) {
            press(steps > 0 ? Qt::Key_Up : Qt::Key_Down);
        }
        EXPECT_TRUE(journal.take().empty());
        press(Qt::Key_Return);
        EXPECT_EQ(journal.take().size(), 1U);
        EXPECT_EQ(text(name), written)
            << limits.minimum << " to " << limits.maximum << " from " << typed;
    }
}

TEST_F(EditingTest, AFloatIsEditedWithAllItsDigits)
{
    for (const auto& [value, shown] :
        std::map<double, const char*> { { 0.1 + 0.2, "0.30000000000000004" }, { 0, "0" },
            { 1e-7, "1e-07" }, { 123456789012.25, "123456789012.25" }, { -2e15, "-2e+15" } }) {
        browser->modifyFeature("ExposureTime", value, 0.0, 1.0, 0.0, false, true);
        select("ExposureTime");
        press(Qt::Key_F2);
        EXPECT_EQ(QApplication::focusWidget()->property("text"), QVariant(shown));
        press(Qt::Key_Return);
    }
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(EditingTest, ARowWithoutAValueIsEditedFromNothing)
{
    browser->modifyFeature("Width", 1L, 0L, 9L, 1U, false, false);
    browser->modifyFeature("ExposureTime", 1.0, 0.0, 9.0, 0.0, false, false);
    for (const char* name : { "DeviceUserID", "GevCurrentIPAddress" }) {
        browser->modifyFeature(name, "1.2.3.4", CAM_TYPE_STRING, {}, false, false);
    }
    for (const char* name : { "Width", "ExposureTime", "DeviceUserID", "GevCurrentIPAddress" }) {
        select(name);
        press(Qt::Key_F2);
        EXPECT_EQ(QApplication::focusWidget()->property("text"), QVariant("")) << name;
        EXPECT_GT(
            2 * QApplication::focusWidget()->width(), tree()->visualRect(row(name, 1)).width())
            << "the field has the room";
        press(Qt::Key_Escape);
    }
    browser->modifyFeature("PixelFormat", "1", CAM_TYPE_ENUMERATION, { "A", "B" }, false, false);
    click("PixelFormat");
    ASSERT_NE(popup(), nullptr);
    EXPECT_EQ(tree()->findChild<QComboBox*>()->currentIndex(), -1);
    press(Qt::Key_Escape);
    EXPECT_TRUE(journal.take().empty());
    edit("Width", "1");
    EXPECT_EQ(journal.take(), Lines { "Int Width 1" }) << "nobody has seen that it is 1";
}

TEST_F(EditingTest, ClosingTheWindowTakesAnOpenEditBack)
{
    select("Width");
    press(Qt::Key_F2);
    type("7");
    browser->closeDialog();
    EXPECT_EQ(journal.take(), Lines { "Close 600 700 3" });
    EXPECT_EQ(text("Width"), "640");
    browser->showDialog();
    EXPECT_FALSE(tree()->isPersistentEditorOpen(row("Width", 1)));
}

TEST_F(EditingTest, TheWheelChangesNothing)
{
    const auto turn = [this](const std::string& name) {
        const QPoint at = tree()->visualRect(row(name, 1)).center();
        QWidget* target = tree()->viewport()->childAt(at);
        target = target != nullptr ? target : tree()->viewport();
        QWheelEvent event(target->rect().center(), target->mapToGlobal(target->rect().center()), {},
            { 0, -240 }, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(target, &event);
    };
    for (const char* name : { "Width", "ExposureTime", "PixelFormat", "ReverseX" }) {
        turn(name);
    }
    select("ExposureTime");
    press(Qt::Key_F2);
    turn("ExposureTime");
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(EditingTest, AnUpdateDoesNotTakeTypedTextAway)
{
    select("Width");
    press(Qt::Key_F2);
    auto* field = tree()->findChild<QLineEdit*>();
    browser->modifyFeature("Width", 100L, 0L, 200L, 2U, false, true);
    EXPECT_EQ(field->text(), "100") << "untouched: follows the row";
    type("77");
    browser->modifyFeature("Width", 120L, 0L, 200L, 2U, false, true);
    EXPECT_EQ(field->text(), "77");
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "Int Width 77" });
    // A row that becomes read-only ends its edit.
    select("Width");
    press(Qt::Key_F2);
    type("5");
    browser->modifyFeature("Width", 120L, 0L, 200L, 2U, true, true);
    EXPECT_FALSE(isEditing());
    press(Qt::Key_F2);
    EXPECT_FALSE(isEditing());
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(EditingTest, ASliderWritesSparselyAndItsLastValueAlways)
{
    browser->GetWidget()->resize(1200, 700);
    browser->setNumberOfSteps(600); // six decades in 600 steps
    select("ExposureTime");
    press(Qt::Key_F2);
    auto* slider = tree()->findChild<QSlider*>();
    ASSERT_TRUE(slider != nullptr && slider->isVisible());
    EXPECT_EQ(slider->maximum(), 600);
    EXPECT_EQ(slider->value(), 370); // 100 * log10(5000)
    for (int position = 371; position <= 400; ++position) {
        slider->setValue(position);
    }
    QTest::qWait(120);
    EXPECT_LE(journal.lines.size(), 2U);
    EXPECT_EQ(journal.take().back(), "Double ExposureTime 10000");
    EXPECT_TRUE(isEditing());
    press(Qt::Key_Return);
    EXPECT_TRUE(journal.take().empty()) << "written already";
}

TEST_F(EditingTest, AListThatShrinksWhileOpenOffersOnlyWhatIsLeft)
{
    click("PixelFormat");
    ASSERT_NE(popup(), nullptr);
    setChoice("PixelFormat", "0", { "Only" });
    press(Qt::Key_End);
    press(Qt::Key_Return);
    QTest::qWait(0);
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(text("PixelFormat"), "Only");
}

TEST_F(EditingTest, TextsAreCountedInBytesAndNeverCut)
{
    edit("DeviceUserID", "\u00E4\u00E4\u00E4\u00E41", Qt::Key_Shift);
    EXPECT_EQ(child<QLabel>("byteCounter")->text(), "9/8");
    press(Qt::Key_Return);
    EXPECT_TRUE(isEditing());
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(message(), "The text has 9 bytes; the camera takes at most 8");
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "String DeviceUserID \u00E4\u00E4\u00E4\u00E4" });
}

} // namespace featurebrowser
