// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "transfer/SettingsSaving.h"

#include "capture/SettingAccess.h"
#include "capture/SettingsPlan.h"
#include "settings/SettingsBuilding.h"
#include "words/Words.h"

#include <utility>

namespace zqcameralib {

ZQSettingsSaving::Impl::Impl(ZQCamera& camera, const ZQSettings* lines)
    : SettingsTask(camera)
    , m_asked(lines == nullptr ? ZQSettings() : *lines)
    , m_isAsked(lines != nullptr)
{
}

ZQCameraTask::Progress ZQSettingsSaving::Impl::progress() const
{
    const bool isOver = state() == State::Done;
    const std::size_t all = m_settings.lines().size();
    return { translated("Reading the settings"),
        m_reading    ? m_reading->done()
            : isOver ? all
                     : 0,
        m_reading    ? m_reading->total()
            : isOver ? all
                     : 0 };
}

void ZQSettingsSaving::Impl::begin()
{
    ZQSettings::Access settings(m_settings);
    std::vector<LineTarget> targets;
    for (std::size_t i = 0; i < m_asked.lines().size(); ++i) {
        const Result<LineTarget> target = lineTarget(camera(), m_asked, i);
        if (target.isOk()) {
            targets.push_back(target.value());
        } else {
            settings.leftOut().push_back(
                { m_asked.lines()[i].label(), target.status().words().english() });
        }
    }
    SettingsPlan plan = m_isAsked ? SettingsPlan() : settingsPlan(camera());
    for (ZQSettingsLeftOut& leftOut : plan.leftOut) {
        settings.leftOut().push_back(std::move(leftOut));
    }
    m_reading.emplace(camera(), positions(), plan.features, std::move(targets));
}

SettingsTask::Step ZQSettingsSaving::Impl::step()
{
    if (!m_reading) {
        begin();
        return Step::Next;
    }
    if (m_settings.header().date.empty()) {
        m_settings.setHeader(settingsHeader(camera()));
        return Step::Next;
    }
    if (m_reading->step()) {
        return m_reading->isWaiting() ? Step::Wait : Step::Next;
    }
    collect();
    return Step::Over;
}

void ZQSettingsSaving::Impl::collect()
{
    ZQSettings::Access settings(m_settings);
    settings.lines() = m_reading->takeLines();
    for (const ZQSettingsLeftOut& leftOut : m_reading->leftOut()) {
        settings.leftOut().push_back(leftOut);
    }
    for (const auto& [index, value] : m_reading->targets()) {
        ZQSettingsLine line = m_asked.lines()[index];
        if (!value.isOk()) {
            settings.leftOut().push_back({ line.label(), value.status().words().english() });
            continue;
        }
        const Feature* feature = camera().feature(line.name);
        line.value = value.value();
        line.unit = feature == nullptr ? "" : unitOf(camera().description(), *feature);
        line.number = 0;
        settings.lines().push_back(std::move(line));
    }
    settings.setAllPositions(m_asked.hasAllPositions());
}

ZQSettings ZQSettingsSaving::Impl::takeSettings()
{
    return state() == State::Done ? std::exchange(m_settings, {}) : ZQSettings();
}

} // namespace zqcameralib
