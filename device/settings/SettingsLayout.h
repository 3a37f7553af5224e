// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "settings/TextLines.h"

#include "featurebrowser/ZQSettings.h"

#include <optional>
#include <string>

namespace zqcameralib {

// The two layouts of settings as text. What cannot be parsed gives nothing, and what is wrong goes
// to the lines (TextLines::fault).

std::string ownText(const ZQSettings& settings);
std::optional<ZQSettings> parseOwnText(TextLines& lines);

std::string persistenceText(const ZQSettings& settings);
std::optional<ZQSettings> parsePersistenceText(TextLines& lines);

/// Of whichever layout it is.
std::optional<ZQSettings> parseSettings(TextLines& lines);

/// Finds lines that stand twice: with the same value or another one, both are damage. False, with
/// the fault, where there is one.
bool areDistinct(const std::vector<ZQSettingsLine>& settings, TextLines& lines);

} // namespace zqcameralib
