// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <string>
#include <variant>
#include <vector>

namespace featurebrowser {

/// In the feature's unit, as its limits.
struct IntegerValue {
    qint64 value = 0;
    qint64 minimum = 0;
    qint64 maximum = 0;
    quint32 increment = 0; ///< 0 = no grid
};

/// In the feature's unit, as its limits. Any of them may be infinite or NaN.
struct FloatValue {
    double value = 0;
    double minimum = 0;
    double maximum = 0;
    double increment = 0; ///< 0 = no grid
};

/// Texts, addresses and the captions of commands. UTF-8.
struct TextValue {
    std::string text;
    unsigned int maxLength = 0; ///< bytes, 0 = not known
};

/// Enumerations and booleans. `index` outside of `entries`: no entry is chosen.
struct ChoiceValue {
    int index = -1;
    std::vector<std::string> entries;
};

/// What a row holds; which of them follows from the row's kind and stays.
using RowValue = std::variant<std::monostate, IntegerValue, FloatValue, TextValue, ChoiceValue>;

/// Whether both hold the same, whatever their limits. A NaN is the same as another one.
bool sameValue(const RowValue& a, const RowValue& b);
/// Whether both have the same limits, lengths or entries, whatever they hold.
bool sameLimits(const RowValue& a, const RowValue& b);

} // namespace featurebrowser
