// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQSettings.h"

namespace zqcameralib {

/// For those who make settings: a parser, a saving.
class ZQSettings::Access {
public:
    explicit Access(ZQSettings& settings)
        : m_settings(settings)
    {
    }

    ZQSettingsHeader& header() { return m_settings.m_header; }
    std::vector<ZQSettingsLine>& lines() { return m_settings.m_lines; }
    std::vector<ZQSettingsLeftOut>& leftOut() { return m_settings.m_leftOut; }
    void setAllPositions(bool all) { m_settings.m_hasAllPositions = all; }

private:
    ZQSettings& m_settings;
};

} // namespace zqcameralib
