#include "WidgetTest.h"

#include <QLabel>

namespace featurebrowser {

namespace {

// Numbers are read where users type them.
class NumberInputTest : public WidgetTest {
protected:
    NumberInputTest()
    {
        show();
        browser->setItemDescription("ExposureTime", "Exposure time (in microseconds).");
    }
};

} // namespace

TEST_F(NumberInputTest, PointCommaAndUnitsAreUnderstood)
{
    const std::vector<std::pair<const char*, const char*>> cases { { "1.5", "1.5" },
        { "1,5", "1.5" }, { "0,500", "0.5" }, { "12345,678", "12345.678" }, { "1.500", "1.5" },
        { "1,234.5", "1234.5" }, { "1.234,5", "1234.5" }, { "1,234,567", "1234567" },
        { "1.234.567", "1234567" }, { "2,5e3", "2500" }, { "+7", "7" }, { ".5", "0.5" },
        { "20 ms", "20000" }, { "0.1ms", "100" }, { "1,5 s", "1500000" }, { "3 us", "3" },
        { "3 \u00B5s", "3" }, { "12.345.678,5", "12345678.5" }, { "-1,5", "-1.5" },
        { "2 SECONDS", "2000000" }, { "1E3", "1000" }, { "5e-1 ms", "500" } };
    for (const auto& [typed, value] : cases) {
        setFloat("ExposureTime", 9.0);
        edit("ExposureTime", typed);
        EXPECT_EQ(journal.take(), Lines { std::string("Double ExposureTime ") + value }) << typed;
    }
}

TEST_F(NumberInputTest, TheUnitStandsInTheDescription)
{
    const std::vector<std::pair<const char*, const char*>> cases { { "Time.\r\nUnit: ms\r\n",
                                                                       " ms" },
        { "Unit: furlongs", " furlongs" }, { "Exposure time in us.", " us" }, { "Delay [s]", " s" },
        { "Gain (dB) in an absolute unit", " dB" },
        { "Device temperature in degrees Celsius (C).", " \u00B0C" },
        { "Rate in frames per second", " fps" }, { "Sets the time (in practice, short)", "" },
        { "The mode in which it runs", "" }, { "", "" } };
    open("ExposureTime");
    for (const auto& [description, unit] : cases) {
        browser->setItemDescription("ExposureTime", description);
        EXPECT_EQ(row("ExposureTime", 1).data(Qt::AccessibleTextRole).toString(),
            QString("5000") + QString::fromUtf8(unit))
            << description;
    }
    for (const QLabel* label : window()->findChildren<QLabel*>()) {
        EXPECT_EQ(label->textFormat(), Qt::PlainText) << "what cameras say is no markup";
    }
}

TEST_F(NumberInputTest, WhatCanBeReadInTwoWaysOrNotAtAllIsNotLetOut)
{
    struct Case {
        const char* name;
        const char* typed;
        const char* message;
    };
    const std::vector<Case> cases {
        { "ExposureTime", "1,500", "“1,500” can be read in two ways: write 1.500 or 1500" },
        { "ExposureTime", "abc", "“abc” is not a number" },
        { "ExposureTime", "", "“” is not a number" },
        { "ExposureTime", "1.2.3", "“1.2.3” is not a number" },
        { "ExposureTime", "12,34.5", "“12,34.5” is not a number" },
        { "ExposureTime", "1.2,3.4", "“1.2,3.4” is not a number" },
        { "ExposureTime", "1,234,56", "“1,234,56” is not a number" },
        { "ExposureTime", "0x1F", "“0x1F” is not a number" },
        { "ExposureTime", "20 parsecs", "“parsecs” does not fit a feature in us" },
        { "ExposureTime", "20 dB", "“dB” does not fit a feature in us" },
        { "ExposureTime", "1e999", "“1e999” is beyond the range of numbers" },
        { "Width", "1.5", "“1.5” is not a whole number" },
        { "Width", "20 ms", "“20 ms” is not a number; the unit of this feature is not known" },
        { "Width", "9223372036854775808", "“9223372036854775808” does not fit into 64 bits" },
        { "GevCurrentIPAddress", "1.2.3",
            "“1.2.3” is not an IPv4 address: four numbers from 0 to 255 with points between" },
        { "GevCurrentIPAddress", "1.2.3.256",
            "“1.2.3.256” is not an IPv4 address: four numbers from 0 to 255 with points between" },
    };
    for (const Case& edited : cases) {
        edit(edited.name, edited.typed);
        EXPECT_TRUE(isEditing()) << "the typed text stays";
        EXPECT_EQ(message(), edited.message);
        press(Qt::Key_Escape);
        EXPECT_EQ(message(), "") << "what was typed is gone, and so is what was wrong with it";
    }
    EXPECT_TRUE(journal.take().empty());
}

} // namespace featurebrowser
