// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "capture/SettingsReading.h"
#include "capture/SettingsTask.h"

#include "featurebrowser/ZQSettings.h"

#include <optional>

namespace zqcameralib {

/// Reads all settings of a camera, or those that lines name.
class __attribute__((visibility("hidden"))) ZQSettingsSaving::Impl : public SettingsTask {
public:
    Impl(ZQCamera& camera, const ZQSettings* lines);
    ~Impl() override { cancel(); }

    ZQCameraTask::Progress progress() const override;
    ZQSettings takeSettings();

private:
    Step step() override;
    void begin();
    void collect();
    void finish() override { m_reading.reset(); }

    ZQSettings m_asked;
    bool m_isAsked;
    std::optional<SettingsReading> m_reading;
    ZQSettings m_settings;
};

} // namespace zqcameralib
