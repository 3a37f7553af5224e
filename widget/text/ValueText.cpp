// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "text/ValueText.h"

#include "featurebrowser/CameraFeatureBrowser.h"

#include <QStringList>

#include <array>
#include <charconv>
#include <cmath>

namespace featurebrowser {

namespace {

template <typename... Format> QString formatted(double value, Format... format)
{
    std::array<char, 400> buffer {};
    const auto result
        = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, format...);
    return QString::fromLatin1(buffer.data(), static_cast<int>(result.ptr - buffer.data()));
}

// Of nine digits, without trailing zeros.
QString scientificText(double value)
{
    return formatted(value, std::chars_format::general, 9);
}

// Fixed notation has 15 decimals at most, so that below 1e-6 it might drop some of the nine digits.
bool needsScientific(double value)
{
    const double magnitude = std::fabs(value);
    return magnitude >= 1e15
        || (magnitude < 1e-6
            && scientificText(value).toDouble()
                != formatted(value, std::chars_format::fixed, getNumberOfDecimals(value))
                       .toDouble());
}

QString choiceText(const ChoiceValue& choice)
{
    if (choice.index < 0 || static_cast<std::size_t>(choice.index) >= choice.entries.size()) {
        return noValueText();
    }
    return toText(choice.entries[static_cast<std::size_t>(choice.index)]);
}

} // namespace

QString noValueText()
{
    return { QChar(0x2014) };
}

QString floatText(double value)
{
    if (value == 0) {
        return QStringLiteral("0"); // also for -0
    }
    if (!std::isfinite(value)) {
        return std::isnan(value) ? QStringLiteral("nan") : formatted(value);
    }
    if (needsScientific(value)) {
        return scientificText(value);
    }
    return formatted(value, std::chars_format::fixed, getNumberOfDecimals(value));
}

QString exactFloatText(double value)
{
    if (!std::isfinite(value) || value == 0) {
        return floatText(value);
    }
    const double magnitude = std::fabs(value);
    return magnitude < 1e-6 || magnitude >= 1e15 ? formatted(value)
                                                 : formatted(value, std::chars_format::fixed);
}

QString heldText(const RowValue& value)
{
    if (const auto* integer = std::get_if<IntegerValue>(&value)) {
        return QString::number(integer->value);
    }
    if (const auto* number = std::get_if<FloatValue>(&value)) {
        return floatText(number->value);
    }
    if (const auto* text = std::get_if<TextValue>(&value)) {
        return toText(text->text);
    }
    if (const auto* choice = std::get_if<ChoiceValue>(&value)) {
        return choiceText(*choice);
    }
    return {};
}

QString valueText(const FeatureRow& row)
{
    return row.isCategory() || row.hasValue ? heldText(row.value) : noValueText();
}

QString editText(const FeatureRow& row)
{
    if (!row.hasValue) {
        return {};
    }
    const auto* number = std::get_if<FloatValue>(&row.value);
    return number != nullptr ? exactFloatText(number->value) : valueText(row);
}

QString valueWithUnit(const FeatureRow& row)
{
    const QString unit = rowUnit(row);
    return unit.isEmpty() ? valueText(row) : valueText(row) + QLatin1Char(' ') + unit;
}

QString rowUnit(const FeatureRow& row)
{
    return row.about().unit;
}

QStringList entryTexts(const FeatureRow& row)
{
    QStringList texts;
    if (const auto* choice = std::get_if<ChoiceValue>(&row.value)) {
        for (const std::string& entry : choice->entries) {
            texts.append(toText(entry));
        }
    }
    return texts;
}

} // namespace featurebrowser
