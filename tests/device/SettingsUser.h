// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "SettingsTools.h"
#include "TestCamera.h"

#include "capture/SettingAccess.h"

#include "featurebrowser/ZQSettings.h"

#include <chrono>
#include <cstdlib>
#include <set>
#include <string>

/// Long enough for any task in process.
constexpr std::chrono::seconds settingsLimit(600);

inline zqcameralib::ZQSettings saved(TestCamera& camera)
{
    zqcameralib::ZQSettingsSaving saving(*camera.camera);
    EXPECT_EQ(saving.wait(settingsLimit), zqcameralib::ZQCameraTask::State::Done) << saving.error();
    return saving.takeSettings();
}

/// What the lines name, as the camera holds it.
inline zqcameralib::ZQSettings savedAs(TestCamera& camera, const zqcameralib::ZQSettings& lines)
{
    zqcameralib::ZQSettingsSaving saving(*camera.camera, lines);
    EXPECT_EQ(saving.wait(settingsLimit), zqcameralib::ZQCameraTask::State::Done) << saving.error();
    return saving.takeSettings();
}

/// The simulated camera's settings but for its many look-up values.
inline zqcameralib::ZQSettings withoutTables(TestCamera& camera)
{
    const zqcameralib::ZQSettings settings = saved(camera);
    std::vector<std::string> labels;
    for (const zqcameralib::ZQSettingsLine& line : settings.lines()) {
        if (line.name != "LUTValue") {
            labels.push_back(line.label());
        }
    }
    return settings.only(labels);
}

/// Does something while the Nth access fails, none for 0; how many accesses there were.
inline std::uint64_t withFault(
    TestCamera& camera, std::uint64_t failing, const std::function<void()>& work)
{
    std::uint64_t count = 0;
    camera.port.setFaultHook([&count, failing](auto, auto, bool) { return ++count == failing; });
    camera.port.invalidate();
    work();
    camera.port.setFaultHook(nullptr);
    return count;
}

/// All values that the camera shows, where the selectors stand.
inline std::string everything(TestCamera& camera)
{
    std::string text;
    camera.port.invalidate();
    camera.repository.Load();
    for (const auto& item : camera.repository.GetFeatureList()) {
        if (!camera.changesByItself(item->name)) {
            text += item->name + " " + item->valueText + "\n";
        }
    }
    return text;
}

inline std::string valueIn(const zqcameralib::ZQSettings& settings, const std::string& label)
{
    const zqcameralib::ZQSettingsLine* line = settings.find(label);
    return line == nullptr ? "(no line)" : line->value;
}

inline std::string labels(const zqcameralib::ZQSettings& settings)
{
    std::string text;
    for (const zqcameralib::ZQSettingsLine& line : settings.lines()) {
        text += (text.empty() ? "" : " ") + line.label();
    }
    return text;
}

inline std::string leftOut(const zqcameralib::ZQSettings& settings)
{
    std::string text;
    for (const zqcameralib::ZQSettingsLeftOut& each : settings.leftOut()) {
        text += each.label + ": " + each.reason + "\n";
    }
    return text;
}

inline std::string differences(
    const zqcameralib::ZQSettings& first, const zqcameralib::ZQSettings& second)
{
    std::string text;
    for (const auto& difference : zqcameralib::ZQSettings::Compare(first, second)) {
        text += difference.text() + "\n";
    }
    return text;
}

/// Some faults in the usual run, all of them with ZQ_ALL_FAULTS.
inline std::uint64_t stepOf(std::uint64_t few)
{
    return std::getenv("ZQ_ALL_FAULTS") == nullptr ? few : 1;
}

inline zqcameralib::ZQRestoreReport restored(TestCamera& camera,
    const zqcameralib::ZQSettings& settings,
    const zqcameralib::ZQSettingsRestoring::Options& options = {})
{
    zqcameralib::ZQSettingsRestoring restoring(*camera.camera, settings, options);
    EXPECT_EQ(restoring.wait(settingsLimit), zqcameralib::ZQCameraTask::State::Done)
        << restoring.error();
    return restoring.report();
}

inline zqcameralib::ZQSettings settingsOf(const std::string& lines, const std::string& header = "")
{
    zqcameralib::ZQSettings settings;
    std::string error;
    const std::string text = "[camera settings 1]\n" + header + "[lines]\n" + lines + "[end]\n";
    EXPECT_TRUE(zqcameralib::ZQSettings::Parse(text, settings, error)) << error;
    return settings;
}

/// Whether every line of a report says what the camera holds.
inline void expectTrue(TestCamera& camera, const zqcameralib::ZQSettings& settings,
    const zqcameralib::ZQRestoreReport& report, const std::string& when)
{
    const zqcameralib::ZQSettings now = savedAs(camera, settings);
    ASSERT_EQ(report.lines.size(), settings.lines().size());
    for (const zqcameralib::ZQRestoredLine& line : report.lines) {
        const std::string label = line.line.label();
        const std::string held = valueIn(now, label);
        const bool isHeld = zqcameralib::isSameValue(held, line.line.value);
        switch (line.outcome) {
        case zqcameralib::ZQRestoredLine::Outcome::Restored:
        case zqcameralib::ZQRestoredLine::Outcome::AlreadySo:
            EXPECT_TRUE(isHeld) << label << " " << held << " " << when;
            break;
        case zqcameralib::ZQRestoredLine::Outcome::Adjusted:
            EXPECT_EQ(held, line.now) << label << " " << when;
            EXPECT_FALSE(isHeld) << label << " " << when;
            break;
        case zqcameralib::ZQRestoredLine::Outcome::Refused:
            EXPECT_FALSE(isHeld) << label << " " << line.reason << " " << when;
            break;
        default:
            EXPECT_NE(line.reason, "") << label << " " << when;
        }
    }
}

/// Text of a report without its first line.
inline std::string details(const zqcameralib::ZQRestoreReport& report, bool all = true)
{
    const std::string text = report.toText(all);
    return text.substr(text.find('\n') + 1);
}
