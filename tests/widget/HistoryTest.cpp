// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "ComfortTest.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSignalSpy>
#include <QSlider>
#include <QTableView>
#include <QToolTip>

#include <stdexcept>

namespace featurebrowser {

namespace {

class HistoryTest : public ComfortTest {
protected:
    void undo() const { QTest::keySequence(QApplication::focusWidget(), QKeySequence::Undo); }
    void redo() const { QTest::keySequence(QApplication::focusWidget(), QKeySequence::Redo); }
    /// What the menu says of the next steps.
    std::string steps() const
    {
        return choose("Width").section(", -, ", 2, 2).section(", ", 0, 1).toStdString();
    }
    QTableView* list() const { return child<QDialog>("changeList")->findChild<QTableView*>(); }
    QString cell(int line, int column) const
    {
        return list()->model()->index(line, column).data().toString();
    }
    std::string line(int number) const
    {
        return (
            cell(number, 1) + '|' + cell(number, 2) + '|' + cell(number, 3) + '|' + cell(number, 4))
            .toStdString();
    }
};

} // namespace

TEST_F(HistoryTest, StepsGoBackAndOnThroughEveryKind)
{
    browser->setItemDescription("Width", "Width (in pixels)");
    EXPECT_EQ(steps(), "Undo, Redo");
    edit("Width", "512");
    edit("ExposureTime", "0.30000000000000004");
    edit("DeviceUserID", "a & b");
    edit("GevCurrentIPAddress", "10.0.0.2");
    open("ReverseX");
    TreeUser::choose("PixelFormat", "RGB8");
    open("AcquisitionStart"); // nothing to undo
    edit("Width", "512"); // nothing has changed
    journal.take();
    const Lines back { "Enum PixelFormat Mono8 0", "Bool ReverseX 0",
        "IP GevCurrentIPAddress 10.0.0.1", "String DeviceUserID left", "Double ExposureTime 5000",
        "Int Width 640" };
    for (const std::string& event : back) {
        tree()->collapseAll();
        undo();
        EXPECT_EQ(journal.take(), Lines { event });
        const std::string name = QString::fromStdString(event).section(' ', 1, 1).toStdString();
        EXPECT_EQ(tree()->currentIndex(), row(name, 1));
        EXPECT_TRUE(isShown(name));
    }
    undo();
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(steps(), "Undo, Redo Width: 640 \u2192 512 px");
    for (int i = 0; i < 3; ++i) {
        redo();
    }
    EXPECT_EQ(journal.take(),
        (Lines { "Int Width 512", "Double ExposureTime 0.30000000000000004",
            "String DeviceUserID a & b" }));
    EXPECT_EQ(steps(),
        "Undo DeviceUserID: left \u2192 a  b, Redo GevCurrentIPAddress: 10.0.0.1 \u2192 10.0.0.2");
    choose("Width", "Undo DeviceUserID: left \u2192 a  b");
    EXPECT_EQ(journal.take(), Lines { "String DeviceUserID left" });
    edit("Width", "700");
    EXPECT_EQ(steps(), "Undo Width: 512 \u2192 700 px, Redo") << "a new way";
}

TEST_F(HistoryTest, WhatIsNotTakenStaysAStep)
{
    edit("Width", "512");
    journal.answer = [](const std::string&) { throw std::runtime_error("no"); };
    undo();
    EXPECT_EQ(message(), "Internal error: no\nEntered: 640");
    journal.answer = [this](const std::string& event) { confirm(event); };
    setInteger("Width", 512, 16, 4096, 16, true);
    journal.take();
    undo();
    EXPECT_EQ(message(), "Nothing was changed: this feature is read-only now");
    setInteger("Width", 512);
    TreeUser::choose("PixelFormat", "RGB8");
    setChoice("PixelFormat", "0", { "RGB8" });
    journal.take();
    undo();
    EXPECT_EQ(message(), "Nothing was changed: \u201CMono8\u201D is not available now");
    setChoice("PixelFormat", "0", { "RGB8", "Mono8" });
    undo();
    EXPECT_EQ(journal.take(), Lines { "Enum PixelFormat Mono8 1" }) << "by its name";
    find("Gain");
    tree()->setFocus();
    undo();
    EXPECT_EQ(
        QToolTip::text(), "The filter or the visibility level hides Width: nothing was changed");
    EXPECT_TRUE(journal.take().empty());
    find("");
    tree()->setFocus();
    undo();
    EXPECT_EQ(journal.take(), Lines { "Int Width 640" });
}

TEST_F(HistoryTest, AValueThatWasPutElsewhereIsAStepToo)
{
    journal.answer = [this](const std::string&) {
        browser->setDefaultValue("Width", 776L, "Value adjusted to 776");
    };
    edit("Width", "777");
    EXPECT_EQ(steps(), "Undo Width: 640 \u2192 776, Redo");
}

TEST_F(HistoryTest, AStepKnowsWhereItsSelectorsStood)
{
    edit("Gain", "3");
    setChoice("GainSelector", "0", { "Red", "Green" });
    journal.take();
    undo();
    EXPECT_TRUE(journal.take().empty());
    EXPECT_EQ(message(), "Nothing was changed: this step was made at GainSelector = Green");
    EXPECT_EQ(tree()->currentIndex(), row("Gain", 1));
    setChoice("GainSelector", "1", { "Red", "Green" });
    undo();
    EXPECT_EQ(journal.take(), Lines { "Double Gain 2.5" });
}

TEST_F(HistoryTest, ADragIsOneStep)
{
    tree()->setColumnWidth(0, 150);
    window()->resize(900, 700);
    open("Gain");
    auto* slider = tree()->viewport()->findChild<QSlider*>();
    for (const int position : { 300, 400, 500 }) {
        slider->setValue(position);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !journal.take().empty(); }));
    }
    press(Qt::Key_Return);
    const std::string at = text("Gain");
    EXPECT_EQ(steps(), "Undo Gain: 2.5 \u2192 " + at + ", Redo");
    undo();
    EXPECT_EQ(journal.take(), Lines { "Double Gain 2.5" });
    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(list()->model()->rowCount(), 2);
    EXPECT_EQ(line(0), "Gain (GainSelector = Green)|2.5|" + at + "|Taken");
}

TEST_F(HistoryTest, StepsFindTheirFeaturesInANewTree)
{
    edit("Width", "512");
    edit("ExposureTime", "7");
    edit("DeviceUserID", "x");
    browser->clearFeatureItems();
    addInteger("", "Width", 5);
    addInteger("", "ExposureTime", 5);
    journal.take();
    for (const char* gone : { "DeviceUserID", "ExposureTime" }) {
        undo();
        EXPECT_EQ(
            QToolTip::text(), QString("%1 is not there any more: its step is dropped").arg(gone));
        EXPECT_TRUE(journal.take().empty());
    }
    undo();
    EXPECT_EQ(journal.take(), Lines { "Int Width 640" });
}

TEST_F(HistoryTest, EditorsKeepTheirOwnUndo)
{
    edit("Width", "512");
    journal.take();
    open("DeviceUserID");
    type("x");
    undo();
    EXPECT_EQ(qobject_cast<QLineEdit*>(QApplication::focusWidget())->text(), "left");
    undo();
    press(Qt::Key_Escape);
    open("PixelFormat");
    EXPECT_NE(popup(), nullptr);
    undo();
    press(Qt::Key_Escape);
    find("Wid");
    undo();
    EXPECT_EQ(text("Width"), "512");
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(HistoryTest, TheListTellsFiltersAndCopies)
{
    browser->setItemDescription("Width", "Width (in pixels)");
    journal.answer = [this](const std::string& event) {
        if (event == "Int Width 5000") {
            browser->setDefaultValue("Width", 640L, "Out\tof range");
        } else if (event == "Int Width 500") {
            setInteger("Width", 496);
        } else if (event.find("Exec") == std::string::npos && event != "Double Gain 3") {
            confirm(event);
        }
    };
    edit("Width", "5000");
    edit("Width", "500");
    choose("Gain", QString::fromUtf8("Changes\u2026"));
    auto* window = child<QDialog>("changeList");
    EXPECT_TRUE(window->isVisible() && !window->isModal());
    EXPECT_EQ(window->windowTitle(), "Changes of this session");
    edit("Gain", "3");
    open("AcquisitionStart");
    undo();
    const Lines wanted { "Width|640 px|5000 px|Refused: Out of range",
        "Width|640 px|500 px|Adjusted to 496 px", "Gain (GainSelector = Green)|2.5|3|Not confirmed",
        "AcquisitionStart|||Command run", "Width|496 px|640 px|Taken" };
    for (std::size_t i = 0; i < wanted.size(); ++i) {
        EXPECT_EQ(line(static_cast<int>(i)), wanted[i]);
    }
    auto* log = browser->GetWidget()->property("changeLog").value<QAbstractItemModel*>();
    QStringList held;
    for (int i = 0; i < log->rowCount(); ++i) {
        for (const char* role : { "held", "isGood" }) {
            held.append(log->index(i, 0).data(log->roleNames().key(role)).toString());
        }
    }
    EXPECT_EQ(held.join('|'), "640 px|false|496 px|true||false||true|640 px|true");
    EXPECT_TRUE(QTime::fromString(cell(0, 0), "HH:mm:ss").isValid());
    auto* copy = window->findChild<QPushButton*>("copyChanges");
    const auto copied = [] {
        return QString::fromStdString(clipboard())
            .replace(QRegularExpression(R"(\d\d:\d\d:\d\d)"), "T")
            .toStdString();
    };
    const std::string head = "Time\tFeature\tFrom\tTo\tResult\n";
    const std::string last = "T\tWidth\t496 px\t640 px\tTaken\n";
    list()->selectRow(4);
    EXPECT_EQ(copy->text(), "&Copy selection");
    window->activateWindow();
    EXPECT_TRUE(waitForActive(window));
    QTest::keySequence(list(), QKeySequence::Copy);
    EXPECT_EQ(copied(), head + last);
    list()->clearSelection();
    EXPECT_EQ(copy->text(), "&Copy all");
    QTest::keyClicks(window->findChild<QLineEdit*>("changeFilter"), "TAKEN");
    QTest::mouseClick(copy, Qt::LeftButton);
    EXPECT_EQ(copied(), head + last) << "what is found";
    window->findChild<QLineEdit*>("changeFilter")->clear();
    browser->GetWidget()->activateWindow();
    EXPECT_TRUE(waitForActive(browser->GetWidget()));
    const auto* scroll = list()->verticalScrollBar();
    for (const bool isAtEnd : { true, false }) {
        list()->verticalScrollBar()->setValue(isAtEnd ? scroll->maximum() : 0);
        for (int i = 0; i < 40; ++i) {
            edit("Width", i % 2 == 0 ? "160" : "320");
        }
        EXPECT_EQ(scroll->value() == scroll->maximum(), isAtEnd) << "it follows";
    }
    QTest::keyClick(window, Qt::Key_Escape);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(child<QDialog>("changeList"), nullptr);
    select("AcquisitionStart");
    for (int i = 0; i < 10000; ++i) {
        press(Qt::Key_F2);
    }
    press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(list()->model()->rowCount(), 10000);
    EXPECT_EQ(line(0), "AcquisitionStart|||Command run") << "the oldest are gone";
    this->window()->activateWindow();
    EXPECT_TRUE(waitForActive(this->window()));
    const QSignalSpy removed(list()->model(), &QAbstractItemModel::rowsRemoved);
    press(Qt::Key_F2);
    EXPECT_EQ(removed.count(), 1) << "while they are seen";
}

} // namespace featurebrowser
