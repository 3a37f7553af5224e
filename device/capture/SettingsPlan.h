// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"

#include "featurebrowser/ZQSettings.h"

#include <string_view>
#include <vector>

namespace zqcameralib {

/// Which features of a camera are settings.
struct SettingsPlan {
    std::vector<const Feature*> features; ///< in the order of the tree
    std::vector<ZQSettingsLeftOut> leftOut; ///< those that would be, but never can be saved
};
SettingsPlan settingsPlan(const ZQCamera::Impl& camera);

/// All selectors that choose the instance of a feature, outermost first: each stands behind those
/// that select it.
std::vector<const Feature*> selectorsOf(const ZQCamera::Impl& camera, const Feature& feature);

/// Whose camera it is now. What cannot be read is empty. Waits for some registers.
ZQSettingsHeader settingsHeader(ZQCamera::Impl& camera);

} // namespace zqcameralib
