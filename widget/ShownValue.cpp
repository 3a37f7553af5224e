// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What rows show, for programs without a window.
#include "row/FeatureRow.h"
#include "text/NumberInput.h"
#include "text/RowText.h"
#include "text/ValueText.h"

#include "featurebrowser/CameraFeatureBrowser.h"

#include <QStringList>

#include <charconv>

namespace featurebrowser {

namespace {

template <typename Number> Number numberOf(const std::string& text)
{
    Number number {};
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool nameHas(const FeatureItem& item, const char* part)
{
    return item.name.find(part) != std::string::npos;
}

std::string ipv4Text(qint64 address)
{
    QStringList parts;
    for (const int shift : { 24, 16, 8, 0 }) {
        parts.append(QString::number((address >> shift) & 0xFF));
    }
    return parts.join(QLatin1Char('.')).toStdString();
}

RowValue integerOrAddress(const FeatureItem& item)
{
    const auto value = numberOf<qint64>(item.valueText);
    const bool isAddress = item.representation == REPRESENTATION_ADDRESS;
    if (isAddress && nameHas(item, "MAC")) {
        return TextValue { convertToMACAddress(value) };
    }
    if (item.representation == REPRESENTATION_IPV4 || (isAddress && nameHas(item, "Gev"))) {
        return TextValue { ipv4Text(value) };
    }
    return IntegerValue { value };
}

RowValue valueOf(const FeatureItem& item)
{
    switch (item.type) {
    case FEATURE_INTEGER:
        return integerOrAddress(item);
    case FEATURE_FLOAT:
        return FloatValue { numberOf<double>(item.valueText) };
    case FEATURE_ENUMERATION:
    case FEATURE_BOOLEAN:
        return ChoiceValue { readIndex(item.valueText),
            { item.enumEntries.begin(), item.enumEntries.end() } };
    default:
        return TextValue { item.valueText };
    }
}

} // namespace

std::string getShownValue(const FeatureItem& item)
{
    return oneLine(heldText(valueOf(item))).toStdString();
}

} // namespace featurebrowser
