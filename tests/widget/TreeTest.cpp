// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "WidgetTest.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalSpy>

#include <limits>

namespace featurebrowser {

namespace {

constexpr auto noValue = "\u2014";
constexpr long biggest = std::numeric_limits<long>::max();
const double nan = std::numeric_limits<double>::quiet_NaN();

class TreeTest : public WidgetTest { };

} // namespace

TEST_F(TreeTest, FloatsNeverLookLikeAnotherNumberAndAreEditedWithAllTheirDigits)
{
    show();
    for (const QStringList& row : table("floats")) {
        setFloat("ExposureTime", std::stod(row[0].toStdString()), 0, 1);
        EXPECT_EQ(text("ExposureTime"), row[1].toStdString());
        open("ExposureTime");
        EXPECT_EQ(QApplication::focusWidget()->property("text"), QVariant(row[2]));
        press(Qt::Key_Return);
    }
    EXPECT_TRUE(journal.take().empty());
}

TEST_F(TreeTest, RolesTellAutomationWhatARowHolds)
{
    setInteger("Width", biggest, -biggest - 1, biggest, 4, true);
    browser->setItemDescription("Width", "Image width\r\nMin: 16");
    addInteger("Camera", "Selected", 1, LEVEL_BEGINNER, "A, B");
    setText("GevCurrentIPAddress", "10.0.0.9");
    setFloat("ExposureTime", 2, 1, 9, 0.5);
    for (const QStringList& row : table("roles")) {
        const QVariant held = role(row[0].toStdString(), row[1].toUtf8());
        const QString words = held.userType() == QMetaType::QStringList
            ? held.toStringList().join(',')
            : held.toString();
        EXPECT_EQ(words.toStdString(), row[2].toStdString()) << row.join('|').toStdString();
    }
    for (const auto& [name, column, editable] : { std::tuple("PixelFormat", 1, true),
             { "PixelFormat", 0, false }, { "Width", 1, false }, { "GevMACAddress", 1, false } }) {
        EXPECT_EQ(row(name, column).flags().testFlag(Qt::ItemIsEditable), editable) << name;
    }
    EXPECT_TRUE(row("Width").flags().testFlag(Qt::ItemNeverHasChildren));
    const QAbstractItemModel& model = *tree()->model();
    EXPECT_FALSE(model.headerData(0, Qt::Vertical).isValid());
    for (const auto& [at, column] : { std::pair(-1, 0), { 1, 0 }, { 0, -1 }, { 0, 2 } }) {
        EXPECT_FALSE(model.index(at, column).isValid()) << at << column;
    }
    browser->modifyFeature("DeviceUserID", "x", CAM_TYPE_READ_ONLY_STRING, {}, true, true);
    EXPECT_EQ(role("DeviceUserID", "kind"), QVariant("readonly-string"));
    setText("DeviceUserID", "x");
    EXPECT_EQ(role("DeviceUserID", "kind"), QVariant("string"));
    for (const auto& [index, shown] : { std::pair("1", "B"), { "2", noValue }, { "-1", noValue },
             { "", noValue }, { "abc", noValue }, { "99999999999", noValue } }) {
        setChoice("PixelFormat", index, { "A", "B" });
        EXPECT_EQ(text("PixelFormat"), shown) << index;
    }
    setInteger("Width", 0, 0, 0, 0, false, false);
    EXPECT_EQ(text("Width"), noValue);
}

TEST_F(TreeTest, AnUpdateIsToldOnceAndOnlyWhenItChangesSomething)
{
    const auto integer = [this](long value, long min, long max, unsigned int inc, bool readOnly) {
        return [=] { setInteger("Width", value, min, max, inc, readOnly); };
    };
    const auto number = [this](double value, double min, double max, double inc) {
        return [=] { setFloat("ExposureTime", value, min, max, inc); };
    };
    const auto words = [this](const char* name, const char* value, const char* entry, bool flag) {
        return [=] {
            browser->modifyFeature(name, value, CAM_TYPE_STRING, { "A", entry }, false, flag);
        };
    };
    const std::vector<std::function<void()>> updates { integer(1, 16, 4096, 16, false),
        integer(1, 0, 4096, 16, false), integer(1, 0, 9, 16, false), integer(1, 0, 9, 3, false),
        integer(1, 0, 9, 3, true), number(2, 1, 1e6, 0), number(2, 0, 1e6, 0), number(2, 0, 9, 0),
        number(2, 0, 9, 1), number(nan, 0, 9, 1), number(2, 0, 9, nan),
        words("DeviceUserID", "new", "", true), words("DeviceUserID", "new", "", false),
        words("GevCurrentIPAddress", "10.0.0.2", "", true), words("PixelFormat", "0", "B", true),
        words("PixelFormat", "1", "B", true), words("PixelFormat", "1", "C", true),
        words("ReverseX", "1", "True", true), [this] {
            setStates({ { "Width", FEATURE_LOCKED } });
        } };
    show();
    QSignalSpy told(tree()->model(), &QAbstractItemModel::dataChanged);
    for (std::size_t i = 0; i < updates.size(); ++i) {
        for (int times = 0; times < 2; ++times) {
            updates[i]();
            EXPECT_EQ(told.count(), 1) << i << ", then the same again";
        }
        told.clear();
    }
    addSelector("Camera", "Selector", { "A", "B" });
    addInteger("Camera", "Selected", 1, LEVEL_BEGINNER, "Selector");
    told.clear();
    setChoice("Selector", "1", { "A", "B" });
    EXPECT_EQ(told.count(), 2) << "what is selected shows its selector";
    EXPECT_TRUE(journal.take().empty()) << "what the program does is no edit";
}

TEST_F(TreeTest, NamesComeTwiceAreUnknownOrOdd)
{
    browser->addIntFeature("", "Width", 5, 0, 9, 1, LEVEL_GURU, true, false, SELECTOR_NONE, "");
    EXPECT_EQ(text("Width"), noValue);
    const std::string odd = "\xFF%1<b>\xC3";
    browser->addCategory("Camera", LEVEL_BEGINNER);
    for (const char* name : { "Width", "Camera" }) {
        browser->addIntFeature("", name, 5, 0, 9, 1, LEVEL_GURU, true, true, SELECTOR_NONE, "");
    }
    EXPECT_EQ(tree()->model()->rowCount(), 1);
    EXPECT_EQ(row("Width").parent(), row("Camera"));
    EXPECT_EQ(text("Width"), "5");
    EXPECT_EQ(role("Width", "level"), QVariant(3));
    EXPECT_EQ(role("Width", "readOnly"), QVariant(true));
    EXPECT_EQ(role("Camera", "kind"), QVariant("category"));
    browser->addSubCategory("Nowhere", odd, LEVEL_BEGINNER);
    addInteger(odd, "Deep%2");
    addInteger("NoSuch", "Loose", 7);
    addInteger("Camera", "Loose", 8);
    addInteger("Width", "InAFeature");
    setInteger("NoSuch", 1);
    setFloat("Width", 2.5);
    browser->setDefaultValue("NoSuch", 1L, "message");
    browser->setItemDescription("NoSuch", "text");
    EXPECT_FALSE(row("Loose").parent().isValid() || row("InAFeature").parent().isValid());
    EXPECT_EQ(text("Loose"), "8");
    EXPECT_EQ(row("Deep%2").parent(), row(odd));
    EXPECT_EQ(text("Width"), "5");
}

TEST_F(TreeTest, LevelHidesFeaturesAndCategoriesLeftEmpty)
{
    browser->addCategory("Expert only", LEVEL_BEGINNER);
    browser->addCategory("Empty", LEVEL_BEGINNER);
    browser->addCategory("Empty guru", LEVEL_GURU);
    addInteger("Expert only", "Hidden", 1, LEVEL_EXPERT);
    show();
    auto* levels = child<QComboBox>("levelBox");
    EXPECT_EQ(levels->currentText(), "Guru");
    browser->setVisibility(LEVEL_BEGINNER);
    EXPECT_TRUE(journal.take().empty());
    EXPECT_TRUE(isShown("Width") && !isShown("DeviceUserID") && !isShown("Expert only"));
    EXPECT_TRUE(isShown("Empty") && !isShown("Empty guru"));
    // Rows that come later are hidden too.
    addInteger("Camera", "Late", 1, LEVEL_GURU);
    EXPECT_FALSE(isShown("Late"));
    levels->setFocus();
    for (const auto& [key, shown, lines] :
        { std::tuple(Qt::Key_Down, "Expert", Lines { "Level 2" }),
            { Qt::Key_Home, "Beginner", { "Level 1" } }, { Qt::Key_Home, "Beginner", {} },
            { Qt::Key_Down, "Expert", { "Level 2" } } }) {
        press(key);
        EXPECT_EQ(levels->currentText(), shown);
        EXPECT_EQ(journal.take(), lines);
    }
    Q_EMIT levels->activated(1);
    EXPECT_TRUE(journal.take().empty()) << "the same again";
    EXPECT_TRUE(isShown("DeviceUserID") && isShown("Hidden") && !isShown("Late"));
}

TEST_F(TreeTest, UserSelectionIsToldAndItsDescriptionShown)
{
    journal.hearsSelection = true;
    browser->showDialog(&journal, 600, 700, {}, {});
    ASSERT_TRUE(waitForActive(window()));
    const auto* description = child<QPlainTextEdit>("descriptionText");
    const auto* title = child<QWidget>("descriptionPane")->findChild<QLabel*>();
    EXPECT_TRUE(journal.take().empty() && tree()->hasFocus()) << "showing selects nothing";
    click("Width", 0);
    press(Qt::Key_Down);
    EXPECT_EQ(journal.take(), (Lines { "Selection Width", "Selection ExposureTime" }));
    tree()->setCurrentIndex(row("ExposureTime", 0));
    EXPECT_TRUE(journal.take().empty()) << "the same row";
    browser->setItemDescription("Width", "about Width");
    browser->setItemDescription("ExposureTime", "<b>plain</b> \r\ntext \r\n");
    browser->setItemDescription("PixelFormat", "about others");
    EXPECT_EQ(description->toPlainText(), "<b>plain</b>\ntext");
    EXPECT_EQ(title->text(), "ExposureTime");
    QApplication::processEvents();
    EXPECT_TRUE(title->width() > 200 && title->geometry().bottom() <= description->y());
    child<QPlainTextEdit>("descriptionText")->selectAll();
    browser->setItemDescription("ExposureTime", "<b>plain</b>\ntext");
    EXPECT_TRUE(description->textCursor().hasSelection()) << "the same text is left alone";
    browser->setItemDescription("PixelFormat", "");
    for (const auto& [name, words] : std::map<const char*, const char*> {
             { "Camera", "" }, { "PixelFormat", "The camera does not describe this feature" } }) {
        select(name);
        EXPECT_EQ(description->toPlainText(), "");
        EXPECT_EQ(description->placeholderText(), words);
    }
    browser->clearFeatureItems();
    EXPECT_EQ(description->placeholderText(), "Select a feature to read about it here");
    EXPECT_FALSE(title->isVisible());
    addInteger("", "X");
    select("X");
    journal.take();
    browser.reset();
    EXPECT_TRUE(journal.take().empty()) << "a window that ends tells nobody";
}

TEST_F(TreeTest, SizesAndColumnsAreTheApplications)
{
    browser->showDialog(&journal, 500, 400, { 210, 120, 90 }, {});
    EXPECT_EQ(window()->size(), QSize(500, 400));
    EXPECT_EQ(tree()->columnWidth(0), 210);
    EXPECT_EQ(tree()->columnWidth(1), 120);
    EXPECT_EQ(window()->windowFlags(),
        Qt::Dialog | Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint | Qt::WindowTitleHint
            | Qt::WindowSystemMenuHint);
    EXPECT_TRUE(journal.take().empty());
    tree()->header()->resizeSection(0, 180);
    tree()->header()->resizeSection(1, 130);
    browser->setVisibility(LEVEL_EXPERT);
    browser->closeDialog();
    EXPECT_EQ(journal.take(), (Lines { "Column 0 180", "Column 1 130", "Close 500 400 2" }));
    EXPECT_FALSE(browser->isVisible());
    browser->showStandalone(nullptr, 0, -1, { 0, -5 }, {});
    EXPECT_EQ(tree()->columnWidth(0), 180);
    EXPECT_EQ(tree()->columnWidth(1), 130);
    EXPECT_EQ(window()->size(), QSize(500, 400));
    child<QWidget>("filterField")->setFocus();
    browser->hideDialog();
    EXPECT_FALSE(browser->isVisible());
    browser->showDialog();
    EXPECT_EQ(window()->focusWidget(), child<QWidget>("filterField"));
    EXPECT_TRUE(browser->isVisible() && window()->windowType() == Qt::Window);
    EXPECT_TRUE(journal.take().empty());

    browser = std::make_unique<CameraFeatureBrowser>(nullptr);
    browser->showDialog(&journal, 500, 400, { 210 }, {});
    tree()->header()->resizeSection(0, 180);
    EXPECT_EQ(journal.take(), Lines { "Column 0 180" }) << "the last column only follows";
}

TEST_F(TreeTest, ADoubleClickBesideTheRowsDoesNothing)
{
    show();
    tree()->collapseAll();
    const QPoint corner = tree()->viewport()->rect().bottomLeft();
    QTest::mouseDClick(tree()->viewport(), Qt::LeftButton, {}, corner + QPoint(5, -5));
    EXPECT_TRUE(journal.take().empty());
}

} // namespace featurebrowser
