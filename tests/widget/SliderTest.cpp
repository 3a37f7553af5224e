// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "WidgetTest.h"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSlider>
#include <QStyle>

namespace featurebrowser {

namespace {

/// The slider beside the text of ExposureTime: six decades in 600 steps.
class SliderTest : public WidgetTest {
protected:
    SliderTest()
    {
        show();
        window()->resize(1200, 700);
        browser->setNumberOfSteps(600);
        start();
    }
    void start()
    {
        open("ExposureTime");
        text = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        slider = text->parentWidget()->findChild<QSlider*>();
        QApplication::processEvents();
        journal.take();
    }
    bool written(const char* line)
    {
        return QTest::qWaitFor(
            [&] { return !journal.lines.empty() && journal.lines.back() == line; });
    }
    QPoint handle() const
    {
        const int length = slider->style()->pixelMetric(QStyle::PM_SliderLength, nullptr, slider);
        const int left = QStyle::sliderPositionFromValue(
            slider->minimum(), slider->maximum(), slider->value(), slider->width() - length);
        return { left + length / 2, slider->height() / 2 };
    }
    void grab(int beside = 0) const
    {
        QTest::mousePress(slider, Qt::LeftButton, {}, handle() + QPoint(beside, 0));
    }
    void drag(int by) const
    {
        const QPoint at = handle() + QPoint(by, 0);
        QMouseEvent event(QEvent::MouseMove, at, slider->mapToGlobal(at), Qt::NoButton,
            Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(slider, &event);
    }
    void release() const { QTest::mouseRelease(slider, Qt::LeftButton, {}, handle()); }

    QLineEdit* text = nullptr;
    QSlider* slider = nullptr;
};

} // namespace

TEST_F(SliderTest, NeedsRoomAndARange)
{
    ASSERT_TRUE(slider->isVisible());
    EXPECT_EQ(slider->accessibleName(), "Slider of ExposureTime");
    EXPECT_GT(slider->x(), text->geometry().right());
    EXPECT_EQ(slider->pageStep(), 60);
    EXPECT_EQ(slider->value(), 370); // 100 * log10(5000)
    setFloat("ExposureTime", 10, 10, 10);
    EXPECT_FALSE(slider->isVisible()) << "nothing to slide over";
    setFloat("ExposureTime", 2, 1, 8, 3);
    slider->setValue(600);
    EXPECT_EQ(text->text(), "7") << "the last point of the increment";
    press(Qt::Key_Escape);
    window()->resize(300, 700);
    tree()->setColumnWidth(0, 200);
    start();
    EXPECT_FALSE(slider->isVisible()) << "no room";
}

TEST_F(SliderTest, WritesSparselyAndItsLastValueAlways)
{
    for (int position = 371; position <= 400; ++position) {
        slider->setValue(position);
    }
    EXPECT_TRUE(journal.lines.empty());
    EXPECT_TRUE(written("Double ExposureTime 10000"));
    EXPECT_EQ(journal.lines.size(), 1U);
    EXPECT_TRUE(isEditing());
    press(Qt::Key_PageUp);
    EXPECT_EQ(slider->value(), 430) << "follows the text";
    press(Qt::Key_PageDown);
    slider->setFocus();
    press(Qt::Key_Down); // in the pause after the first
    press(Qt::Key_Left);
    EXPECT_EQ(text->text(), "9800") << "the points of the text's steps";
    EXPECT_EQ(journal.take().size(), 1U);
    EXPECT_TRUE(written("Double ExposureTime 9800"));
    journal.take();
    grab();
    setFloat("ExposureTime", 77);
    EXPECT_EQ(text->text(), "9800") << "the slider is in the user's hand";
    release();
    setFloat("ExposureTime", 10, 1, 100);
    EXPECT_EQ(text->text(), "10");
    EXPECT_EQ(slider->value(), 300);
    text->setFocus();
    press(Qt::Key_Return);
    EXPECT_TRUE(journal.take().empty()) << "written already";
}

TEST_F(SliderTest, EscapeTakesBackADragThatIsStillHeld)
{
    for (const auto& [beside, isWritten] : { std::pair(0, true), { 0, false }, { 90, false } }) {
        setFloat("ExposureTime", 4000);
        grab(beside);
        setFloat("ExposureTime", 5000); // by itself: no write to take back
        drag(40);
        EXPECT_NE(slider->value(), 370);
        EXPECT_TRUE(!isWritten || QTest::qWaitFor([this] { return !journal.lines.empty(); }));
        drag(40);
        journal.take();
        press(Qt::Key_Escape);
        EXPECT_EQ(journal.take(), isWritten ? Lines { "Double ExposureTime 5000" } : Lines())
            << beside;
        drag(80);
        QTest::qWait(beside != 0 ? 700 : 100); // longer than the pause, and than repetitions
        release();
        QTest::qWait(100);
        EXPECT_EQ(slider->value(), 370);
        EXPECT_EQ(text->text(), "5000");
        EXPECT_TRUE(isEditing() && journal.take().empty());
    }
    press(Qt::Key_Escape);
    EXPECT_TRUE(!isEditing() && journal.take().empty());
}

TEST_F(SliderTest, EscapeWritesBackTheValueFromBeforeTheSlider)
{
    for (int i = 0; i < 2; ++i) {
        grab();
        drag(40);
        release();
        EXPECT_TRUE(QTest::qWaitFor([this] { return !journal.take().empty(); }));
    }
    slider->setValue(10); // is still to be written
    text->setFocus();
    text->selectAll();
    type("77");
    press(Qt::Key_Escape);
    EXPECT_FALSE(isEditing());
    QTest::qWait(100);
    EXPECT_EQ(journal.take(), Lines { "Double ExposureTime 5000" });
    start();
    slider->setValue(10);
    press(Qt::Key_Escape);
    QTest::qWait(100);
    EXPECT_TRUE(!isEditing() && journal.take().empty()) << "nothing was written";
}

} // namespace featurebrowser
