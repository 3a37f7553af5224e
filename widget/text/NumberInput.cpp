// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "text/NumberInput.h"

#include "text/UnitText.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <charconv>

namespace featurebrowser {

namespace {

struct Words {
    Q_DECLARE_TR_FUNCTIONS(featurebrowser::NumberInput)
};

struct Parts {
    QString number;
    int exponent = 0; ///< power of ten that the unit brings
    QString problem;
};

// Texts from documents bring signs and blanks of typesetting.
QString plainSigns(QString text)
{
    for (const QChar minus : { QChar(0x2212), QChar(0x2013) }) {
        text.replace(minus, QLatin1Char('-'));
    }
    for (const QChar blank : { QChar(0x00A0), QChar(0x202F) }) {
        text.replace(blank, QLatin1Char(' '));
    }
    return text;
}

// Only blanks between groups of thousands go; others make it no number.
QString withoutGroupBlanks(QString number)
{
    static const QRegularExpression grouped(
        QStringLiteral("\\A[+-]?[1-9][0-9]{0,2}(?: [0-9]{3})+(?=\\z|[.,eE])"));
    const QString groups = grouped.match(number).captured();
    return number.replace(0, groups.size(), QString(groups).remove(QLatin1Char(' ')));
}

// A unit begins with a letter or sign that can be no part of a number; "1e3" and "0x1F" have none.
Parts splitUnit(const QString& text, const QString& unit)
{
    static const QRegularExpression split(QStringLiteral(
        "\\A\\s*([+-]?(?:0[xX][0-9A-Fa-f]+|inf|nan|[0-9.,' ]*[0-9.,](?:[eE][+-]?[0-9]+)?))"
        "\\s*([^0-9\\s].*?)?\\s*\\z"));
    const auto match = split.match(plainSigns(text));
    if (!match.hasMatch()) {
        return { {}, 0, Words::tr("“%1” is not a number").arg(text.trimmed()) };
    }
    const QString number = withoutGroupBlanks(match.captured(1));
    const QString typed = match.captured(2);
    if (typed.isEmpty()) {
        return { number, 0, {} };
    }
    const auto exponent = unitExponent(typed, unit);
    if (exponent) {
        return { number, *exponent, {} };
    }
    return { {}, 0,
        unit.isEmpty() ? Words::tr("“%1” is not a number; the unit of this feature is not known")
                             .arg(text.trimmed())
                       : Words::tr("“%1” does not fit a feature in %2").arg(typed, unit) };
}

bool isGrouped(const QString& text, QChar separator)
{
    const QString pattern = QStringLiteral("\\A[+-]?[1-9][0-9]{0,2}(?:%1[0-9]{3})+\\z")
                                .arg(QRegularExpression::escape(QString(separator)));
    return QRegularExpression(pattern).match(text).hasMatch();
}

QString ambiguous(const QString& text)
{
    QString point = text;
    point.replace(QLatin1Char(','), QLatin1Char('.'));
    QString whole = text;
    whole.remove(QLatin1Char(','));
    return Words::tr("“%1” can be read in two ways: write %2 or %3").arg(text, point, whole);
}

// One comma alone is a decimal comma unless it could separate thousands; with points too, the
// separator that stands last is the decimal one.
QString withPoint(QString number, QString& problem)
{
    const QChar comma = QLatin1Char(',');
    const QChar point = QLatin1Char('.');
    const auto commas = number.count(comma);
    const auto points = number.count(point);
    const auto lastComma = number.lastIndexOf(comma);
    const auto lastPoint = number.lastIndexOf(point);
    if (commas == 0 && points <= 1) {
        return number;
    }
    if (commas == 1 && points == 0) {
        if (isGrouped(number, comma)) {
            problem = ambiguous(number);
        }
        return number.replace(comma, point);
    }
    const QChar decimal = lastComma > lastPoint ? comma : point;
    const QChar group = decimal == comma ? point : comma;
    if (number.count(decimal) == 1 && isGrouped(number.left(number.lastIndexOf(decimal)), group)) {
        return number.remove(group).replace(decimal, point);
    }
    if (commas == 0 || points == 0) {
        const QChar only = commas == 0 ? point : comma;
        if (isGrouped(number, only)) {
            return number.remove(only);
        }
    }
    problem = Words::tr("“%1” is not a number").arg(number);
    return {};
}

QString outOfRange(const QString& text, bool isHex)
{
    const QString least = isHex ? QStringLiteral("0x0") : QStringLiteral("-9223372036854775808");
    const QString most
        = isHex ? QStringLiteral("0x7FFFFFFFFFFFFFFF") : QStringLiteral("9223372036854775807");
    return Words::tr("“%1” must lie between %2 and %3").arg(text.trimmed(), least, most);
}

} // namespace

NumberInput<double> readFloat(const QString& text, const QString& unit)
{
    const Parts parts = splitUnit(text, unit);
    if (!parts.problem.isEmpty()) {
        return { {}, parts.problem };
    }
    const auto mark = parts.number.indexOf(QLatin1Char('e'), 0, Qt::CaseInsensitive);
    QString mantissa = mark < 0 ? parts.number : parts.number.left(mark);
    const int exponent = mark < 0 ? 0 : parts.number.mid(mark + 1).toInt();
    QString problem;
    mantissa = withPoint(mantissa, problem);
    if (!problem.isEmpty()) {
        return { {}, problem };
    }
    // The unit's power of ten joins the decimal exponent: converted once, so rounded once.
    if (!mantissa.isEmpty() && mantissa.at(0) == QLatin1Char('+')) {
        mantissa.remove(0, 1);
    }
    const QByteArray digits
        = mantissa.toLatin1() + 'e' + QByteArray::number(exponent + parts.exponent);
    double value = 0;
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (end.ec == std::errc::result_out_of_range) {
        return { {}, Words::tr("“%1” is beyond the range of numbers").arg(text.trimmed()) };
    }
    if (end.ec != std::errc() || end.ptr != digits.data() + digits.size()) {
        return { {}, Words::tr("“%1” is not a number").arg(text.trimmed()) };
    }
    return { value, {} };
}

NumberInput<qint64> readInteger(const QString& text, const QString& unit)
{
    const Parts parts = splitUnit(text, unit);
    if (!parts.problem.isEmpty()) {
        return { {}, parts.problem };
    }
    static const QRegularExpression whole(
        QStringLiteral("\\A([+-]?)(?:0[xX]([0-9A-Fa-f]+)|([0-9]+))\\z"));
    const auto match = whole.match(parts.number);
    if (!match.hasMatch() || parts.exponent < 0) {
        return { {}, Words::tr("“%1” is not a whole number").arg(text.trimmed()) };
    }
    const bool isHex = !match.captured(2).isEmpty();
    QByteArray digits = (isHex ? match.captured(2) : match.captured(3)).toLatin1();
    if (!isHex) {
        digits += QByteArray(parts.exponent, '0');
    }
    const bool isNegative = match.captured(1) == QLatin1String("-");
    if (isNegative) {
        digits.prepend('-');
    }
    bool isInRange = false;
    const qint64 value = digits.toLongLong(&isInRange, isHex ? 16 : 10);
    // Hexadecimal digits show the bits of a register: a minus has no place before them.
    if (!isInRange || (isHex && isNegative)) {
        return { {}, outOfRange(text, isHex) };
    }
    return { value, {} };
}

int readIndex(const std::string& text)
{
    int index = -1;
    std::from_chars(text.data(), text.data() + text.size(), index); // else left as it is
    return index;
}

} // namespace featurebrowser
