// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "ComfortTest.h"

#include <QAbstractButton>
#include <QImage>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>

namespace featurebrowser {

namespace {

using namespace std::chrono_literals;

class PinTest : public ComfortTest {
protected:
    QScrollArea* strip() const { return child<QScrollArea>("pinStrip"); }
    void pin(const QByteArrayList& names) const
    {
        window()->setProperty("pinnedFeatures", QVariant::fromValue(names));
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
    }
    /// In their order on the screen.
    QVector<QWidget*> lines() const
    {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
        QMap<int, QWidget*> found;
        for (QWidget* graph : strip()->findChildren<QWidget*>("graph")) {
            found[graph->parentWidget()->y()] = graph->parentWidget();
        }
        return found.values().toVector();
    }
    std::string texts() const
    {
        std::string words;
        const auto all = lines();
        for (const QWidget* line : all) {
            words += line->accessibleName().toStdString() + "; ";
        }
        return words;
    }
    QWidget* graph(int position) const { return lines()[position]->findChild<QWidget*>("graph"); }
};

} // namespace

TEST_F(PinTest, PinsFollowTheirRowsAndSurviveANewTree)
{
    QSignalSpy changed(window(), SIGNAL(pinnedFeaturesChanged()));
    EXPECT_FALSE(strip()->isVisible());
    choose("Gain", "Pin to the top");
    choose("Width", "Pin to the top");
    EXPECT_EQ(changed.count(), 2);
    EXPECT_TRUE(strip()->isVisible());
    EXPECT_EQ(texts(), "Gain, 2.5; Width, 640; ");
    EXPECT_EQ(window()->property("pinnedFeatures").value<QByteArrayList>(),
        (QByteArrayList { "Gain", "Width" }));
    browser->clearFeatureItems();
    addInteger("", "Width", 7);
    EXPECT_EQ(texts(), "Gain, \u2014; Width, 7; ") << "nobody has confirmed the old value";
    EXPECT_EQ(lines()[0]->toolTip(), "This camera has no such feature");
    browser->setItemDescription("Width", "Width (in pixels)");
    EXPECT_EQ(texts(), "Gain, \u2014; Width, 7 px; ");
    choose("Width", "Unpin");
    EXPECT_EQ(texts(), "Gain, \u2014; ");
    pin({ "Width", "Gain", "Width" });
    EXPECT_EQ(texts(), "Gain, \u2014; Width, 7 px; ");
    EXPECT_EQ(changed.count(), 4);
    auto* unpin = strip()->widget()->findChild<QAbstractButton*>();
    EXPECT_EQ(unpin->toolTip(), "Unpin");
    EXPECT_EQ(unpin->accessibleName(), "Unpin Gain");
    QTest::mouseClick(unpin, Qt::LeftButton);
    EXPECT_EQ(window()->property("favourites").value<QByteArrayList>(), QByteArrayList { "Width" });
    EXPECT_LT(strip()->geometry().bottom(), tree()->y());
    pin({});
    EXPECT_FALSE(strip()->isVisible());
}

TEST_F(PinTest, AThirdOfTheWindowAtMostThenItScrolls)
{
    QByteArrayList names;
    for (int i = 0; i < 24; ++i) {
        names.append("Watched" + QByteArray::number(i));
    }
    pin(names);
    EXPECT_EQ(strip()->height(), window()->height() / 3);
    auto* scroll = strip()->verticalScrollBar();
    EXPECT_TRUE(QTest::qWaitFor([&] { return scroll->maximum() > 0; }));
    EXPECT_FALSE(strip()->horizontalScrollBar()->isVisible());
    lines()[0]->setFocus();
    for (int i = 0; i < 30; ++i) {
        press(Qt::Key_Down);
    }
    EXPECT_TRUE(lines()[23]->hasFocus());
    EXPECT_EQ(scroll->value(), scroll->maximum() - 2) << "the margin below stays";
    window()->resize(600, 900);
    QApplication::processEvents();
    EXPECT_EQ(strip()->height(), 300);
    pin({ "Watched3" });
    EXPECT_EQ(strip()->height(), lines()[0]->height() + 4);
}

TEST_F(PinTest, LeadsToItsRowByMouseAndKeys)
{
    pin({ "Gain", "Width", "Nowhere" });
    tree()->collapseAll();
    const auto all = lines();
    QTest::mouseClick(all[0], Qt::LeftButton, {}, { tree()->columnWidth(0) + 8, 8 });
    EXPECT_EQ(tree()->currentIndex(), row("Gain", 1));
    EXPECT_TRUE(isShown("Gain") && tree()->hasFocus());
    press(Qt::Key_Backtab);
    EXPECT_TRUE(all[0]->hasFocus());
    press(Qt::Key_Down);
    EXPECT_TRUE(all[1]->hasFocus());
    press(Qt::Key_Return);
    EXPECT_EQ(tree()->currentIndex(), row("Width", 1));
    find("Gain");
    for (const auto& [position, words] :
        { std::pair(1, "The filter or the visibility level hides this feature in the tree"),
            { 2, "This camera has no such feature" } }) {
        QTest::mouseClick(all[position], Qt::LeftButton, {}, { 8, 8 });
        EXPECT_EQ(QToolTip::text(), words);
        EXPECT_FALSE(tree()->currentIndex().isValid());
    }
    all[1]->setFocus();
    press(Qt::Key_Delete);
    EXPECT_EQ(texts(), "Gain, 2.5; Nowhere, \u2014; ");
    EXPECT_TRUE(lines()[1]->hasFocus());
    press(Qt::Key_Delete);
    press(Qt::Key_Delete);
    EXPECT_TRUE(tree()->hasFocus());
}

TEST_F(PinTest, ValuesStandWhereTheirTimeIs)
{
    heldTime.emplace();
    browser->setItemDescription("Gain", "Gain [dB]");
    pin({ "Gain", "PixelFormat" });
    const auto come = [this](double value, std::chrono::seconds after) {
        *heldTime += after;
        setFloat("Gain", value, 0, 48);
        setChoice("PixelFormat", "1", { "A", "B" });
    };
    EXPECT_EQ(graph(0)->toolTip(), "") << "one value";
    come(8, 1s);
    EXPECT_EQ(graph(0)->toolTip(), "Last 1 s: from 2.5 dB to 8 dB");
    come(2.5, 9s);
    EXPECT_EQ(graph(0)->toolTip(), "Last 10 s: from 2.5 dB to 8 dB");
    EXPECT_EQ(graph(1)->toolTip(), "10 s") << "entries have no size";
    const QImage image = graph(0)->grab().toImage();
    const int top = image.height() / 3;
    int peak = 0;
    while (peak < image.width() / 2 && image.pixel(peak, top) == image.pixel(0, 0)) {
        ++peak;
    }
    EXPECT_LT(peak, image.width() / 6) << "the greatest value came early";
    for (const auto& [after, words] : { std::pair(170s, "3 min"), { 9h - 180s, "9 h" } }) {
        come(3, after);
        EXPECT_TRUE(graph(0)->toolTip().startsWith(QString("Last %1: ").arg(words))) << words;
    }
    for (int i = 0; i < 119; ++i) {
        come(5, 1s);
    }
    EXPECT_TRUE(graph(0)->toolTip().startsWith("Last 2 min: from 3 dB")) << "the last 120";
    browser->clearFeatureItems();
    browser->addDoubleFeature(
        "", "Gain", 1, 0, 48, 0, LEVEL_BEGINNER, SLIDER_LINEAR, false, true, SELECTOR_NONE, "");
    EXPECT_TRUE(graph(0)->toolTip().endsWith("from 1 to 5"));
}

} // namespace featurebrowser
