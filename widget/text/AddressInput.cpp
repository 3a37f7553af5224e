// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "text/AddressInput.h"

#include "featurebrowser/CameraFeatureBrowser.h"

#include <QRegularExpression>

namespace featurebrowser {

namespace {

long numberOf(QString digits)
{
    static const QRegularExpression between(QStringLiteral("[^0-9A-Fa-f]"));
    return static_cast<long>(digits.remove(between).toLongLong(nullptr, 16));
}

} // namespace

std::optional<std::string> readIpv4(const QString& text)
{
    // No leading zeros: some readers take them for octal numbers.
    static const QRegularExpression whole(
        QStringLiteral("\\A(?:(?:25[0-5]|2[0-4][0-9]|1[0-9]{2}|[1-9]?[0-9])"
                       "(?:\\.(?!\\z)|\\z)){4}\\z"));
    const QString address = text.trimmed();
    return whole.match(address).hasMatch() ? std::optional(address.toStdString()) : std::nullopt;
}

std::optional<std::string> readMac(const QString& text)
{
    static const QRegularExpression whole(
        QStringLiteral("\\A(?:H{2}(?:(:|-)H{2}(?:\\1H{2}){4})|H{4}\\.H{4}\\.H{4}|H{12})\\z")
            .replace(QLatin1Char('H'), QStringLiteral("[0-9A-Fa-f]")));
    const QString address = text.trimmed();
    if (!whole.match(address).hasMatch()) {
        return std::nullopt;
    }
    return convertToMACAddress(numberOf(address));
}

long macNumber(const std::string& address)
{
    return numberOf(QString::fromStdString(address));
}

} // namespace featurebrowser
