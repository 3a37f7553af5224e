// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace zqcameralib {

/// The number that a text is, decimal or with 0x, where it is nothing else and fits into 64 bits.
std::optional<std::int64_t> exactInteger(std::string_view text);
/// The same in any locale.
std::optional<double> exactDouble(std::string_view text);
/// Whether two values of settings mean the same: "1.0" and "1", "True" and "1".
bool isSameValue(std::string_view a, std::string_view b);
/// Whether two units are the same but for how "micro" is written.
bool isSameUnit(std::string_view a, std::string_view b);

} // namespace zqcameralib
