// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "text/UnitText.h"

#include <QRegularExpression>

#include <array>
#include <vector>

namespace featurebrowser {

namespace {

struct Unit {
    const char16_t* symbol;
    const char* words; ///< other spellings, separated by '|', case-insensitive
    char quantity; ///< units of one quantity convert into each other
    int exponent; ///< power of ten of the quantity's basic unit
};

constexpr std::array<Unit, 26> units { {
    { u"ns", "nanoseconds?", 't', -9 },
    { u"us", "\u00B5s|\u03BCs|usec|microseconds?", 't', -6 },
    { u"ms", "msec|milliseconds?", 't', -3 },
    { u"s", "sec|seconds?", 't', 0 },
    { u"Hz", "hertz", 'f', 0 },
    { u"kHz", "kilohertz", 'f', 3 },
    { u"MHz", "megahertz", 'f', 6 },
    { u"GHz", "gigahertz", 'f', 9 },
    { u"fps", "frames per second", 'p', 0 },
    { u"dB", "decibels?", 'd', 0 },
    { u"%", "percent", '%', 0 },
    { u"\u00B0C", "C|Celsius|degrees Celsius|degrees? C", 'c', 0 },
    { u"K", "kelvins?", 'k', 0 },
    { u"mV", "millivolts?", 'v', -3 },
    { u"V", "volts?", 'v', 0 },
    { u"mA", "milliamperes?", 'a', -3 },
    { u"A", "amperes?", 'a', 0 },
    { u"mW", "milliwatts?", 'w', -3 },
    { u"W", "watts?", 'w', 0 },
    { u"nm", "nanomet(?:er|re)s?", 'l', -9 },
    { u"um", "\u00B5m|\u03BCm|micromet(?:er|re)s?", 'l', -6 },
    { u"mm", "millimet(?:er|re)s?", 'l', -3 },
    { u"px", "pixels?", 'x', 0 },
    { u"B", "bytes?", 'b', 0 },
    { u"Bps", "bytes per second|B/s", 'r', 0 },
    { u"Mbps", "megabits per second|Mbit/s", 'm', 0 },
} };

/// A unit as texts of features share it.
struct KnownUnit {
    const Unit* unit;
    QString symbol;
    QRegularExpression words;
};

const std::vector<KnownUnit>& knownUnits()
{
    static const std::vector<KnownUnit> known = [] {
        std::vector<KnownUnit> all;
        for (const Unit& unit : units) {
            const QString words = QStringLiteral("\\A(?:%1)\\z").arg(QString::fromUtf8(unit.words));
            all.push_back({ &unit, QString::fromUtf16(unit.symbol),
                QRegularExpression(words, QRegularExpression::CaseInsensitiveOption) });
        }
        return all;
    }();
    return known;
}

const KnownUnit* findUnit(const QString& text)
{
    for (const KnownUnit& known : knownUnits()) {
        if (text == known.symbol) {
            return &known;
        }
    }
    for (const KnownUnit& known : knownUnits()) {
        if (known.words.match(text).hasMatch()) {
            return &known;
        }
    }
    return nullptr;
}

QString knownUnit(const QString& text)
{
    const KnownUnit* known = findUnit(text.trimmed());
    return known != nullptr ? known->symbol : QString();
}

} // namespace

QString unitFromDescription(const QString& description)
{
    // An explicit "Unit:" is taken as it stands; the other spellings only when the unit is known.
    static const QRegularExpression named(QStringLiteral("\\bUnits?:[ \\t]*([^\\r\\n.;,]{1,24})"),
        QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression hinted(QStringLiteral(
        "[\\[(](?:in )?([^\\s\\])]{1,24}(?: [^\\])]{1,20})?)[\\])]|"
        "\\bin (?:units of )?((?:degrees |frames per |bytes per )?[^\\s.,;)]{1,16})"));
    const auto explicitUnit = named.match(description);
    if (explicitUnit.hasMatch()) {
        const QString unit = explicitUnit.captured(1).trimmed();
        const QString known = knownUnit(unit);
        return known.isEmpty() ? unit : known;
    }
    auto hints = hinted.globalMatch(description);
    while (hints.hasNext()) {
        const auto hint = hints.next();
        QString unit = knownUnit(hint.captured(1).isEmpty() ? hint.captured(2) : hint.captured(1));
        if (!unit.isEmpty()) {
            return unit;
        }
    }
    return {};
}

std::optional<int> unitExponent(const QString& from, const QString& to)
{
    if (from == to && !to.isEmpty()) {
        return 0;
    }
    const KnownUnit* source = findUnit(from);
    const KnownUnit* target = findUnit(to);
    if (source == nullptr || target == nullptr
        || source->unit->quantity != target->unit->quantity) {
        return std::nullopt;
    }
    return source->unit->exponent - target->unit->exponent;
}

} // namespace featurebrowser
