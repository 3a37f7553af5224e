#include "ComfortTest.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>

#include <stdexcept>

namespace featurebrowser {

using MatrixTest = ComfortTest;

TEST_F(MatrixTest, AMatrixReadsEveryEntryAndSetsTheSelectorBack)
{
    journal.answer = [this](const std::string& line) {
        const bool isRed = line == "Enum GainSelector Red 0";
        setChoice("GainSelector", isRed ? "0" : "1", { "Red", "Green" });
        setFloat("Gain", isRed ? 1.5 : 2.5, 0, 48);
    };
    choose("PixelFormat", showEntries);
    EXPECT_EQ(child<QTableWidget>(), nullptr) << "selects nothing";
    choose("GainSelector", showEntries);
    auto* table = child<QTableWidget>();
    ASSERT_TRUE(table != nullptr && table->rowCount() == 1 && table->columnCount() == 2);
    QDialog* dialog = child<QDialog>("selectorMatrix");
    EXPECT_TRUE(dialog->isVisible() && table->width() > 400 && table->height() > 100);
    EXPECT_EQ(dialog->windowTitle(), "All entries of GainSelector");
    EXPECT_EQ(table->accessibleName(), dialog->windowTitle());
    EXPECT_EQ(dialog->findChild<QLabel*>()->text(),
        "Read by switching GainSelector through its entries; it is set back afterwards.");
    EXPECT_EQ(table->verticalHeaderItem(0)->text(), "Gain");
    EXPECT_EQ(table->horizontalHeaderItem(1)->text(), "Green");
    const auto values
        = [table] { return table->item(0, 0)->text() + ' ' + table->item(0, 1)->text(); };
    EXPECT_EQ(values(), "1.5 2.5");
    EXPECT_EQ(journal.take(),
        (Lines {
            "Enum GainSelector Red 0", "Enum GainSelector Green 1", "Enum GainSelector Green 1" }));
    EXPECT_EQ(text("GainSelector"), "Green");
    EXPECT_EQ(table->editTriggers(), QAbstractItemView::NoEditTriggers);

    // An entry that the camera refuses, and a feature that could not be read, have no value.
    const QString dash(QChar(0x2014));
    browser->addCommandFeature("Analog", "Once", "Once", LEVEL_BEGINNER, false, true,
        SELECTOR_SELECTED, ", GainSelector ,");
    journal.answer = [this](const std::string& line) {
        if (line == "Enum GainSelector Red 0") {
            throw std::runtime_error("refused");
        }
        setChoice("GainSelector", "1", { "Red", "Green" });
    };
    auto* buttons = dialog->findChild<QDialogButtonBox*>();
    auto* again = qobject_cast<QPushButton*>(buttons->buttons().last());
    EXPECT_FALSE(again->autoDefault()) << "Return closes";
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(table->rowCount(), 1) << "commands have no value";
    EXPECT_EQ(values(), dash + " 2.5");
    setStates({ { "Gain", FEATURE_READ_FAILED } });
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(values(), dash + ' ' + dash);
    // While it reads, nothing begins it once more; the application may empty the tree or close it.
    int events = 0;
    journal.answer = [&](const std::string&) {
        ++events;
        again->click();
    };
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(events, 3);
    journal.answer = [this](const std::string&) {
        browser->clearFeatureItems();
        addSelector("", "GainSelector", { "Red", "Green" });
    };
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(values(), dash + ' ' + dash);
    browser->clearFeatureItems();
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(values(), dash + ' ' + dash);
    addSelector("", "GainSelector", { "Red", "Green" }, -1);
    addInteger("", "Gain", 1, LEVEL_BEGINNER, "GainSelector");
    journal.answer = nullptr;
    journal.take();
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(journal.take().size(), 2U) << "no entry to set back to";
    QTest::mouseClick(buttons->buttons().first(), Qt::LeftButton);
    EXPECT_FALSE(dialog->isVisible());
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(child<QDialog>("selectorMatrix"), nullptr);
    setChoice("GainSelector", "0", { "Red", "Green" });
    for (const std::size_t last : { 1U, 3U }) {
        journal.take();
        journal.answer = [this, last](const std::string& event) {
            confirm(event);
            if (journal.lines.size() == last) {
                delete child<QDialog>("selectorMatrix");
            }
        };
        choose("GainSelector", showEntries);
        EXPECT_EQ(journal.lines.size(), last);
    }
}

} // namespace featurebrowser
