// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "capture/SettingsTask.h"
#include "transfer/SettingsRestoring.h"
#include "transfer/SettingsSaving.h"

#include "featurebrowser/ZQSettings.h"

#include <chrono>
#include <optional>

namespace zqcameralib {

/// Loads or saves a user set; or looks into one, between a saving and a restoring of the settings.
class __attribute__((visibility("hidden"))) ZQUserSet::Impl : public SettingsTask {
public:
    Impl(ZQCamera& camera, std::string set, Action action);
    ~Impl() override { cancel(); }

    static std::vector<std::string> names(ZQCamera::Impl& camera);

    ZQCameraTask::Progress progress() const override;
    const ZQSettings& contents() const { return m_contents; }
    const ZQSettings& now() const { return m_now; }
    const ZQRestoreReport& report() const { return m_report; }

private:
    using Clock = std::chrono::steady_clock;
    enum class Phase { ReadNow, Start, Run, ReadContents, Restore };

    Step step() override;
    void finish() override;
    Step start();
    Step run();
    Step readInto(ZQSettings& settings, Phase next);
    Step restore();
    const char* command() const { return m_action == Action::Save ? "UserSetSave" : "UserSetLoad"; }
    void warn();

    ZQCamera& m_opened;
    std::string m_set;
    Action m_action;
    Phase m_phase;
    Clock::time_point m_runEnd;
    std::optional<ZQSettingsSaving::Impl> m_saving;
    std::optional<ZQSettingsRestoring::Impl> m_restoring;
    bool m_isToBeRestored = false;
    ZQSettings m_now;
    ZQSettings m_contents;
    ZQRestoreReport m_report;
};

} // namespace zqcameralib
