#include "WidgetTest.h"

#include <QAbstractButton>
#include <QAction>
#include <QClipboard>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTranslator>
#include <QVBoxLayout>

#include <stdexcept>

namespace featurebrowser {

namespace {

class ComfortTest : public WidgetTest {
protected:
    ComfortTest()
    {
        browser->addSubCategory("Camera", "Analog", LEVEL_BEGINNER);
        browser->addEnumFeature("Analog", "GainSelector", 1, { "Red", "Green" }, LEVEL_BEGINNER,
            false, false, true, SELECTOR_SELECTOR, "");
        browser->addDoubleFeature("Analog", "Gain", 2.5, 0, 48, 0, LEVEL_BEGINNER, SLIDER_LINEAR,
            false, true, SELECTOR_SELECTED, "GainSelector");
        show();
    }
    void find(const char* what) const
    {
        QTest::keySequence(browser->GetWidget(), QKeySequence::Find);
        type(what);
    }
    void choose(const std::string& name, const QString& words) const
    {
        const QPoint at = tree()->visualRect(row(name)).center();
        Q_EMIT tree()->customContextMenuRequested(at);
        auto* menu = child<QMenu>("rowMenu");
        const auto actions = menu->actions();
        for (QAction* action : actions) {
            if (action->text().remove('&') == words) {
                action->trigger();
            }
        }
        menu->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
};

} // namespace

TEST_F(ComfortTest, FilterFindsNamesValuesEntriesAndDescriptions)
{
    browser->setItemDescription("Width", "Pixels of a line, ZEILENL\u00C4NGE");
    browser->setVisibility(LEVEL_BEGINNER);
    tree()->collapseAll();
    struct Case {
        const char* text;
        const char* found;
    };
    for (const Case& search :
        { Case { "xposuret", "ExposureTime" }, Case { "mono12", "PixelFormat" },
            Case { "LINE", "Width" }, Case { "5000", "ExposureTime" },
            Case { "green", "GainSelector" }, Case { " zeilenl\u00E4nge ", "Width" } }) {
        find(search.text);
        EXPECT_TRUE(isShown(search.found) && isShown("Camera")) << search.text;
        EXPECT_FALSE(isShown("ReverseX")) << search.text;
    }
    find("left"); // the value of an expert feature
    auto* reveal = child<QPushButton>("revealButton");
    ASSERT_TRUE(reveal->isVisible());
    EXPECT_EQ(reveal->text(), "Show 1 more");
    EXPECT_FALSE(isShown("DeviceUserID"));
    QTest::mouseClick(reveal, Qt::LeftButton);
    EXPECT_TRUE(isShown("DeviceUserID"));
    EXPECT_EQ(journal.take(), Lines { "Level 3" });
    press(Qt::Key_Return); // on into the tree
    EXPECT_EQ(tree()->currentIndex().row(), row("DeviceUserID").row());
    QTest::keySequence(browser->GetWidget(), QKeySequence::Find);
    press(Qt::Key_Escape);
    EXPECT_TRUE(isShown("Width")) << "the found row's category stays open";
    EXPECT_FALSE(isShown("Gain")) << "what was closed before is closed again";
}

TEST_F(ComfortTest, AFilterThatFindsNothingSaysSo)
{
    const auto ink = [this] {
        const QImage shown = tree()->viewport()->grab().toImage();
        QImage blank = shown;
        blank.fill(shown.pixel(0, shown.height() - 1));
        return shown != blank;
    };
    select("Width");
    find("xposuret");
    press(Qt::Key_Return);
    EXPECT_EQ(tree()->currentIndex(), row("ExposureTime", 1)) << "no hidden row is current";
    find("nowhere");
    press(Qt::Key_Return);
    EXPECT_FALSE(isShown("Width") || isShown("Camera"));
    EXPECT_TRUE(ink());
    browser->clearFeatureItems();
    QTest::keySequence(browser->GetWidget(), QKeySequence::Find);
    press(Qt::Key_Escape);
    EXPECT_FALSE(ink()) << "an empty tree has lost nothing";
}

TEST_F(ComfortTest, WhatFollowedAWriteIsListed)
{
    journal.answer = [this](const std::string&) {
        browser->modifyFeature("Width", 512L, 16L, 4096L, 16U, false, true);
        browser->modifyFeature("ExposureTime", 5000.0, 1.0, 9e5, 0.0, false, true);
        browser->modifyFeature("Gain", 2.5, 0.0, 48.0, 0.0, true, true);
        setText("DeviceUserID", "left");
    };
    const auto* strip = child<QLabel>("changeText");
    edit("Width", "512");
    EXPECT_TRUE(strip->text().startsWith("Width = 512: 2 feature"));
    EXPECT_EQ(strip->toolTip(), "ExposureTime<br>Gain");
    for (const char* next : { "ExposureTime", "Gain", "ExposureTime" }) {
        press(Qt::Key_F4);
        EXPECT_EQ(tree()->currentIndex().siblingAtColumn(0), row(next));
    }
    journal.answer = nullptr;
    edit("Width", "16");
    EXPECT_EQ(strip->text(), "Width was not accepted as entered");
    select("AcquisitionStart");
    press(Qt::Key_Return);
    EXPECT_EQ(strip->text(), "AcquisitionStart");
    EXPECT_FALSE(child<QWidget>("nextChangeButton")->isVisible());
}

TEST_F(ComfortTest, MenuCopiesAndCollapses)
{
    choose("Width", "Copy name");
    EXPECT_EQ(clipboard(), "Width");
    choose("Width", "Copy value");
    EXPECT_EQ(clipboard(), "640");
    choose("Width", "Copy name=value");
    EXPECT_EQ(clipboard(), "Width=640");
    choose("Gain", "Copy category as text");
    EXPECT_EQ(clipboard(), "[Analog]\nGainSelector=Green\nGain=2.5\n");
    browser->addCategory("Other", LEVEL_BEGINNER);
    addInteger("Other", "X");
    tree()->expandAll();
    choose("Gain", "Collapse others");
    EXPECT_TRUE(isShown("Gain") && !isShown("X"));
    choose("Gain", "Collapse all");
    EXPECT_FALSE(isShown("Width"));
    choose("Camera", "Expand all");
    EXPECT_TRUE(isShown("Gain") && isShown("X"));
    choose("Other", "Copy category as text");
    EXPECT_EQ(clipboard(), "[Other]\nX=1\n");
    QTest::mouseClick(child<QWidget>("collapseButton"), Qt::LeftButton);
    EXPECT_FALSE(isShown("X"));
    EXPECT_EQ(child<QWidget>("expandButton")->toolTip(), "Expand all categories");
    QTest::mouseClick(child<QWidget>("expandButton"), Qt::LeftButton);
    EXPECT_TRUE(isShown("X"));
}

TEST_F(ComfortTest, PinsFollowTheirRowsAndSurviveANewTree)
{
    QWidget* window = browser->GetWidget();
    QSignalSpy changed(window, SIGNAL(pinnedFeaturesChanged()));
    choose("Gain", "Pin to the top");
    choose("Width", "Pin to the top");
    EXPECT_EQ(changed.count(), 2);
    auto* strip = child<QWidget>("pinStrip");
    EXPECT_TRUE(strip->isVisible());
    const auto texts = [strip] {
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::string all;
        for (const QLabel* label : strip->findChildren<QLabel*>()) {
            all += label->text().toStdString() + " ";
        }
        return all;
    };
    EXPECT_EQ(texts(), "Gain 2.5 Width 640 ");
    EXPECT_EQ(window->property("pinnedFeatures").value<QByteArrayList>(),
        (QByteArrayList { "Gain", "Width" }));
    browser->clearFeatureItems();
    addInteger("", "Width", 7);
    EXPECT_EQ(texts(), "Gain 2.5 Width 7 ");
    browser->setItemDescription("Width", "Width (in pixels)");
    EXPECT_EQ(texts(), "Gain 2.5 Width 7 px ");
    choose("Width", "Unpin");
    EXPECT_EQ(texts(), "Gain 2.5 ");
    window->setProperty(
        "pinnedFeatures", QVariant::fromValue(QByteArrayList { "Width", "Gain", "Width" }));
    EXPECT_EQ(texts(), "Gain 2.5 Width 7 px ");
    QTest::mouseClick(strip->findChild<QAbstractButton*>(), Qt::LeftButton);
    EXPECT_EQ(window->property("favourites").value<QByteArrayList>().size(), 1);
    window->setProperty("pinnedFeatures", QVariant::fromValue(QByteArrayList()));
    EXPECT_FALSE(strip->isVisible());
}

TEST_F(ComfortTest, AMatrixReadsEveryEntryAndSetsTheSelectorBack)
{
    journal.answer = [this](const std::string& line) {
        const bool isRed = line == "Enum GainSelector Red 0";
        setChoice("GainSelector", isRed ? "0" : "1", { "Red", "Green" });
        browser->modifyFeature("Gain", isRed ? 1.5 : 2.5, 0.0, 48.0, 0.0, false, true);
    };
    for (const char* name : { "PixelFormat", "GainSelector" }) {
        EXPECT_EQ(child<QTableWidget>(), nullptr) << "selects nothing";
        choose(name, QString::fromUtf8("Show all entries of this selector\u2026"));
    }
    auto* table = child<QTableWidget>();
    ASSERT_TRUE(table != nullptr && table->rowCount() == 1 && table->columnCount() == 2);
    EXPECT_EQ(table->item(0, 0)->text(), "1.5");
    EXPECT_EQ(table->item(0, 1)->text(), "2.5");
    EXPECT_EQ(journal.take(),
        (Lines {
            "Enum GainSelector Red 0", "Enum GainSelector Green 1", "Enum GainSelector Green 1" }));
    EXPECT_EQ(text("GainSelector"), "Green");

    // An entry that the camera refuses, and a feature that could not be read, have no value.
    browser->addCommandFeature("Analog", "Once", "Once", LEVEL_BEGINNER, false, true,
        SELECTOR_SELECTED, ", GainSelector ,");
    journal.answer = [this](const std::string& line) {
        if (line == "Enum GainSelector Red 0") {
            throw std::runtime_error("refused");
        }
        setChoice("GainSelector", "1", { "Red", "Green" });
    };
    auto* again = table->window()->findChild<QDialogButtonBox*>()->buttons().last();
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(table->rowCount(), 1) << "commands have no value";
    EXPECT_EQ(table->item(0, 0)->text(), QString(QChar(0x2014)));
    EXPECT_EQ(table->item(0, 1)->text(), "2.5");
    setStates({ { "Gain", FEATURE_READ_FAILED } });
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(table->item(0, 1)->text(), QString(QChar(0x2014)));
    // The application may empty the tree or close the matrix while it reads.
    journal.answer = [this](const std::string&) { browser->clearFeatureItems(); };
    QTest::mouseClick(again, Qt::LeftButton);
    EXPECT_EQ(table->item(0, 1)->text(), QString(QChar(0x2014)));
    browser->addEnumFeature("", "GainSelector", 0, { "Red", "Green" }, LEVEL_BEGINNER, false, false,
        true, SELECTOR_SELECTOR, "");
    addInteger("", "Gain", 1, LEVEL_BEGINNER, "GainSelector");
    journal.answer = [this](const std::string&) { delete child<QDialog>("selectorMatrix"); };
    Q_EMIT again->clicked();
    EXPECT_EQ(child<QDialog>("selectorMatrix"), nullptr);
}

TEST_F(ComfortTest, TheTreeLooksTheSameWhenItIsBuiltAnew)
{
    const auto build = [this] {
        for (const char* category : { "A", "B", "C" }) {
            browser->addCategory(category, LEVEL_BEGINNER);
            for (int i = 0; i < 40; ++i) {
                addInteger(category, category + std::to_string(i), i);
            }
        }
    };
    browser->clearFeatureItems();
    build();
    tree()->collapse(row("B"));
    select("C20");
    browser->setItemDescription("C20", "about");
    QApplication::processEvents();
    const int scrolled = tree()->verticalScrollBar()->value();
    EXPECT_GT(scrolled, 0);
    journal.hearsSelection = true;
    journal.take();
    browser->clearFeatureItems();
    build();
    QApplication::processEvents();
    EXPECT_TRUE(tree()->isExpanded(row("A")) && !tree()->isExpanded(row("B")));
    EXPECT_EQ(tree()->currentIndex(), row("C20", 1));
    EXPECT_EQ(tree()->verticalScrollBar()->value(), scrolled);
    EXPECT_EQ(role("C20", "description"), QVariant("about"));
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(ComfortTest, StatesAndContextsAreSaidInWords)
{
    setStates({ { "Width", FEATURE_LOCKED }, { "Gain", FEATURE_NOT_AVAILABLE },
        { "ReverseX", FEATURE_READ_FAILED } });
    for (const auto& [name, words] :
        std::map<std::string, const char*> { { "Width", "Locked" }, { "Gain", "Not available" },
            { "ReverseX", "read" }, { "GevMACAddress", "Read-only" } }) {
        EXPECT_TRUE(row(name).data(Qt::ToolTipRole).toString().contains(words)) << name;
        EXPECT_TRUE(row(name).data(Qt::AccessibleDescriptionRole).toString().contains(words));
    }
    EXPECT_EQ(row("Width").data(Qt::AccessibleTextRole), QVariant("Width, 640"));
    EXPECT_EQ(row("Camera").data(Qt::AccessibleTextRole), QVariant("Camera"));
    EXPECT_EQ(row("Gain").data(Qt::AccessibleDescriptionRole),
        QVariant("Gain\nNot available in the camera's present configuration\n"
                 "Selected by GainSelector"));
    EXPECT_EQ(row("Width").data(Qt::DecorationRole), QVariant());
    addInteger("Camera", "<img src='x'>");
    EXPECT_FALSE(row("<img src='x'>").data(Qt::ToolTipRole).toString().contains("<img"));
}

TEST_F(ComfortTest, GermanIsComplete)
{
    QTranslator german;
    ASSERT_TRUE(german.load("widget_de", ":/zqfeaturebrowserwidget"));
    QCoreApplication::installTranslator(&german);
    browser = std::make_unique<CameraFeatureBrowser>(nullptr);
    addInteger("", "Width");
    show();
    EXPECT_EQ(tree()->model()->headerData(1, Qt::Horizontal), QVariant("Wert"));
    edit("Width", "1 ms");
    EXPECT_EQ(message(), "„1 ms“ ist keine Zahl; die Einheit dieser Einstellung ist nicht bekannt");
    press(Qt::Key_Escape);
    edit("Width", "2");
    EXPECT_EQ(message(), "Die Kamera hat diesen Wert nicht bestätigt");
}

TEST_F(ComfortTest, TabGoesThroughTheWindowInReadingOrder)
{
    QTest::keySequence(browser->GetWidget(), QKeySequence::Find);
    const std::vector<const char*> order { "expandButton", "collapseButton", "levelBox",
        "featureTree", "descriptionText", "filterField" };
    for (const char* next : order) {
        press(Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), next);
    }
}

} // namespace featurebrowser
