// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "batch/Report.h"

#include "batch/BatchRun.h"

#include "featurebrowser/CameraFeatureBrowser.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSysInfo>

namespace zqviewer {

using namespace featurebrowser;

namespace {

QString line(const QString& label, const QString& text)
{
    return (label + QLatin1Char(':')).leftJustified(14) + text + QLatin1Char('\n');
}

QString tried(const CommandLine& options)
{
    if (!options.choice.camera.isEmpty()) {
        return QStringLiteral("camera %1%2")
            .arg(options.choice.camera,
                options.choice.access == zqcameralib::CameraAccess::ReadOnly
                    ? QStringLiteral(", for reading only")
                    : QString());
    }
    if (options.choice.description.isEmpty()) {
        return QStringLiteral("the built-in simulated camera");
    }
    const QFileInfo file(options.choice.description);
    return QStringLiteral("description %1 (%2)")
        .arg(file.absoluteFilePath(),
            file.exists() ? QStringLiteral("%1 bytes").arg(file.size())
                          : QStringLiteral("does not exist"));
}

QString versions()
{
    return line(QStringLiteral("zqviewer"), QCoreApplication::applicationVersion())
        + line(QStringLiteral("Libraries"),
            QString::fromStdString(zqcameralib::ZQCamera::versions()) + QStringLiteral(", Qt ")
                + QString::fromLatin1(qVersion()))
        + line(QStringLiteral("System"),
            QSysInfo::prettyProductName() + QStringLiteral(", ") + QSysInfo::kernelType()
                + QLatin1Char(' ') + QSysInfo::kernelVersion() + QStringLiteral(", ")
                + QSysInfo::currentCpuArchitecture());
}

QString accessText(const FeatureItem& item)
{
    switch (item.accessMode) {
    case ACCESS_READ_ONLY:
        return QStringLiteral("RO");
    case ACCESS_WRITE_ONLY:
        return QStringLiteral("WO");
    case ACCESS_READ_WRITE:
        return QStringLiteral("RW");
    case ACCESS_NOT_AVAILABLE:
        return QStringLiteral("NA");
    default:
        return QStringLiteral("?");
    }
}

/// What stands behind the value: why there is none, or why it cannot be changed.
QString remark(OpenedCamera& camera, const std::shared_ptr<FeatureItem>& item)
{
    const auto& states = camera.repository().GetFeatureStates();
    const auto state = states.find(item->name);
    switch (state == states.end() ? FEATURE_AVAILABLE : state->second) {
    case FEATURE_LOCKED:
        return QStringLiteral("locked");
    case FEATURE_NOT_AVAILABLE:
        return QStringLiteral("not available");
    case FEATURE_READ_FAILED:
        return camera.repository().ReadFeature(item)
            ? QStringLiteral("unread at first")
            : QStringLiteral("unread: ") + camera.errorText(camera.device().GetLastError());
    default:
        return {};
    }
}

QString feature(OpenedCamera& camera, const std::shared_ptr<FeatureItem>& item)
{
    const QString name
        = QString(2 * item->depth, QLatin1Char(' ')) + QString::fromStdString(item->name);
    if (item->type == FEATURE_CATEGORY) {
        return name + QLatin1Char('\n');
    }
    const QString state = remark(camera, item); // may read the value
    const QString shown = item->displayFlag != 0 && item->type != FEATURE_COMMAND
        ? QString::fromStdString(getShownValue(*item))
        : QString();
    return QStringLiteral("%1 %2 %3%4\n")
        .arg(name.leftJustified(44), accessText(*item), shown,
            state.isEmpty() ? QString() : QStringLiteral("  [%1]").arg(state));
}

bool printCamera(OpenedCamera& camera)
{
    QString text = line(QStringLiteral("Camera"), camera.name())
        + line(QStringLiteral("Access"),
            camera.camera().isReadOnly() ? QStringLiteral("reading only")
                                         : QStringLiteral("control"));
    const OpenedCamera::Reading reading = camera.reading();
    text += line(QStringLiteral("Reading"), reading.text) + QLatin1Char('\n');
    for (const auto& item : camera.repository().GetFeatureList()) {
        text += feature(camera, item);
    }
    text += QStringLiteral("\nDescription:\n");
    return print(text.toUtf8() + QByteArray::fromStdString(camera.camera().description()) + '\n');
}

} // namespace

int printReport(const CommandLine& options)
{
    if (!print((line(QStringLiteral("Tried"), tried(options)) + versions()).toUtf8())) {
        return 1;
    }
    QString error;
    const std::unique_ptr<OpenedCamera> camera = openAndLoad(options, error);
    if (!camera) {
        return print(line(QStringLiteral("Failed"), error).toUtf8()) ? fail(error) : 1;
    }
    return printCamera(*camera) ? 0 : 1;
}

} // namespace zqviewer
