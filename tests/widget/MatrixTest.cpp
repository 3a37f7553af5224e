// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "ComfortTest.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTableWidget>

#include <stdexcept>

namespace featurebrowser {

namespace {

const QString dash(QChar(0x2014));

class MatrixTest : public ComfortTest {
protected:
    /// A camera whose gain is its selector's entry and a half.
    MatrixTest()
    {
        journal.answer = [this](const std::string& line) { answer(line); };
    }
    void answer(const std::string& line)
    {
        if (line.rfind("Enum GainSelector", 0) == 0) {
            entry = line.back() == '0' ? 0 : 1;
            setChoice("GainSelector", entry == 0 ? "0" : "1", { "Red", "Green" });
            setFloat("Gain", gains.at(entry), 0, 48);
            return;
        }
        confirm(line);
        if (line.rfind("Double Gain", 0) == 0) {
            gains.at(entry) = std::stod(line.substr(12));
        }
    }
    QDialog* dialog() const { return child<QDialog>("selectorMatrix"); }
    QTableWidget* table() const { return dialog()->findChild<QTableWidget*>(); }
    QPushButton* again() const
    {
        const auto* buttons = dialog()->findChild<QDialogButtonBox*>();
        return qobject_cast<QPushButton*>(buttons->buttons().last());
    }
    bool hasFilled() const
    {
        const auto* progress = dialog()->findChild<QProgressBar*>();
        for (int turn = 0; turn < 10000 && !progress->isHidden(); ++turn) {
            QApplication::processEvents();
        }
        return progress->isHidden();
    }
    void open(const std::string& name) const
    {
        choose(name, showEntries);
        ASSERT_NE(dialog(), nullptr);
        EXPECT_TRUE(hasFilled() && waitForActive(dialog()));
    }
    void readAgain() const
    {
        QTest::mouseClick(again(), Qt::LeftButton);
        EXPECT_TRUE(hasFilled());
    }
    QString text(int line, int column) const
    {
        const auto* item = table()->item(line, column);
        return item != nullptr ? item->text() : QString();
    }
    /// Of the first feature at all entries.
    QString values() const
    {
        QStringList all;
        for (int column = 0; column < table()->columnCount(); ++column) {
            all.append(text(0, column));
        }
        return all.join(' ');
    }
    QString words() const
    {
        const auto* label = dialog()->findChild<QLabel*>("matrixMessage");
        return label->isVisible() ? label->text() : QString();
    }
    bool isEditable(int line, int column) const
    {
        return (table()->item(line, column)->flags() & Qt::ItemIsEditable) != 0;
    }
    void enter(int line, int column, const char* typed, Qt::Key key = Qt::Key_Return) const
    {
        table()->setFocus();
        table()->setCurrentCell(line, column);
        QTest::keyClicks(table(), QString(typed[0]));
        QTest::keyClicks(QApplication::focusWidget(), typed + 1);
        press(key);
    }

    std::array<double, 2> gains { 1.5, 2.5 };
    std::size_t entry = 1;
};

} // namespace

TEST_F(MatrixTest, ReadsEveryEntryAndSetsTheSelectorBack)
{
    choose("PixelFormat", showEntries);
    EXPECT_EQ(dialog(), nullptr) << "selects nothing";
    setChoice("GainSelector", "0", { "Red", "Green" });
    browser->setItemDescription("Gain", "Gain [dB]");
    choose("Gain", "Pin to the top");
    open("GainSelector");
    EXPECT_EQ(child<QWidget>("graph")->toolTip(), "") << "these are of several entries";
    EXPECT_TRUE(dialog()->isVisible() && !dialog()->isModal());
    EXPECT_EQ(dialog()->windowTitle(), "All entries of GainSelector");
    EXPECT_EQ(table()->accessibleName(), dialog()->windowTitle());
    EXPECT_EQ(table()->verticalHeaderItem(0)->text(), "Gain [dB]");
    EXPECT_EQ(table()->horizontalHeaderItem(1)->text(), "Green");
    EXPECT_EQ(values(), "1.5 2.5");
    EXPECT_EQ(journal.take(),
        (Lines {
            "Enum GainSelector Red 0", "Enum GainSelector Green 1", "Enum GainSelector Red 0" }));
    EXPECT_FALSE(child<QWidget>("changeText")->isVisible()) << "the user has changed nothing";
    press(Qt::Key_Return);
    EXPECT_TRUE(dialog()->isVisible()) << "Return only ends edits";
    choose("GainSelector", showEntries);
    EXPECT_EQ(window()->findChildren<QDialog*>("selectorMatrix").size(), 1);
    press(Qt::Key_Escape);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(dialog(), nullptr);
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(MatrixTest, TakesEveryKindOfSelectorThatCanBeCounted)
{
    browser->addEnumFeature("Analog", "Switch", 1, { "False", "True" }, LEVEL_BEGINNER, false, true,
        true, SELECTOR_SELECTOR, "");
    addInteger("Analog", "Count", 3, LEVEL_BEGINNER, "");
    addInteger("Analog", "Chosen", 5, LEVEL_BEGINNER, "Switch, Count");
    browser->addCommandFeature(
        "Analog", "Once", "Once", LEVEL_BEGINNER, false, true, SELECTOR_SELECTED, "Count");
    tree()->expandAll();
    for (const auto& [maximum, increment, entries] :
        { std::tuple(255L, 1U, 256), { 256L, 1U, 0 }, { 0x7fffffffffffffffL, 0x80000000U, 0 },
            { 512L, 2U, 0 }, { 511L, 2U, 256 }, { 7L, 0U, 8 }, { -1L, 1U, 0 } }) {
        setInteger("Count", 0, 0, maximum, increment);
        EXPECT_EQ(choose("Count").contains(showEntries), entries > 0) << maximum;
        if (entries > 0) {
            open("Count");
            EXPECT_EQ(table()->columnCount(), entries);
            EXPECT_EQ(table()->rowCount(), 1) << "commands have no value";
            EXPECT_EQ(journal.take().size(), static_cast<std::size_t>(entries) + 1);
            delete dialog();
        }
    }
    setInteger("Count", 4, 0, 9, 3);
    open("Switch");
    EXPECT_EQ(dialog()->windowTitle(), "All entries of Switch at Count = 4");
    EXPECT_EQ(journal.take(), (Lines { "Bool Switch 0", "Bool Switch 1" })) << "stands there again";
    setInteger("Count", 3, 0, 9, 3);
    enter(0, 0, "7");
    EXPECT_EQ(words(), "Nothing was changed: this was read at Count = 4");
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(MatrixTest, WhatIsEnteredIsWrittenAtItsEntry)
{
    browser->setItemDescription("Gain", "Gain [dB]");
    browser->addEnumFeature("Analog", "Auto", 0, { "Off", "On" }, LEVEL_BEGINNER, false, true, true,
        SELECTOR_SELECTED, "GainSelector");
    open("GainSelector");
    journal.take();
    enter(0, 0, "7");
    EXPECT_EQ(journal.take(),
        (Lines { "Enum GainSelector Red 0", "Double Gain 7", "Enum GainSelector Green 1" }));
    EXPECT_EQ(values(), "7 2.5");
    EXPECT_EQ(words(), "");
    EXPECT_TRUE(table()->hasFocus());
    enter(0, 1, "8");
    EXPECT_EQ(journal.take(), Lines { "Double Gain 8" }) << "stands there";
    enter(0, 0, "7"); // nothing new
    enter(0, 0, "9", Qt::Key_Escape);
    EXPECT_EQ(journal.take(), (Lines { "Enum GainSelector Red 0", "Enum GainSelector Green 1" }));
    enter(0, 0, "x");
    EXPECT_EQ(words(), QString::fromUtf8("\u201Cx\u201D is not a number"));
    press(Qt::Key_Escape);
    journal.answer = [this](const std::string& line) {
        answer(line);
        if (line == "Double Gain 3") {
            setFloat("Gain", 2.75, 0, 48);
        } else if (line == "Double Gain 99") {
            browser->setDefaultValue("Gain", 2.75, "Out of range");
        }
    };
    enter(0, 0, "3");
    EXPECT_EQ(values(), "2.75 8");
    EXPECT_EQ(words(), QString::fromUtf8("The camera has put \u201C3\u201D onto \u201C2.75\u201D"));
    EXPECT_EQ(table()->item(0, 0)->toolTip(), words());
    EXPECT_EQ(message(), "") << "the tree shows another entry";
    enter(0, 0, "99");
    EXPECT_EQ(words(), "Out of range\nEntered: 99");
    journal.take();
    const QPoint cell = table()->visualItemRect(table()->item(1, 0)).center();
    QTest::mouseClick(table()->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(table()->viewport(), Qt::LeftButton, {}, cell);
    ASSERT_NE(popup(), nullptr) << "a list";
    QTest::keyClicks(QApplication::focusWidget(), "On");
    press(Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return journal.lines.size() == 3; }));
    EXPECT_EQ(journal.take().at(1), "Bool Auto 1");
    EXPECT_EQ(text(1, 0), "On");
    enter(0, 1, "5", Qt::Key_Shift); // not ended
    dialog()->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(journal.take().empty());
    // A step of its own, at its entry.
    window()->activateWindow();
    EXPECT_TRUE(waitForActive(window()));
    QTest::keySequence(tree(), QKeySequence::Undo);
    EXPECT_EQ(message(), "Nothing was changed: this step was made at GainSelector = Red");
}

TEST_F(MatrixTest, WhatCannotBeSetIsDimAndSaysWhy)
{
    addInteger("Analog", "Fixed", 4, LEVEL_BEGINNER, "GainSelector");
    addInteger("Analog", "Away", 4, LEVEL_BEGINNER, "GainSelector");
    setInteger("Fixed", 4, 0, 9, 1, true);
    setStates({ { "Away", FEATURE_NOT_AVAILABLE } });
    journal.answer = [this](const std::string& line) {
        line == "Enum GainSelector Red 0" ? throw std::runtime_error("refused") : answer(line);
    };
    open("GainSelector");
    EXPECT_EQ(values(), dash + " 2.5");
    EXPECT_FALSE(isEditable(0, 0));
    EXPECT_EQ(table()->item(0, 0)->toolTip(), "Internal error: refused<br>Entered: Red");
    EXPECT_TRUE(isEditable(0, 1));
    const QColor dim = table()->item(0, 0)->foreground().color();
    for (const auto& [line, shown, why] :
        { std::tuple(1, QString("4"), "Read-only"), { 2, dash, "Not available" } }) {
        EXPECT_EQ(text(line, 1), shown);
        EXPECT_FALSE(isEditable(line, 1));
        EXPECT_EQ(table()->item(line, 1)->foreground().color(), dim);
        EXPECT_TRUE(table()->item(line, 1)->toolTip().contains(why)) << why;
        enter(line, 1, "5");
    }
    EXPECT_EQ(journal.take().size(), 2U) << "only what was read";
    EXPECT_EQ(TreeUser::text("GainSelector"), "Green");
    setStates({ { "Gain", FEATURE_READ_FAILED } });
    readAgain();
    EXPECT_EQ(values(), dash + ' ' + dash);
}

TEST_F(MatrixTest, CancelAndClosingSetTheSelectorBack)
{
    for (const bool closes : { false, true }) {
        journal.take();
        choose("GainSelector", showEntries);
        EXPECT_TRUE(QTest::qWaitFor([this] { return !journal.lines.empty(); }));
        auto* cancel = dialog()->findChild<QPushButton*>("matrixCancel");
        EXPECT_TRUE(cancel->isVisible() && !again()->isEnabled());
        EXPECT_EQ(journal.lines.size(), 1U) << "one a turn";
        closes ? void(dialog()->close()) : cancel->click();
        EXPECT_EQ(
            journal.take(), (Lines { "Enum GainSelector Red 0", "Enum GainSelector Green 1" }));
        if (!closes) {
            EXPECT_EQ(words(), "Cancelled: not all entries were read");
            EXPECT_EQ(values(), "1.5 ");
            dialog()->close();
        }
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(dialog(), nullptr);
    }
    choose("GainSelector", showEntries);
    addSelector("", "Other", { "A", "B" });
    addInteger("", "X", 1, LEVEL_BEGINNER, "Other");
    choose("Other", showEntries);
    const auto dialogs = window()->findChildren<QDialog*>("selectorMatrix");
    EXPECT_EQ(dialogs.last()->findChild<QLabel*>("matrixMessage")->text(),
        "Another selector is being read: try again afterwards");
    EXPECT_TRUE(QTest::qWaitFor([this] { return !journal.lines.empty(); }));
    browser->closeDialog();
    EXPECT_EQ(TreeUser::text("GainSelector"), "Green");
}

TEST_F(MatrixTest, SurvivesWhatTheApplicationDoesMeanwhile)
{
    open("GainSelector");
    int events = 0;
    journal.answer = [&](const std::string& line) {
        ++events;
        again()->click();
        dialog()->findChild<QPushButton*>("matrixCancel")->click();
        answer(line);
    };
    readAgain();
    EXPECT_EQ(events, 2) << "cancelled in the first, set back";
    EXPECT_EQ(values(), " ") << "what was read before is old";
    journal.answer = [this](const std::string&) {
        browser->clearFeatureItems();
        addSelector("", "GainSelector", { "Red", "Green" });
    };
    readAgain();
    EXPECT_EQ(values(), " ");
    EXPECT_TRUE(words().contains("has not")) << "it could not be set back";
    browser->clearFeatureItems();
    EXPECT_EQ(values(), " ") << "of another camera, perhaps";
    EXPECT_EQ(words(), "The features were loaded anew: read again");
    readAgain();
    addSelector("", "GainSelector", { "Red", "Green" }, -1);
    addInteger("", "Gain", 1, LEVEL_BEGINNER, "GainSelector");
    journal.answer = nullptr;
    journal.take();
    readAgain();
    EXPECT_EQ(journal.take().size(), 2U) << "no entry to set back to";
    delete dialog();
    // The user wants the selector elsewhere.
    addSelector("", "Three", { "A", "B", "C" });
    addInteger("", "X", 1, LEVEL_BEGINNER, "Three");
    journal.answer = [this](const std::string& line) { confirm(line); };
    choose("Three", showEntries);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !journal.lines.empty(); }));
    setChoice("Three", "2", { "A", "B", "C" });
    EXPECT_TRUE(hasFilled());
    EXPECT_EQ(words(), "Stopped: Three was changed meanwhile");
    EXPECT_EQ(TreeUser::text("Three"), "C");
    delete dialog();
    for (const std::size_t last : { 1U, 3U }) {
        journal.take();
        journal.answer = [this, last](const std::string& line) {
            confirm(line);
            if (journal.lines.size() == last) {
                delete dialog();
            }
        };
        choose("Three", showEntries);
        EXPECT_TRUE(QTest::qWaitFor([this] { return dialog() == nullptr; }));
        EXPECT_EQ(journal.lines.size(), last);
    }
}

} // namespace featurebrowser
