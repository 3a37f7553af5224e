// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/StatusCodes.h"
#include "capture/SettingsPlan.h"
#include "settings/SettingsBuilding.h"
#include "transfer/SettingsRestoring.h"
#include "words/Words.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace zqcameralib {

using Outcome = ZQRestoredLine::Outcome;

namespace {
/// Lines of one feature, each at a position of its own.
constexpr std::size_t fewestOfATable = 64;
}

SettingsTask::Step ZQSettingsRestoring::Impl::begin()
{
    if (camera().port().backend().isReadOnly()) {
        fail(translated("the camera is opened for reading only"));
        return Step::Over;
    }
    resolve();
    if (!m_options.isDryRun) {
        findTables();
    }
    m_reading.emplace(camera(), positions(), settingsToKeep(), targets(false));
    m_phase = Phase::Read;
    return Step::Next;
}

/// Of a feature with many lines, which no other line can change, each is read before and written at
/// one visit of its position: to go to all positions twice would take longer than all the rest.
void ZQSettingsRestoring::Impl::findTables()
{
    std::map<const Feature*, std::size_t> lines;
    for (const Goal& goal : m_goals) {
        lines[goal.target.feature] += goal.target.path.empty() ? 0U : 1U;
    }
    for (const auto& [feature, count] : lines) {
        if (count < fewestOfATable) {
            continue;
        }
        const RestoreOrder::Features selectors = selectorsOf(camera(), *feature);
        std::vector<std::size_t> others;
        for (const auto& [other, ignored] : lines) {
            if (other != feature
                && std::find(selectors.begin(), selectors.end(), other) == selectors.end()) {
                others.push_back(other->index);
            }
        }
        const bool isChanged = camera().dependencies().affectedBy(others)[feature->index];
        for (Goal& goal : m_goals) {
            goal.isOfTable = goal.isOfTable || (goal.target.feature == feature && !isChanged);
        }
    }
}

/// What the lines can change, for taking them back.
RestoreOrder::Features ZQSettingsRestoring::Impl::settingsToKeep()
{
    RestoreOrder::Features settings;
    if (m_options.isDryRun) {
        return settings;
    }
    std::vector<std::size_t> nodes;
    std::set<const Feature*> tables;
    for (const Goal& goal : m_goals) {
        nodes.push_back(goal.target.feature->index);
        if (goal.isOfTable) {
            tables.insert(goal.target.feature);
        }
    }
    const std::vector<bool> affected = camera().dependencies().affectedBy(nodes);
    for (const Feature* feature : settingsPlan(camera()).features) {
        if (affected[feature->index] && tables.count(feature) == 0) {
            settings.push_back(feature);
        }
    }
    return settings;
}

/// Of several lines that mean the same here the last one counts, as where one after the other is
/// written.
void ZQSettingsRestoring::Impl::resolve()
{
    std::map<std::pair<const Feature*, std::string>, std::size_t> known;
    for (std::size_t i = 0; i < m_settings.lines().size(); ++i) {
        const Result<LineTarget> target = lineTarget(camera(), m_settings, i);
        ZQRestoredLine& line = m_report.lines[i];
        if (!target.isOk()) {
            const int code = target.status().code();
            line.outcome = code == unknownFeature || code == unknownEntry ? Outcome::UnknownHere
                                                                          : Outcome::Refused;
            line.reason = target.status().text();
            continue;
        }
        const LineTarget& found = target.value();
        const std::string place = ZQSettingsLine { "", statesOf(found.path), "", "", 0 }.label();
        const auto [same, isFirst] = known.emplace(std::pair(found.feature, place), m_goals.size());
        if (isFirst) {
            m_goals.emplace_back();
        } else {
            ZQRestoredLine& earlier = m_report.lines[m_goals[same->second].target.line];
            earlier.outcome = Outcome::Refused;
            earlier.reason = translated("a later line says it again");
        }
        m_goals[same->second].target = found;
    }
}

void ZQSettingsRestoring::Impl::warn()
{
    const ZQSettingsHeader& here = m_before.header();
    const ZQSettingsHeader& there = m_settings.header();
    using Member = std::string ZQSettingsHeader::*;
    const auto differs = [&](Member member) {
        return !(there.*member).empty() && !(here.*member).empty() && there.*member != here.*member;
    };
    std::vector<std::string>& warnings = m_report.warnings;
    if (differs(&ZQSettingsHeader::vendor) || differs(&ZQSettingsHeader::model)) {
        warnings.push_back(worded("the settings are of another model: %s, here %s",
            (there.vendor + " " + there.model).c_str(), (here.vendor + " " + here.model).c_str()));
        return;
    }
    if (differs(&ZQSettingsHeader::firmware)) {
        warnings.push_back(worded("the settings are of another firmware: %s, here %s",
            there.firmware.c_str(), here.firmware.c_str()));
    }
    if (differs(&ZQSettingsHeader::descriptionChecksum)) {
        warnings.push_back(
            worded("the settings are of another description: version %s, here version %s",
                there.descriptionVersion.c_str(), here.descriptionVersion.c_str()));
    }
}

/// With the lines that name what is no setting by itself.
void ZQSettingsRestoring::Impl::keepBefore(std::vector<ZQSettingsLine> lines)
{
    std::set<std::string> known;
    for (const ZQSettingsLine& line : lines) {
        known.insert(line.label());
    }
    ZQSettings::Access(m_before).lines() = std::move(lines);
    for (const Goal& goal : m_goals) {
        const LineTarget& target = goal.target;
        const ZQSettingsLine line { target.feature->name, statesOf(target.path), {}, {}, 0 };
        if (goal.before && goal.before->isOk() && known.insert(line.label()).second) {
            keepBefore(goal);
        }
    }
}

void ZQSettingsRestoring::Impl::keepBefore(const Goal& goal)
{
    ZQSettings::Access(m_before).lines().push_back(zqcameralib::lineOf(
        camera().description(), *goal.target.feature, goal.target.path, goal.before->value()));
}

} // namespace zqcameralib
