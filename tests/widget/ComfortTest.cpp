// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "ComfortTest.h"

#include <QGuiApplication>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTranslator>

namespace featurebrowser {

TEST_F(ComfortTest, FilterFindsNamesValuesEntriesAndDescriptions)
{
    browser->setItemDescription("Width", "Pixels of a line, ZEILENL\u00C4NGE");
    browser->setVisibility(LEVEL_BEGINNER);
    tree()->collapseAll();
    for (const auto& [text, found] : { std::pair("xposuret", "ExposureTime"),
             { "mono12", "PixelFormat" }, { "LINE", "Width" }, { "5000", "ExposureTime" },
             { "green", "GainSelector" }, { " zeilenl\u00E4nge ", "Width" } }) {
        find(text);
        EXPECT_TRUE(isShown(found) && isShown("Camera")) << text;
        EXPECT_FALSE(isShown("ReverseX")) << text;
    }
    find("left"); // the value of an expert feature
    auto* reveal = child<QPushButton>("revealButton");
    ASSERT_TRUE(reveal->isVisible());
    EXPECT_EQ(reveal->text(), "Show 1 more");
    EXPECT_FALSE(isShown("DeviceUserID"));
    pressButton("revealButton");
    EXPECT_FALSE(reveal->isVisible());
    EXPECT_TRUE(isShown("DeviceUserID") && child<QWidget>("filterField")->hasFocus());
    EXPECT_EQ(journal.take(), Lines { "Level 3" });
    press(Qt::Key_Return); // on into the tree
    EXPECT_EQ(tree()->currentIndex(), row("DeviceUserID", 1));
    browser->modifyFeature("DeviceUserID", "left", CAM_TYPE_STRING, {}, false, false);
    find("left");
    EXPECT_FALSE(isShown("DeviceUserID")) << "it shows no value";
    find("");
    EXPECT_TRUE(isShown("Width")) << "the found row's category stays open";
    EXPECT_FALSE(isShown("Gain")) << "what was closed before is closed again";
    press(Qt::Key_Escape);
    press(Qt::Key_Down);
    EXPECT_TRUE(tree()->hasFocus());
    tree()->expandAll();
    find("Gain");
    press(Qt::Key_Escape);
    EXPECT_TRUE(isShown("Gain")) << "was open before";
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
    find("ReverseX");
    select("Camera");
    find("ReverseX");
    press(Qt::Key_Down);
    EXPECT_EQ(tree()->currentIndex(), row("ReverseX", 1)) << "a category is no hit";
    find("e");
    press(Qt::Key_Down);
    EXPECT_EQ(tree()->currentIndex(), row("ReverseX", 1)) << "a hit already";
    find("nowhere");
    press(Qt::Key_Return);
    EXPECT_FALSE(isShown("Width") || isShown("Camera"));
    EXPECT_TRUE(ink() && !tree()->currentIndex().isValid());
    browser->clearFeatureItems();
    find("");
    EXPECT_FALSE(ink()) << "an empty tree has lost nothing";
}

TEST_F(ComfortTest, WhatFollowedAWriteIsListed)
{
    journal.answer = [this](const std::string&) {
        setInteger("Width", 512);
        setFloat("ExposureTime", 5000, 1, 9e5);
        setFloat("Gain", 2.5, 0, 48, 0, true);
        setText("DeviceUserID", "left");
    };
    const auto* strip = child<QLabel>("changeText");
    const auto* next = child<QWidget>("nextChangeButton");
    EXPECT_FALSE(strip->isVisible());
    edit("Width", "512");
    EXPECT_EQ(strip->text(), "Width = 512: 2 features followed");
    EXPECT_EQ(strip->toolTip(), "ExposureTime<br>Gain");
    EXPECT_TRUE(strip->isVisible());
    tree()->collapseAll();
    for (const char* name : { "ExposureTime", "Gain", "ExposureTime" }) {
        press(Qt::Key_F4);
        EXPECT_EQ(tree()->currentIndex(), row(name, 1));
        EXPECT_TRUE(isShown(name));
    }
    find("Exposure");
    pressButton("nextChangeButton");
    EXPECT_EQ(tree()->currentIndex(), row("ExposureTime", 1)) << "no hidden row";
    find("");
    journal.answer = [this](const std::string&) { addInteger("", "ExposureTime", 1); };
    browser->clearFeatureItems();
    press(Qt::Key_F4);
    EXPECT_FALSE(tree()->currentIndex().isValid()) << "gone";

    for (const int count : { 1, 20, 21 }) {
        addInteger("", "Width");
        QStringList names;
        for (int i = 0; i < count; ++i) {
            names.append("<" + QString::number(i));
            addInteger("", names.back().toStdString(), 1);
        }
        journal.answer = [&, value = count % 2](const std::string&) {
            setInteger("Width", 3);
            for (const QString& name : names) {
                setInteger(name.toStdString(), 2 + value);
            }
        };
        edit("Width", "5");
        EXPECT_TRUE(next->isVisible());
        EXPECT_EQ(strip->text(),
            QString("Width = 3: %1 feature%2 followed").arg(count).arg(count == 1 ? "" : "s"));
        names = names.mid(0, 20).replaceInStrings("<", "&lt;");
        EXPECT_EQ(strip->toolTip(),
            names.join("<br>") + QString::fromUtf8(count > 20 ? "<br>\u2026" : ""));
        browser->clearFeatureItems();
    }
    addInteger("", "Width");
    journal.answer = nullptr;
    edit("Width", "7");
    EXPECT_EQ(strip->text(), "Width was not accepted as entered");
    EXPECT_FALSE(next->isVisible());
    browser->addCommandFeature("", "Go", "Go", LEVEL_GURU, false, true, SELECTOR_NONE, "");
    open("Go");
    EXPECT_EQ(strip->text(), "Go");
}

TEST_F(ComfortTest, MenuCopiesAndCollapses)
{
    browser->addCategory("Other", LEVEL_BEGINNER);
    addInteger("Other", "X");
    addInteger("", "Loose");
    tree()->expandAll();
    for (const QStringList& menu : table("menus")) {
        EXPECT_EQ(choose(menu[0].toStdString()).toStdString(), menu[1].toStdString());
    }
    setChoice("GainSelector", "1", { "Red", "Green" }, true);
    EXPECT_FALSE(choose("GainSelector").contains(showEntries)) << "it cannot be switched";
    Q_EMIT tree()->customContextMenuRequested({ 5, tree()->viewport()->height() - 2 });
    EXPECT_EQ(child<QMenu>("rowMenu"), nullptr) << "no row there";
    find("ain");
    for (const QStringList& copy : table("copies")) {
        choose(copy[0].toStdString(), copy[1]);
        EXPECT_EQ(clipboard(), copy[2].toStdString());
    }
    find("");
    choose("Gain", "Collapse others");
    EXPECT_TRUE(isShown("Gain") && !isShown("X"));
    for (const auto& [collapse, expand] :
        { std::pair("Collapse all", "Expand all"), { "collapseButton", "expandButton" } }) {
        const auto act = [&, byMenu = collapse[0] == 'C'](const char* what) {
            byMenu ? void(choose("Camera", what)) : pressButton(what);
        };
        act(collapse);
        EXPECT_FALSE(isShown("Width") || isShown("X"));
        act(expand);
        EXPECT_TRUE(isShown("Gain") && isShown("X"));
    }
}

TEST_F(ComfortTest, TheTreeLooksTheSameWhenItIsBuiltAnew)
{
    const auto build = [this](int rows) {
        for (const char* category : { "A", "B", "C" }) {
            browser->addCategory(category, LEVEL_BEGINNER);
            browser->addSubCategory(category, category + std::string("1"), LEVEL_BEGINNER);
            for (int i = 0; i < rows; ++i) {
                addInteger(category, category + std::to_string(10 + i), i);
            }
        }
    };
    auto* scroll = tree()->verticalScrollBar();
    browser->clearFeatureItems();
    build(40);
    addInteger("A1", "Below", 1);
    EXPECT_TRUE(tree()->isExpanded(row("A")) && !tree()->isExpanded(row("A1")))
        << "the first level is open";
    tree()->collapse(row("B"));
    tree()->setCurrentIndex(row("C20", 0));
    browser->setItemDescription("C20", "about");
    QApplication::processEvents();
    scroll->setValue(scroll->value() - 7);
    const int scrolled = scroll->value();
    EXPECT_GT(scrolled, 0);
    journal.hearsSelection = true;
    for (int times = 0; times < 2; ++times) {
        tree()->setExpanded(row("A1"), times == 0);
        journal.take();
        browser->clearFeatureItems();
        browser->clearFeatureItems(); // emptied twice: what it looked like before still holds
        build(40);
        QApplication::processEvents();
        EXPECT_TRUE(tree()->isExpanded(row("A")) && !tree()->isExpanded(row("B")));
        EXPECT_EQ(tree()->isExpanded(row("A1")), times == 0);
        EXPECT_EQ(tree()->currentIndex(), row("C20", 0));
        EXPECT_EQ(scroll->value(), scrolled);
        EXPECT_EQ(role("C20", "description"), QVariant("about"));
        EXPECT_EQ(child<QPlainTextEdit>("descriptionText")->toPlainText(), "about");
        EXPECT_TRUE(journal.take().empty());
    }
    scroll->setValue(0);
    find("A");
    find("");
    EXPECT_TRUE(tree()->viewport()->rect().intersects(tree()->visualRect(row("C20"))));
    tree()->setCurrentIndex({});
    browser->clearFeatureItems();
    build(400);
    EXPECT_FALSE(tree()->currentIndex().isValid());
    browser->addCategory("D", LEVEL_BEGINNER);
    addInteger("D", "InD");
    EXPECT_TRUE(tree()->isExpanded(row("A")) && !tree()->isExpanded(row("D")))
        << "a large tree opens nothing new";
}

TEST_F(ComfortTest, StatesAndContextsAreSaidInWords)
{
    setStates({ { "Width", FEATURE_LOCKED }, { "Gain", FEATURE_NOT_AVAILABLE },
        { "ReverseX", FEATURE_READ_FAILED } });
    browser->setItemDescription("Width", "Unit: px");
    addInteger("Camera", "<img src='x'>");
    const std::list<std::shared_ptr<FeatureItem>> items { std::make_shared<FeatureItem>(),
        std::make_shared<FeatureItem>(), std::make_shared<FeatureItem>() };
    items.front()->name = "DeviceUserID";
    items.front()->accessMode = ACCESS_WRITE_ONLY;
    items.back()->name = "AcquisitionStart";
    items.back()->accessMode = ACCESS_READ_WRITE;
    describeFeatures(window(), items, true);
    browser->modifyFeature("AcquisitionStart", "Start", CAM_TYPE_COMMAND, {}, true, true);
    for (const auto& [name, words] :
        std::map<std::string, std::string> { { "Camera", "" }, { "PixelFormat", "\nMono8" },
            { "Width",
                "\n640 px\nLocked: the camera takes no changes of it now\n"
                "Range: 16 … 4096 px\nStep: 16 px" },
            { "Gain",
                "\n2.5\nNot available in the camera's present configuration\nRange: 0 … 48\n"
                "Selected by: GainSelector = Green" },
            { "ReverseX", "\nFalse\nUnread: the last attempt to read it from the camera failed" },
            { "DeviceUserID",
                "\nleft\nWrite-only: the camera does not tell its value\nLength: at most 8 bytes" },
            { "AcquisitionStart", "\nThe camera is opened for reading only" },
            { "GevMACAddress", "\n00:00:00:00:00:01\nRead-only" } }) {
        EXPECT_EQ(said(name, Qt::AccessibleDescriptionRole), name + words);
        EXPECT_EQ(said(name),
            "<div style='white-space:pre-wrap'>"
                + QString::fromStdString(name + words).toHtmlEscaped().toStdString() + "</div>");
    }

    std::string reason = "Cannot be changed now: locked by ReverseX.";
    items.front()->name = "Width";
    items.front()->description = "Columns\nUnit: px\n" + reason;
    describeFeatures(window(), items, false,
        [&reason](const std::string& name) { return name == "Width" ? reason : std::string(); });
    tree()->setCurrentIndex(row("Width"));
    const auto* pane = window()->findChild<QPlainTextEdit*>("descriptionText");
    EXPECT_EQ(pane->toPlainText(), "Columns\nUnit: px") << "what held once does not stay there";
    for (const char* now : { "locked by ReverseX", "locked by Gain" }) {
        reason = now + std::string(".");
        EXPECT_NE(said("Width").find("640 px\n" + std::string(now) + "\nRange"), std::string::npos);
    }
    EXPECT_NE(said("Gain").find("Not available in the camera"), std::string::npos);
    browser->modifyFeature("ReverseX", "1", CAM_TYPE_BOOLEAN, { "False", "True" }, false, true);
    setStates({});
    for (const auto& [name, words] : { std::pair("Width", "Width, 640 px, editable"),
             { "ReverseX", "ReverseX, checked, editable" },
             { "AcquisitionStart", "AcquisitionStart, button, read-only" },
             { "Camera", "Camera" } }) {
        EXPECT_EQ(said(name, Qt::AccessibleTextRole), words);
    }
    EXPECT_EQ(row("Width", 1).data(Qt::AccessibleTextRole), QVariant("640 px, editable"));
    EXPECT_EQ(row("ReverseX", 1).data(Qt::CheckStateRole), QVariant(Qt::Checked));
    EXPECT_EQ(row("Width").data(Qt::DecorationRole), QVariant());
    EXPECT_EQ(said("<img src='x'>").find("<img"), std::string::npos);
    browser->showDialog(&journal, 0, 0, {}, { { "Width", FEATURE_READ_FAILED } });
    EXPECT_EQ(role("Width", "state"), QVariant(FEATURE_READ_FAILED));
    EXPECT_EQ(role("Gain", "state"), QVariant(FEATURE_AVAILABLE));
}

TEST_F(ComfortTest, WordsAreOfTheDesktopsLanguage)
{
    delete qApp->findChild<QTranslator*>("zqfeaturebrowserwidget"); // loads them once
    QLocale::setDefault(QLocale::German);
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    for (int times = 0; times < 2; ++times) {
        browser = std::make_unique<CameraFeatureBrowser>(nullptr);
    }
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft) << "the application's choice";
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    addInteger("", "Width", 1, LEVEL_BEGINNER, "Choice");
    addSelector("", "Choice", { "A", "B" });
    show();
    EXPECT_NE(choose("Choice").indexOf("Einträge dieses Selektors"), -1);
    EXPECT_EQ(tree()->model()->headerData(0, Qt::Horizontal), QVariant("Einstellung"));
    EXPECT_EQ(tree()->model()->headerData(1, Qt::Horizontal), QVariant("Wert"));
    edit("Width", "1 ms");
    EXPECT_EQ(message(), "„1 ms“ ist keine Zahl; die Einheit dieser Einstellung ist nicht bekannt");
    press(Qt::Key_Escape);
    journal.answer = nullptr;
    edit("Width", "2");
    EXPECT_EQ(message(),
        "Die Kamera hat „2“ nicht bestätigt; die Zeile zeigt den letzten bekannten Wert");
    for (const auto& [said, shown] :
        { std::pair("Error writing value\nValue must be between 1 and 9",
              "Fehler beim Schreiben des Werts\nDer Wert muss zwischen 1 und 9 liegen"),
            { "Error adjusting to value 8\n", "Fehler beim Anpassen auf den Wert 8" },
            { "Difference between values Min and Max not divisible by Inc = 2\nValue adjusted to 8",
                "Die Differenz von Min und Max ist nicht durch Inc = 2 teilbar\n"
                "Der Wert wurde auf 8 angepasst" },
            { "Error writing feature Width\nvalue must be between 1.0 and 9.0",
                "Fehler beim Schreiben von Width\nDer Wert muss zwischen 1.0 und 9.0 liegen" },
            { "Error writing feature Width\n100 % %1\n",
                "Fehler beim Schreiben von Width\n100 % %1" },
            { "Said by a camera", "Said by a camera" } }) {
        browser->setDefaultValue("Width", 1L, said);
        EXPECT_EQ(message(), shown);
    }
    QLocale::setDefault(QLocale::c());
    EXPECT_EQ(qApp->findChildren<QTranslator*>("zqfeaturebrowserwidget").size(), 1);
    qDeleteAll(qApp->findChildren<QTranslator*>());
}

TEST_F(ComfortTest, TabGoesThroughTheWindowInReadingOrder)
{
    QTest::keySequence(window(), QKeySequence::Find);
    int right = child<QWidget>("filterField")->geometry().right();
    for (const char* next : { "expandButton", "collapseButton", "levelBox", "featureTree",
             "descriptionText", "filterField" }) {
        press(Qt::Key_Tab);
        if (QApplication::focusWidget()->parentWidget()->inherits("featurebrowser::FilterBar")) {
            const QRect place = QApplication::focusWidget()->geometry();
            EXPECT_GT(place.left(), next[0] == 'f' ? -1 : std::exchange(right, place.right()));
        }
        EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), next);
    }
}

/// What a screen reader says, a pointer finds and a style shows of every part.
TEST_F(ComfortTest, EveryPartSaysWhatItIs)
{
    for (const QStringList& row : table("parts")) {
        const QVariant held = child<QWidget>(row[0].toUtf8())->property(row[1].toUtf8());
        const bool isText = held.userType() == QMetaType::QString;
        const bool isYesOrNo = held.userType() == QMetaType::Bool;
        const QString words = isText || isYesOrNo ? held.toString() : QString::number(held.toInt());
        EXPECT_EQ(words.toStdString(), row[2].toStdString()) << row.join('|').toStdString();
    }
    EXPECT_EQ(window()->windowTitle(), "Camera features");
    EXPECT_TRUE(child<QWidget>("descriptionPane")->findChild<QLabel*>()->font().bold());
    EXPECT_FALSE(tree()->header()->sectionsMovable());
    browser = std::make_unique<CameraFeatureBrowser>(nullptr);
    const QSize unit(window()->fontMetrics().height(), window()->fontMetrics().height());
    EXPECT_TRUE(window()->width() > 30 * unit.width() && window()->height() > 30 * unit.height());
    browser->showDialog(nullptr, 300, 400, {}, {});
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window()));
    EXPECT_LE(window()->width(), 300) << "fits into a narrow dock";
    for (const int width : { 300, 900 }) {
        window()->resize(width, 400);
        QApplication::processEvents();
        EXPECT_NEAR(tree()->columnWidth(0), 0.46 * tree()->viewport()->width(), 1);
    }
    tree()->header()->resizeSection(0, 200);
    window()->resize(450, 400);
    QApplication::processEvents();
    EXPECT_NEAR(tree()->columnWidth(0), 100, 10) << "the share that the user has chosen";
    EXPECT_FALSE(child<QSplitter>()->isCollapsible(0));
}

} // namespace featurebrowser
