// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "WidgetTest.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QFile>

#include <ctime>

// Stands before the one of the standard library.
std::chrono::steady_clock::time_point std::chrono::steady_clock::now() noexcept
{
    timespec time {};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return featurebrowser::heldTime.value_or(
        time_point(seconds(time.tv_sec) + nanoseconds(time.tv_nsec)));
}

namespace featurebrowser {

std::optional<std::chrono::steady_clock::time_point> heldTime;

WidgetTest::WidgetTest()
    : browser(std::make_unique<CameraFeatureBrowser>(nullptr))
{
    // Ends the test program at the first thing that no view may rely on.
    new QAbstractItemModelTester(tree()->model(),
        QAbstractItemModelTester::FailureReportingMode::Fatal, browser->GetWidget());
    const auto none = SELECTOR_NONE;
    CameraFeatureBrowser& b = *browser;
    b.addCategory("Camera", LEVEL_BEGINNER);
    b.addIntFeature("Camera", "Width", 640, 16, 4096, 16, LEVEL_BEGINNER, false, true, none, "");
    b.addDoubleFeature("Camera", "ExposureTime", 5000, 1, 1e6, 0, LEVEL_BEGINNER,
        SLIDER_LOGARITHMIC, false, true, none, "");
    b.addStringFeature(
        "Camera", "DeviceUserID", "left", LEVEL_EXPERT, 8, false, true, ADDRESS_NONE, none, "");
    b.addEnumFeature("Camera", "PixelFormat", 0, { "Mono8", "Mono12", "RGB8" }, LEVEL_BEGINNER,
        false, false, true, none, "");
    b.addEnumFeature(
        "Camera", "ReverseX", 0, { "False", "True" }, LEVEL_BEGINNER, false, true, true, none, "");
    b.addCommandFeature(
        "Camera", "AcquisitionStart", "Start", LEVEL_BEGINNER, false, true, none, "");
    b.addStringFeature("Camera", "GevCurrentIPAddress", "10.0.0.1", LEVEL_GURU, 0, false, true,
        ADDRESS_IPV4, none, "");
    b.addStringFeature("Camera", "GevMACAddress", "00:00:00:00:00:01", LEVEL_GURU, 0, true, true,
        ADDRESS_MAC, none, "");
}

std::vector<QStringList> WidgetTest::table(const char* heading)
{
    QFile file(WIDGET_TABLES);
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll()) + '\n';
    const auto start = text.indexOf(QStringLiteral("\n== %1:").arg(heading)) + 1;
    std::vector<QStringList> rows;
    const QStringList lines = text.mid(start, text.indexOf("\n\n", start) - start).split('\n');
    for (const QString& line : lines.mid(1)) {
        QStringList row;
        for (const QString& column : line.split('|')) {
            row.append(column.trimmed().replace("\\r", "\r").replace("\\n", "\n"));
        }
        rows.push_back(row);
    }
    EXPECT_FALSE(rows.empty()) << heading;
    return rows;
}

void WidgetTest::show()
{
    browser->showDialog(&journal, 600, 700, {}, {});
    ASSERT_TRUE(waitForActive(window()));
    tree()->expandAll();
    tree()->setFocus();
    QApplication::processEvents();
    journal.take();
    journal.answer = [this](const std::string& event) { confirm(event); };
}

void WidgetTest::confirm(const std::string& event) const
{
    const QStringList parts = QString::fromStdString(event).split(' ');
    const std::string name = parts.value(1).toStdString();
    const std::string value = parts.mid(2).join(' ').toStdString();
    const auto limit = [&](const char* roleName) { return role(name, roleName); };
    if (parts[0] == "Int") {
        setInteger(name, parts[2].toLong(), limit("minimum").toLongLong(),
            limit("maximum").toLongLong(), limit("increment").toUInt());
    } else if (parts[0] == "Double") {
        setFloat(name, parts[2].toDouble(), limit("minimum").toDouble(),
            limit("maximum").toDouble(), limit("increment").toDouble());
    } else if (parts[0] == "Enum" || parts[0] == "Bool") {
        std::list<std::string> entries;
        for (const QString& entry : limit("entries").toStringList()) {
            entries.push_back(entry.toStdString());
        }
        setChoice(name, parts.back().toUtf8(), entries);
    } else if (parts[0] == "String" || parts[0] == "IP") {
        setText(name, value.c_str());
    }
}

void WidgetTest::addInteger(const std::string& category, const std::string& name, long value,
    TYPE_LEVEL level, const std::string& selectors) const
{
    browser->addIntFeature(category, name, value, 0, 9, 1, level, false, true,
        selectors.empty() ? SELECTOR_NONE : SELECTOR_SELECTED, selectors);
}

void WidgetTest::addSelector(const std::string& category, const std::string& name,
    std::list<std::string> entries, int index) const
{
    browser->addEnumFeature(category, name, index, std::move(entries), LEVEL_BEGINNER, false, false,
        true, SELECTOR_SELECTOR, "");
}

void WidgetTest::setInteger(const std::string& name, long value, long min, long max,
    unsigned int inc, bool readOnly, bool flag) const
{
    browser->modifyFeature(name, value, min, max, inc, readOnly, flag);
}

void WidgetTest::setFloat(const std::string& name, double value, double min, double max, double inc,
    bool readOnly, bool flag) const
{
    browser->modifyFeature(name, value, min, max, inc, readOnly, flag);
}

void WidgetTest::setText(const std::string& name, const char* value, bool readOnly) const
{
    browser->modifyFeature(name, value, CAM_TYPE_STRING, {}, readOnly, true);
}

void WidgetTest::setChoice(
    const std::string& name, const char* index, std::list<std::string> entries, bool readOnly) const
{
    browser->modifyFeature(name, index, CAM_TYPE_ENUMERATION, std::move(entries), readOnly, true);
}

void WidgetTest::setStates(std::map<std::string, FEATURE_STATE> states) const
{
    browser->modifyFeatureStates(states);
}

std::string WidgetTest::said(const std::string& name, int role) const
{
    return row(name).data(role).toString().toStdString();
}

bool WidgetTest::isShown(const std::string& name) const
{
    QApplication::processEvents();
    return tree()->visualRect(row(name)).isValid();
}

void WidgetTest::find(const char* what) const
{
    QTest::keySequence(window(), QKeySequence::Find);
    press(*what != '\0' ? Qt::Key_Backspace : Qt::Key_Escape);
    type(what);
}

} // namespace featurebrowser
