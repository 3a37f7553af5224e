// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace featurebrowser {

/// The unit that a feature's description names: "Unit: us", "[us]", "(us)", "in us",
/// "in microseconds"; empty when it names none that is known.
QString unitFromDescription(const QString& description);

/// The power of ten that turns a value in unit `from` into one in unit `to`, for example 3 for "ms"
/// into "us"; nothing when the two are not units of one quantity.
std::optional<int> unitExponent(const QString& from, const QString& to);

} // namespace featurebrowser
