// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "nodemap/LegacyAccess.h"

#include "base/NumberText.h"

#include <algorithm>
#include <array>
#include <tuple>
#include <utility>

namespace zqcameralib {

namespace {

/// Vendor and model, as their descriptions name them; known to Aravis and its users.
constexpr std::array<std::pair<std::string_view, std::string_view>, 5> behavingAsOlder { {
    { "Imperx", "IpxGEVCamera" },
    { "KowaOptronics", "SC130ET3" },
    { "PleoraTechnologiesInc", "iPORTCLGigE" },
    { "PleoraTechnologiesInc", "NTxGigE" },
    { "Sony", "XCG_CGSeries" },
} };

} // namespace

bool wantsRegisterAccess(const Description& description)
{
    const auto version = [&description](const char* attribute) {
        return leadingInteger(description.root().attribute(attribute).value());
    };
    if (std::make_tuple(version("SchemaMajorVersion"), version("SchemaMinorVersion"))
        < std::make_tuple(1, 1)) {
        return true;
    }
    return std::any_of(behavingAsOlder.begin(), behavingAsOlder.end(), [&](const auto& known) {
        return known.first == description.vendor() && known.second == description.model();
    });
}

} // namespace zqcameralib
