// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "batch/SettingsActions.h"

#include "batch/BatchRun.h"
#include "settings/SettingsFile.h"

namespace zqviewer {

using zqcameralib::ZQSettings;

namespace {

bool run(zqcameralib::ZQCameraTask& task, QString& error)
{
    using State = zqcameralib::ZQCameraTask::State;
    State state = State::Running;
    while (state == State::Running) {
        state = task.wait(std::chrono::hours(1));
    }
    error = QString::fromStdString(task.error());
    return state == State::Done;
}

bool printDifferences(const ZQSettings& first, const ZQSettings& second, bool& areEqual)
{
    const auto differences = ZQSettings::Compare(first, second);
    areEqual = differences.empty();
    QByteArray text;
    for (const auto& difference : differences) {
        text += QByteArray::fromStdString(difference.text()) + '\n';
    }
    return print(text);
}

} // namespace

bool saveSettings(OpenedCamera& camera, const QString& file, QString& error)
{
    zqcameralib::ZQSettingsSaving saving(camera.camera());
    if (!run(saving, error)) {
        return false;
    }
    return writeSettings(file, saving.takeSettings(), error);
}

bool loadSettings(OpenedCamera& camera, const QString& file, bool isDryRun, QString& error)
{
    ZQSettings settings;
    if (!readSettings(file, settings, error)) {
        return false;
    }
    zqcameralib::ZQSettingsRestoring::Options options;
    options.isDryRun = isDryRun;
    zqcameralib::ZQSettingsRestoring restoring(camera.camera(), settings, options);
    const bool isDone = run(restoring, error);
    camera.repository().Load(); // what follows finds what was written
    if (!print(QByteArray::fromStdString(restoring.report().toText()))) {
        error.clear();
        return false;
    }
    if (isDone && restoring.report().exitStatus() != 0) {
        error = QStringLiteral("%1: some settings do not hold").arg(file);
    }
    return isDone && restoring.report().exitStatus() == 0;
}

bool compareSettings(OpenedCamera& camera, const QString& file, bool& areEqual, QString& error)
{
    ZQSettings settings;
    if (!readSettings(file, settings, error)) {
        return false;
    }
    zqcameralib::ZQSettingsSaving reading(camera.camera(), settings);
    return run(reading, error) && printDifferences(settings, reading.takeSettings(), areEqual);
}

int compareFiles(const QString& first, const QString& second)
{
    ZQSettings one;
    ZQSettings other;
    QString error;
    if (!readSettings(first, one, error) || !readSettings(second, other, error)) {
        return fail(error);
    }
    bool areEqual = false;
    return printDifferences(one, other, areEqual) && areEqual ? 0 : 1;
}

} // namespace zqviewer
