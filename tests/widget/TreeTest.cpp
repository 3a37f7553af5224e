#include "WidgetTest.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QSplitter>

#include <limits>

namespace featurebrowser {

namespace {

constexpr auto noValue = "\u2014";

class TreeTest : public WidgetTest { };

} // namespace

TEST_F(TreeTest, FloatsNeverLookLikeAnotherNumber)
{
    const std::vector<std::pair<double, const char*>> cases { { 0.00000001, "0.00000001" },
        { 1.23456789e-9, "1.23456789e-09" }, { 1e-300, "1e-300" }, { -0.0, "0" },
        { 41.25, "41.25" }, { 0.1 + 0.2, "0.3" }, { 123456789.25, "123456789" },
        { 12345678901234.0, "12345678901234" }, { 1e15, "1e+15" }, { -2.5e100, "-2.5e+100" },
        { std::numeric_limits<double>::infinity(), "inf" },
        { std::numeric_limits<double>::quiet_NaN(), "nan" } };
    for (const auto& [value, shown] : cases) {
        browser->modifyFeature("ExposureTime", value, 0.0, 1.0, 0.0, false, true);
        EXPECT_EQ(text("ExposureTime"), shown);
    }
}

TEST_F(TreeTest, RolesTellAutomationWhatARowHolds)
{
    const long big = std::numeric_limits<long>::max();
    browser->modifyFeature("Width", big, -big - 1, big, 4U, true, true);
    EXPECT_EQ(text("Width"), "9223372036854775807");
    EXPECT_EQ(role("Width", "minimum"), QVariant(qlonglong(-big - 1)));
    EXPECT_EQ(role("Width", "increment"), QVariant(4U));
    EXPECT_EQ(role("Width", "readOnly"), QVariant(true));
    EXPECT_EQ(role("ExposureTime", "maximum"), QVariant(1e6));
    EXPECT_EQ(role("PixelFormat", "entries").toStringList().join(","), "Mono8,Mono12,RGB8");
    EXPECT_EQ(role("DeviceUserID", "level"), QVariant(2));
    EXPECT_EQ(role("GevMACAddress", "kind"), QVariant("mac"));
    EXPECT_EQ(role("Camera", "kind"), QVariant("category"));
    EXPECT_TRUE(row("PixelFormat", 1).flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(row("PixelFormat", 0).flags().testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(row("Width", 1).flags().testFlag(Qt::ItemIsEditable));
    browser->setItemDescription("Width", "Image width\r\nMin: 16");
    EXPECT_EQ(role("Width", "description"), QVariant("Image width\r\nMin: 16"));
}

TEST_F(TreeTest, TextUpdatesKeepAddressesAndFollowTheReadOnlyKind)
{
    setText("GevCurrentIPAddress", "10.0.0.9");
    EXPECT_EQ(role("GevCurrentIPAddress", "kind"), QVariant("ipv4"));
    EXPECT_EQ(text("GevCurrentIPAddress"), "10.0.0.9");
    browser->modifyFeature("DeviceUserID", "x", CAM_TYPE_READ_ONLY_STRING, {}, true, true);
    EXPECT_EQ(role("DeviceUserID", "kind"), QVariant("readonly-string"));
    setChoice("PixelFormat", "1", { "A", "B" });
    EXPECT_EQ(text("PixelFormat"), "B");
    for (const char* index : { "2", "-1", "", "abc", "99999999999" }) {
        setChoice("PixelFormat", index, { "A", "B" });
        EXPECT_EQ(text("PixelFormat"), noValue) << index;
    }
}

TEST_F(TreeTest, ARowWithoutAValueShowsADash)
{
    browser->modifyFeature("Width", 0L, 0L, 0L, 0U, false, false);
    EXPECT_EQ(text("Width"), noValue);
}

TEST_F(TreeTest, AnUpdateIsToldOnceAndOnlyWhenItChangesSomething)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const auto integer = [this](long value, long min, long max, unsigned int inc, bool readOnly) {
        return [=] { browser->modifyFeature("Width", value, min, max, inc, readOnly, true); };
    };
    const auto number = [this](double value, double min, double max, double inc) {
        return [=] { browser->modifyFeature("ExposureTime", value, min, max, inc, false, true); };
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
        told.clear();
        updates[i]();
        EXPECT_EQ(told.count(), 1) << i;
        updates[i]();
        EXPECT_EQ(told.count(), 1) << i << ", the same again";
    }
    browser->addEnumFeature("Camera", "Selector", 0, { "A", "B" }, LEVEL_BEGINNER, false, false,
        true, SELECTOR_SELECTOR, "");
    addInteger("Camera", "Selected", 1, LEVEL_BEGINNER, "Selector");
    told.clear();
    setChoice("Selector", "1", { "A", "B" });
    EXPECT_EQ(told.count(), 2) << "what is selected shows its selector";
    EXPECT_EQ(role("Width", "state"), QVariant(1));
    EXPECT_TRUE(journal.take().empty()) << "what the program does is no edit";
}

TEST_F(TreeTest, WhatIsAddedAgainStaysInItsPlace)
{
    browser->addCategory("Camera", LEVEL_BEGINNER);
    browser->addIntFeature("", "Width", 5, 0, 9, 1, LEVEL_GURU, true, true, SELECTOR_NONE, "");
    browser->addIntFeature("", "Camera", 5, 0, 9, 1, LEVEL_GURU, true, true, SELECTOR_NONE, "");
    EXPECT_EQ(tree()->model()->rowCount(), 1);
    EXPECT_EQ(row("Width").parent(), row("Camera"));
    EXPECT_EQ(text("Width"), "5");
    EXPECT_EQ(role("Width", "level"), QVariant(3));
    EXPECT_EQ(role("Width", "readOnly"), QVariant(true));
    EXPECT_EQ(role("Camera", "kind"), QVariant("category"));
}

TEST_F(TreeTest, UnknownAndOddNamesAreTolerated)
{
    const std::string odd = "\xFF%1<b>\xC3";
    browser->addSubCategory("Nowhere", odd, LEVEL_BEGINNER);
    addInteger(odd, "Deep%2");
    addInteger("NoSuch", "Loose", 7);
    addInteger("Camera", "Loose", 8);
    browser->modifyFeature("NoSuch", 1L, 0L, 1L, 1U, false, true);
    browser->modifyFeature("Width", 2.5, 0.0, 1.0, 1.0, false, true);
    browser->setDefaultValue("NoSuch", 1L, "message");
    browser->setItemDescription("NoSuch", "text");
    EXPECT_FALSE(row("Loose").parent().isValid());
    EXPECT_EQ(text("Loose"), "8");
    EXPECT_EQ(row("Deep%2").parent(), row(odd));
    EXPECT_EQ(text("Width"), "640");
}

TEST_F(TreeTest, LevelHidesFeaturesAndCategoriesLeftEmpty)
{
    browser->addCategory("Expert only", LEVEL_BEGINNER);
    addInteger("Expert only", "Hidden", 1, LEVEL_EXPERT);
    show();
    auto* levels = child<QComboBox>("levelBox");
    browser->setVisibility(LEVEL_BEGINNER);
    EXPECT_TRUE(journal.take().empty());
    EXPECT_TRUE(isShown("Width") && !isShown("DeviceUserID") && !isShown("Expert only"));
    // Rows that come later are hidden too.
    addInteger("Camera", "Late", 1, LEVEL_GURU);
    EXPECT_FALSE(isShown("Late"));
    levels->setFocus();
    press(Qt::Key_Down);
    EXPECT_EQ(journal.take(), Lines { "Level 2" });
    EXPECT_TRUE(isShown("DeviceUserID") && isShown("Hidden") && !isShown("Late"));
}

TEST_F(TreeTest, UserSelectionIsToldAndItsDescriptionShown)
{
    journal.hearsSelection = true;
    browser->showDialog(&journal, 600, 700, {}, {});
    ASSERT_TRUE(QTest::qWaitForWindowActive(browser->GetWidget()));
    EXPECT_TRUE(journal.take().empty()) << "showing selects nothing";
    click("Width", 0);
    press(Qt::Key_Down);
    EXPECT_EQ(journal.take(), (Lines { "Selection Width", "Selection ExposureTime" }));
    browser->setItemDescription("Width", "about Width");
    browser->setItemDescription("ExposureTime", "<b>plain</b> \r\ntext \r\n");
    const auto* description = child<QPlainTextEdit>("descriptionText");
    const auto* title = child<QWidget>("descriptionPane")->findChild<QLabel*>();
    EXPECT_EQ(description->toPlainText(), "<b>plain</b>\ntext");
    EXPECT_EQ(title->text(), "ExposureTime");
    EXPECT_TRUE(title->font().bold());
    for (const auto& [name, words] : std::map<const char*, const char*> {
             { "Camera", "" }, { "PixelFormat", "The camera does not describe this feature" } }) {
        select(name);
        EXPECT_EQ(description->toPlainText(), "");
        EXPECT_EQ(description->placeholderText(), words);
    }
    browser->clearFeatureItems();
    EXPECT_EQ(description->placeholderText(), "Select a feature to read about it here");
    EXPECT_FALSE(title->isVisible());
}

TEST_F(TreeTest, SizesAndColumnsAreTheApplications)
{
    browser->showDialog(&journal, 500, 400, { 210, 120 }, {});
    EXPECT_EQ(browser->GetWidget()->size(), QSize(500, 400));
    EXPECT_EQ(tree()->columnWidth(0), 210);
    EXPECT_EQ(tree()->columnWidth(1), 120);
    EXPECT_TRUE(browser->GetWidget()->windowFlags().testFlag(Qt::WindowMaximizeButtonHint));
    EXPECT_FALSE(child<QSplitter>()->isCollapsible(0));
    EXPECT_TRUE(journal.take().empty());
    tree()->header()->resizeSection(0, 180);
    browser->setVisibility(LEVEL_EXPERT);
    browser->closeDialog();
    EXPECT_EQ(journal.take(), (Lines { "Column 0 180", "Close 500 400 2" }));
    EXPECT_FALSE(browser->isVisible());
    browser->showStandalone(nullptr, 0, -1, { 0, -5 }, {});
    EXPECT_EQ(tree()->columnWidth(0), 180);
    EXPECT_EQ(browser->GetWidget()->size(), QSize(500, 400));
    EXPECT_TRUE(browser->GetWidget()->windowType() == Qt::Window && browser->isVisible());
    browser->hideDialog();
    EXPECT_FALSE(browser->isVisible());
    browser->showDialog();
    EXPECT_TRUE(browser->isVisible());
    EXPECT_TRUE(journal.take().empty());
}

} // namespace featurebrowser
