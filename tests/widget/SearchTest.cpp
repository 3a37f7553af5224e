// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "WidgetTest.h"

#include <QLabel>

namespace featurebrowser {

namespace {

class SearchTest : public WidgetTest {
protected:
    SearchTest()
    {
        browser->addSubCategory("Camera", "AnalogControl", LEVEL_BEGINNER);
        for (const char* name : { "GainAuto", "Gain", "Black_Level", "BlackLevelRaw" }) {
            addInteger("AnalogControl", name);
        }
        show();
    }
    std::string hits() const { return child<QLabel>("hitLabel")->text().toStdString(); }
    std::string enter(Qt::KeyboardModifiers modifiers = {}) const
    {
        press(Qt::Key_Return, modifiers);
        EXPECT_TRUE(child<QWidget>("filterField")->hasFocus());
        return tree()->currentIndex().siblingAtColumn(0).data().toString().toStdString() + ' '
            + hits();
    }
};

} // namespace

TEST_F(SearchTest, WordsAreFoundInAnyOrderAndPlace)
{
    describeFeatures(window(), { [] {
        auto item = std::make_shared<FeatureItem>();
        item->name = "Gain";
        item->description = "Amplification in dB";
        return item;
    }() });
    EXPECT_EQ(row("Gain", 1).data(Qt::AccessibleTextRole), "1 dB, editable") << "from the start";
    for (const QStringList& row : table("searches")) {
        find(row[0].toUtf8());
        QStringList found;
        for (const char* name : { "Width", "ExposureTime", "DeviceUserID", "PixelFormat",
                 "GainAuto", "Gain", "Black_Level", "BlackLevelRaw" }) {
            if (isShown(name)) {
                found.append(name);
            }
        }
        EXPECT_EQ(found.join(' '), row[1]) << row[0].toStdString();
        EXPECT_EQ(hits(), std::to_string(found.size()) + (found.size() == 1 ? " hit" : " hits"));
    }
    find("");
    EXPECT_FALSE(child<QLabel>("hitLabel")->isVisible());
}

TEST_F(SearchTest, EnterGoesThroughTheHitsFromTheBestOneOn)
{
    find("gain");
    EXPECT_EQ(hits(), "2 hits");
    EXPECT_EQ(enter(), "Gain 2 of 2") << "its name";
    EXPECT_EQ(enter(), "GainAuto 1 of 2");
    EXPECT_EQ(enter(Qt::ShiftModifier), "Gain 2 of 2");
    EXPECT_EQ(enter(Qt::ShiftModifier), "GainAuto 1 of 2");
    find("black level");
    EXPECT_EQ(enter(), "Black_Level 1 of 2");
    find("BlackLev");
    EXPECT_EQ(enter(Qt::ShiftModifier), "BlackLevelRaw 2 of 2") << "around the beginning";
    find("a");
    for (const char* place : { "1 of 12", "2 of 12", "3 of 12" }) {
        press(Qt::Key_Return);
        EXPECT_EQ(hits(), place) << "one by one";
    }
    find("nothing of that");
    EXPECT_EQ(enter(), " 0 hits");
    EXPECT_TRUE(journal.take().empty());
}

} // namespace featurebrowser
