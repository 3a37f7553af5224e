#include "WidgetTest.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>
#include <QWheelEvent>

namespace featurebrowser {

namespace {

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
}

TEST_F(EditingTest, BooleansAndCommandsActOnTheirBoxAndButton)
{
    for (const auto& act : std::vector<std::function<void()>> { [this] {
                                                                   click("ReverseX", 1, { 10, 0 });
                                                               },
             [] { press(Qt::Key_Space); } }) {
        act();
    }
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
    browser->modifyFeature("Width", 20L, 1L, 4096L, 16U, false, true);
    select("Width");
    press(Qt::Key_F2);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "Int Width 49" });
    edit("Width", "50", Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "Int Width 49" }) << "from between two points to the lower";
    const long least = std::numeric_limits<long>::min();
    browser->modifyFeature("Width", -1L, least, -(least + 1), 0xFFFFFFFFU, false, true);
    edit("Width", "9223372036854775807", Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take().size(), 1U);
    EXPECT_LE(text("Width"), "9223372036854775807");
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

TEST_F(EditingTest, ProgramUpdatesRaiseNothing)
{
    browser->modifyFeature("Width", 32L, 16L, 64L, 16U, false, true);
    browser->modifyFeature("ExposureTime", 2.0, 1.0, 3.0, 0.0, false, true);
    browser->modifyFeature("PixelFormat", "1", CAM_TYPE_ENUMERATION, { "A", "B" }, false, true);
    browser->setDefaultValue("Width", 48L, "no");
    std::map<std::string, FEATURE_STATE> states { { "Width", FEATURE_LOCKED } };
    browser->modifyFeatureStates(states);
    EXPECT_EQ(role("Width", "state"), QVariant(1));
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

TEST_F(EditingTest, ArrowsStepAFloatWithoutWriting)
{
    browser->setNumberOfSteps(600);
    select("ExposureTime");
    press(Qt::Key_F2);
    for (int i = 0; i < 30; ++i) {
        press(Qt::Key_Up);
    }
    EXPECT_TRUE(journal.take().empty());
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "Double ExposureTime 10000" });
}

TEST_F(EditingTest, AListThatShrinksWhileOpenOffersOnlyWhatIsLeft)
{
    click("PixelFormat");
    ASSERT_NE(popup(), nullptr);
    browser->modifyFeature("PixelFormat", "0", CAM_TYPE_ENUMERATION, { "Only" }, false, true);
    press(Qt::Key_End);
    press(Qt::Key_Return);
    QTest::qWait(0);
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(text("PixelFormat"), "Only");
}

TEST_F(EditingTest, TextsAreCountedInBytesAndNeverCut)
{
    edit("DeviceUserID", "\u00E4\u00E4\u00E4\u00E41");
    EXPECT_EQ(child<QLabel>("byteCounter")->text(), "9/8");
    EXPECT_TRUE(isEditing());
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(message(), "The text has 9 bytes; the camera takes at most 8");
    press(Qt::Key_Backspace);
    press(Qt::Key_Return);
    EXPECT_EQ(journal.take(), Lines { "String DeviceUserID \u00E4\u00E4\u00E4\u00E4" });
}

} // namespace featurebrowser
