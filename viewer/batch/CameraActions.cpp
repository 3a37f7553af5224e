// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "batch/CameraActions.h"

#include "batch/BatchRun.h"
#include "batch/FrameCapture.h"
#include "batch/SettingsActions.h"
#include "batch/ValueInput.h"

#include "featurebrowser/CameraFeatureBrowser.h"

#include <QCoreApplication>

#include <array>

namespace zqviewer {

using featurebrowser::FeatureItem;

namespace {

using Item = std::shared_ptr<FeatureItem>;

/// One line that names the feature; some of the camera side's own sentences do so already.
QString about(const QString& name, const QString& text)
{
    const QString start = name + QStringLiteral(": ");
    return text.startsWith(start) ? text : start + text;
}

/// The feature as it is now. Null, and why, when there is none of that name.
Item readFeature(OpenedCamera& camera, const QString& name, QString& error)
{
    Item item = camera.repository().GetFeature(name.toStdString());
    if (!item || item->type == featurebrowser::FEATURE_CATEGORY) {
        error = QStringLiteral("%1: the camera has no feature of this name").arg(name);
        return nullptr;
    }
    if (!camera.repository().ReadFeature(item)) {
        error = about(name, camera.errorText(camera.device().GetLastError()));
        return nullptr;
    }
    return item;
}

bool get(OpenedCamera& camera, const QString& name, QString& error)
{
    const Item item = readFeature(camera, name, error);
    if (!item) {
        return false;
    }
    if (item->type == featurebrowser::FEATURE_COMMAND) {
        error = QStringLiteral("%1: a command has no value").arg(name);
        return false;
    }
    if (item->displayFlag == 0) {
        error = QStringLiteral("%1: the camera tells no value now").arg(name);
        return false;
    }
    return print(QByteArray::fromStdString(featurebrowser::getShownValue(*item)) + '\n');
}

bool set(OpenedCamera& camera, const QString& assignment, QString& error)
{
    const QString name = assignment.section(QLatin1Char('='), 0, 0);
    const Item item = readFeature(camera, name, error);
    if (!item) {
        return false;
    }
    const QString problem = writeValue(camera, *item, assignment.section(QLatin1Char('='), 1));
    if (!problem.isEmpty()) {
        error = about(name, problem);
    }
    return problem.isEmpty();
}

bool run(OpenedCamera& camera, const QString& name, QString& error)
{
    const Item item = camera.repository().GetFeature(name.toStdString());
    if (!item || item->type != featurebrowser::FEATURE_COMMAND) {
        error = QStringLiteral("%1: the camera has no command of this name").arg(name);
        return false;
    }
    const int status = camera.device().ExecuteCommand(item->name.c_str(), 1);
    if (status != featurebrowser::STATUS_OK) {
        error = about(name, camera.errorText(status));
    }
    return status == featurebrowser::STATUS_OK;
}

/// What the actions have found.
struct Findings {
    bool areSettingsEqual = true;
};

bool carryOut(const CameraAction& action, OpenedCamera& camera, bool isDryRun, Findings& findings,
    QString& error)
{
    bool areEqual = false;
    switch (action.kind) {
    case CameraAction::Kind::Get:
        return get(camera, action.argument, error);
    case CameraAction::Kind::Set:
        return set(camera, action.argument, error);
    case CameraAction::Kind::Run:
        return run(camera, action.argument, error);
    case CameraAction::Kind::Save:
        return saveSettings(camera, action.file, error);
    case CameraAction::Kind::Load:
        return loadSettings(camera, action.file, isDryRun, error);
    case CameraAction::Kind::Compare:
        if (!compareSettings(camera, action.file, areEqual, error)) {
            return false;
        }
        findings.areSettingsEqual = findings.areSettingsEqual && areEqual;
        return true;
    case CameraAction::Kind::Capture:
        break;
    }
    error = captureFrames(camera, action.argument.toInt(), action.file);
    return error.isEmpty();
}

} // namespace

int runActions(const CommandLine& options, OpenedCamera& camera)
{
    // Qt finds the writers of picture formats with its help.
    static std::array<char, 9> name { "zqviewer" };
    std::array<char*, 2> arguments { name.data(), nullptr };
    int count = 1;
    const QCoreApplication application(count, arguments.data());
    Findings findings;
    for (const CameraAction& action : options.actions) {
        QString error;
        if (!carryOut(action, camera, options.isDryRun, findings, error)) {
            return error.isEmpty() ? 1 : fail(error); // a line that cannot be printed has been told
        }
    }
    return findings.areSettingsEqual ? 0 : 1;
}

} // namespace zqviewer
