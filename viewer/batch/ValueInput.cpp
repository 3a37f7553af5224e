// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "batch/ValueInput.h"

#include "featurebrowser/CameraFeatureBrowser.h"

#include <QLocale>
#include <QStringList>

#include <arpa/inet.h>

#include <algorithm>
#include <optional>

namespace zqviewer {

using namespace featurebrowser;

namespace {

QString quoted(const QString& text)
{
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

/// What a status says, with the limits where they are what was missed.
QString refusal(OpenedCamera& camera, const FeatureItem& item, int status)
{
    switch (status) {
    case STATUS_OK:
        return {};
    case ERROR_VALUE_OUT_OF_RANGE:
        return QStringLiteral("the value must be between %1 and %2")
            .arg(QString::number(item.intMin), QString::number(item.intMax));
    case ERROR_VALUE_NOT_ON_INCREMENT:
        return item.type == FEATURE_FLOAT
            ? QStringLiteral("the value must be %1 plus a multiple of %2")
                  .arg(QString::number(item.floatMin), QString::number(item.floatInc))
            : QStringLiteral("the value must be %1 plus a multiple of %2")
                  .arg(QString::number(item.intMin), QString::number(item.intInc));
    case ERROR_FLOAT_OUT_OF_RANGE:
        return QStringLiteral("the value must be between %1 and %2")
            .arg(QString::number(item.floatMin, 'g', 12), QString::number(item.floatMax, 'g', 12));
    default:
        return camera.errorText(status);
    }
}

/// "192.168.0.7" or "02:00:00:00:00:07" where the feature is shown as one; otherwise a whole
/// number.
std::optional<qint64> integerOf(const FeatureItem& item, const QString& text)
{
    bool isNumber = false;
    const qint64 number = text.toLongLong(
        &isNumber, text.startsWith(QLatin1String("0x"), Qt::CaseInsensitive) ? 16 : 10);
    if (isNumber) {
        return number;
    }
    const QString shown = QString::fromStdString(getShownValue(item));
    if (shown.count(QLatin1Char('.')) == 3) {
        in_addr address {};
        return inet_pton(AF_INET, text.toLatin1().constData(), &address) == 1
            ? std::optional<qint64>(ntohl(address.s_addr))
            : std::nullopt;
    }
    if (shown.count(QLatin1Char(':')) == 5 && text.count(QLatin1Char(':')) == 5) {
        const qint64 mac = QString(text).remove(QLatin1Char(':')).toLongLong(&isNumber, 16);
        return isNumber ? std::optional<qint64>(mac) : std::nullopt;
    }
    return std::nullopt;
}

QString writeInteger(OpenedCamera& camera, const FeatureItem& item, const QString& text)
{
    const std::optional<qint64> value = integerOf(item, text);
    return value
        ? refusal(camera, item, camera.device().SetIntegerValue(item.name.c_str(), *value, 1))
        : quoted(text) + QStringLiteral(" is not a whole number of 64 bits");
}

QString writeFloat(OpenedCamera& camera, const FeatureItem& item, const QString& text)
{
    bool isNumber = false;
    const double value = QLocale::c().toDouble(text, &isNumber);
    return isNumber ? refusal(camera, item, camera.device().SetFloatValue(item.name.c_str(), value))
                    : quoted(text) + QStringLiteral(" is not a number");
}

int indexOf(const FeatureItem& item, const QString& entry)
{
    const auto found
        = std::find(item.enumEntries.begin(), item.enumEntries.end(), entry.toStdString());
    return found == item.enumEntries.end()
        ? -1
        : static_cast<int>(std::distance(item.enumEntries.begin(), found));
}

QString entriesOf(const FeatureItem& item)
{
    QStringList entries;
    for (const std::string& entry : item.enumEntries) {
        entries.append(QString::fromStdString(entry));
    }
    return entries.join(QStringLiteral(", "));
}

QString writeEntry(OpenedCamera& camera, const FeatureItem& item, const QString& text)
{
    const int index = indexOf(item, text);
    if (index < 0) {
        return quoted(text) + QStringLiteral(" is none of its entries: ") + entriesOf(item);
    }
    return refusal(camera, item,
        camera.device().SetEnumValue(item.name.c_str(), text.toStdString().c_str(), index));
}

QString writeBoolean(OpenedCamera& camera, const FeatureItem& item, const QString& text)
{
    static const QStringList words { QStringLiteral("false"), QStringLiteral("true"),
        QStringLiteral("0"), QStringLiteral("1") };
    const auto word = static_cast<int>(words.indexOf(text.toLower()));
    const int index = word >= 0 ? word % 2 : indexOf(item, text);
    return index < 0
        ? quoted(text) + QStringLiteral(" is neither true nor false")
        : refusal(camera, item, camera.device().SetBooleanValue(item.name.c_str(), index));
}

} // namespace

QString writeValue(OpenedCamera& camera, const FeatureItem& item, const QString& text)
{
    switch (item.type) {
    case FEATURE_INTEGER:
        return writeInteger(camera, item, text);
    case FEATURE_FLOAT:
        return writeFloat(camera, item, text);
    case FEATURE_ENUMERATION:
        return writeEntry(camera, item, text);
    case FEATURE_BOOLEAN:
        return writeBoolean(camera, item, text);
    case FEATURE_COMMAND:
        return QStringLiteral("a command is run by --exec");
    default:
        return refusal(camera, item,
            camera.device().SetStringValue(item.name.c_str(), text.toUtf8().constData()));
    }
}

} // namespace zqviewer
