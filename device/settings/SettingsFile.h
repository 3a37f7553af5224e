// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>

namespace zqcameralib {

/// The content of a file of settings; nothing, with one line in `error`, when there is none that
/// could be one.
std::optional<std::string> readSettingsFile(const std::string& path, std::string& error);
/// Replaces the file as a whole. False, with one line in `error`, when it cannot be written.
bool writeSettingsFile(const std::string& path, const std::string& text, std::string& error);

} // namespace zqcameralib
