// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "text/RowFacts.h"

#include "text/ValueText.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>
#include <cmath>

namespace featurebrowser {

namespace {

struct Words {
    Q_DECLARE_TR_FUNCTIONS(featurebrowser::RowFacts)
};

QString withUnit(const QString& text, const FeatureRow& row)
{
    const QString unit = rowUnit(row);
    return unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
}

QString numberText(qint64 value)
{
    return QString::number(value);
}

QString numberText(double value)
{
    return floatText(value);
}

template <typename Number> QString rangeText(const Number& limits, const FeatureRow& row)
{
    const bool hasMinimum = std::isfinite(static_cast<double>(limits.minimum));
    const bool hasMaximum = std::isfinite(static_cast<double>(limits.maximum));
    if (hasMinimum && hasMaximum) {
        return withUnit(
            numberText(limits.minimum) + QStringLiteral(" \u2026 ") + numberText(limits.maximum),
            row);
    }
    if (hasMinimum) {
        return Words::tr("from %1").arg(withUnit(numberText(limits.minimum), row));
    }
    return hasMaximum ? Words::tr("up to %1").arg(withUnit(numberText(limits.maximum), row))
                      : QString();
}

template <typename Number>
void addLimits(std::vector<RowFact>& facts, const Number& limits, const FeatureRow& row)
{
    facts.push_back({ Words::tr("Range"), rangeText(limits, row) });
    if (limits.increment > 0) {
        const QString step = numberText(static_cast<decltype(limits.minimum)>(limits.increment));
        facts.push_back({ Words::tr("Step"), withUnit(step, row) });
    }
}

QString lockReason(const FeatureRow& row)
{
    return row.access == RowAccess::ReadAndWriteButOpenedForReading
        ? Words::tr("The camera is opened for reading only")
        : Words::tr("Locked: the camera takes no changes of it now");
}

QString readOnlyReason(const FeatureRow& row)
{
    switch (row.access) {
    case RowAccess::ReadAndWrite:
    case RowAccess::Write:
    case RowAccess::ReadAndWriteButOpenedForReading:
        return lockReason(row);
    default:
        return row.kind == RowKind::Command ? Words::tr("Cannot be run") : Words::tr("Read-only");
    }
}

QString accessText(const FeatureRow& row)
{
    switch (row.access) {
    case RowAccess::Read:
        return Words::tr("read-only");
    case RowAccess::Write:
        return Words::tr("write-only");
    case RowAccess::ReadAndWrite:
    case RowAccess::ReadAndWriteButOpenedForReading:
        return Words::tr("read and write");
    case RowAccess::Unknown:
        break;
    }
    return {};
}

} // namespace

QString rowReason(const FeatureRow& row)
{
    if (row.isCategory()) {
        return {};
    }
    if (row.lost) {
        return Words::tr("The camera is lost: this is what it held last");
    }
    switch (row.state) {
    case FEATURE_NOT_AVAILABLE:
        return Words::tr("Not available in the camera's present configuration");
    case FEATURE_READ_FAILED:
        return Words::tr("Unread: the last attempt to read it from the camera failed");
    case FEATURE_LOCKED:
        return lockReason(row);
    default:
        break;
    }
    if (!row.isEditable()) {
        return readOnlyReason(row);
    }
    const bool isWriteOnly = row.access == RowAccess::Write && row.kind != RowKind::Command;
    return isWriteOnly ? Words::tr("Write-only: the camera does not tell its value") : QString();
}

std::vector<RowFact> rowFacts(const FeatureRow& row, const QString& reason)
{
    if (row.isCategory()) {
        return {};
    }
    std::vector<RowFact> facts { { {}, reason } };
    if (const auto* integer = std::get_if<IntegerValue>(&row.value)) {
        addLimits(facts, *integer, row);
    } else if (const auto* number = std::get_if<FloatValue>(&row.value)) {
        addLimits(facts, *number, row);
    } else if (const auto* text = std::get_if<TextValue>(&row.value);
               text != nullptr && text->maxLength > 0) {
        const int length = static_cast<int>(text->maxLength);
        facts.push_back({ Words::tr("Length"), Words::tr("at most %n byte(s)", nullptr, length) });
    }
    facts.push_back({ Words::tr("Unit"), rowUnit(row), false });
    if (row.kind != RowKind::Command) {
        facts.push_back({ Words::tr("Access"), accessText(row), false });
    }
    if (row.kind == RowKind::Enumeration) {
        facts.push_back(
            { Words::tr("Entries"), entryTexts(row).join(QStringLiteral(", ")), false });
    }
    const auto isEmpty = [](const RowFact& fact) { return fact.text.isEmpty(); };
    facts.erase(std::remove_if(facts.begin(), facts.end(), isEmpty), facts.end());
    return facts;
}

QString rowExplanation(const FeatureRow& row, const std::vector<RowFact>& facts)
{
    QStringList lines { toText(row.name) };
    if (!row.isCategory() && row.kind != RowKind::Command) {
        lines.append(valueWithUnit(row));
    }
    for (const RowFact& fact : facts) {
        if (fact.isBrief) {
            lines.append(
                fact.label.isEmpty() ? fact.text : fact.label + QStringLiteral(": ") + fact.text);
        }
    }
    if (row.hasMessage()) {
        lines.append(row.extras().message);
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace featurebrowser
