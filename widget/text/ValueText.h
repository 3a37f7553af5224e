// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/FeatureRow.h"

namespace featurebrowser {

/// U+2014, shown where a feature has no value to show.
QString noValueText();

/// Locale-free. Fixed with getNumberOfDecimals decimals; scientific where that would lose digits
/// (very small) or be unreadable (1e15 and above). "nan", "inf", "-inf" when it is no number.
QString floatText(double value);

/// The shortest text that reads back to exactly the same double: what an editor starts with.
QString exactFloatText(double value);

/// A value as rows show it, without the unit; empty for none.
QString heldText(const RowValue& value);

/// What the Value column shows, without the unit; empty for categories.
QString valueText(const FeatureRow& row);

/// What an editor starts with: the value with every digit, empty where there is none to show.
QString editText(const FeatureRow& row);

/// As valueText, with the unit behind it where there is one.
QString valueWithUnit(const FeatureRow& row);

/// The unit as the feature's description names it, for example "us" in "Exposure time in us" or
/// "[us]"; empty when it names none.
QString rowUnit(const FeatureRow& row);

/// Entry names as texts; empty for other kinds than enumeration and boolean.
QStringList entryTexts(const FeatureRow& row);

} // namespace featurebrowser
