#include "UnitText.h"

#include <QRegularExpression>

#include <array>

namespace featurebrowser {

namespace {

struct Unit {
    const char16_t* symbol;
    const char* words; ///< other spellings, separated by '|', case-insensitive
    char quantity; ///< units of one quantity convert into each other
    double size; ///< in the quantity's basic unit
};

constexpr std::array<Unit, 26> units { {
    { u"ns", "nanoseconds?", 't', 1e-9 },
    { u"us", "\u00B5s|\u03BCs|usec|microseconds?", 't', 1e-6 },
    { u"ms", "msec|milliseconds?", 't', 1e-3 },
    { u"s", "sec|seconds?", 't', 1 },
    { u"Hz", "hertz", 'f', 1 },
    { u"kHz", "kilohertz", 'f', 1e3 },
    { u"MHz", "megahertz", 'f', 1e6 },
    { u"GHz", "gigahertz", 'f', 1e9 },
    { u"fps", "frames per second", 'p', 1 },
    { u"dB", "decibels?", 'd', 1 },
    { u"%", "percent", '%', 1 },
    { u"\u00B0C", "C|Celsius|degrees Celsius|degrees? C", 'c', 1 },
    { u"K", "kelvins?", 'k', 1 },
    { u"mV", "millivolts?", 'v', 1e-3 },
    { u"V", "volts?", 'v', 1 },
    { u"mA", "milliamperes?", 'a', 1e-3 },
    { u"A", "amperes?", 'a', 1 },
    { u"mW", "milliwatts?", 'w', 1e-3 },
    { u"W", "watts?", 'w', 1 },
    { u"nm", "nanomet(?:er|re)s?", 'l', 1e-9 },
    { u"um", "\u00B5m|\u03BCm|micromet(?:er|re)s?", 'l', 1e-6 },
    { u"mm", "millimet(?:er|re)s?", 'l', 1e-3 },
    { u"px", "pixels?", 'x', 1 },
    { u"B", "bytes?", 'b', 1 },
    { u"Bps", "bytes per second|B/s", 'r', 1 },
    { u"Mbps", "megabits per second|Mbit/s", 'm', 1 },
} };

const Unit* findUnit(const QString& text)
{
    for (const Unit& unit : units) {
        if (text == QString::fromUtf16(unit.symbol))
            return &unit;
    }
    for (const Unit& unit : units) {
        const QRegularExpression words(
            QStringLiteral("\\A(?:%1)\\z").arg(QString::fromUtf8(unit.words)),
            QRegularExpression::CaseInsensitiveOption);
        if (words.match(text).hasMatch())
            return &unit;
    }
    return nullptr;
}

QString knownUnit(const QString& text)
{
    const Unit* unit = findUnit(text.trimmed());
    return unit != nullptr ? QString::fromUtf16(unit->symbol) : QString();
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
        const QString unit
            = knownUnit(hint.captured(1).isEmpty() ? hint.captured(2) : hint.captured(1));
        if (!unit.isEmpty())
            return unit;
    }
    return {};
}

double unitFactor(const QString& from, const QString& to)
{
    const Unit* source = findUnit(from);
    const Unit* target = findUnit(to);
    if (source == nullptr || target == nullptr || source->quantity != target->quantity)
        return 0;
    return source->size / target->size;
}

} // namespace featurebrowser
