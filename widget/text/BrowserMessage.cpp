// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "text/BrowserMessage.h"

#include <QCoreApplication>
#include <QRegularExpression>

#include <array>

namespace featurebrowser {

namespace {

constexpr const char* context = "BrowserMessage";

// The first that fits is taken; a text that can be anything is the last of its arguments.
constexpr std::array messages {
    QT_TRANSLATE_NOOP("BrowserMessage", "Error writing value\nValue must be between %1 and %2"),
    QT_TRANSLATE_NOOP("BrowserMessage", "Error adjusting to value %1"),
    QT_TRANSLATE_NOOP("BrowserMessage",
        "Difference between values Min and Max not divisible by Inc = %1\nValue adjusted to %2"),
    QT_TRANSLATE_NOOP(
        "BrowserMessage", "Error writing feature %1\nvalue must be between %2 and %3"),
    QT_TRANSLATE_NOOP("BrowserMessage", "Error writing feature %1\n%2"),
};

QRegularExpression patternOf(const char* source)
{
    QString pattern = QRegularExpression::escape(QString::fromLatin1(source));
    pattern.replace(QRegularExpression(QStringLiteral("\\\\%[1-9]")), QStringLiteral("(.*?)"));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
        QRegularExpression::DotMatchesEverythingOption);
}

} // namespace

QString browserMessage(const QString& message)
{
    for (const char* source : messages) {
        QString text = QCoreApplication::translate(context, source);
        if (text == QString::fromLatin1(source)) {
            continue;
        }
        const auto match = patternOf(source).match(message.trimmed());
        if (match.hasMatch()) {
            for (int i = 1; i <= match.lastCapturedIndex(); ++i) {
                text.replace(QLatin1Char('%') + QString::number(i), match.captured(i));
            }
            return text;
        }
    }
    return message;
}

} // namespace featurebrowser
