// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>
#include <string>

namespace featurebrowser {

/// A number as read from what a user typed, or the reason why it is none.
template <typename T> struct NumberInput {
    std::optional<T> value;
    QString problem; ///< for the user; empty when there is a value
};

/// Decimal, also in groups of thousands with blanks between, or, with "0x" and without a minus,
/// hexadecimal; a unit after it is converted to `unit`, the feature's own. Anything that is not a
/// whole number of 64 bits is a problem, never another number. Minus signs and blanks may be those
/// of typesetting.
NumberInput<qint64> readInteger(const QString& text, const QString& unit);

/// Decimal point or comma, groups of thousands, exponent, a unit as above. A text that can be read
/// in two ways ("1,500") is a problem.
NumberInput<double> readFloat(const QString& text, const QString& unit);

/// An entry's place as a program writes it, decimal; -1 when there is no number.
int readIndex(const std::string& text);

} // namespace featurebrowser
