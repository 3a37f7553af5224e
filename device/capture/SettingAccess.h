// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"

#include <string>
#include <string_view>

namespace zqcameralib {

// The value of one feature as settings tell it (ZQSettingsLine::value). What fails says in its
// text, without the feature's name, why.

/// Reads it where the selectors stand.
Result<std::string> readSetting(ZQCamera::Impl& camera, const Feature& feature);
/// Writes it, after the checks of every write. unknownEntry where the description has no such
/// entry, invalidArgument where the text is no value of this kind.
Status writeSetting(ZQCamera::Impl& camera, const Feature& feature, const std::string& value);
/// Whether the text can be a value of the feature at all, whatever its limits are now; a failure as
/// of writeSetting.
Status checkSetting(const Feature& feature, const std::string& value);
/// Whether this is what the camera, its description or our checks say, and not an access that has
/// failed.
bool isAnswer(const Status& status);
/// Whether the value that was read is the one that is asked for.
bool isSetting(const Feature& feature, const std::string& asked, const std::string& read);
/// Of the feature, or of what its value comes from; empty where there is none.
std::string unitOf(const Description& description, const Feature& feature);
/// A feature that holds a setting, or a position of a selector: it has a value that can be told in
/// a line of text.
bool hasSetting(const Feature& feature);

} // namespace zqcameralib
