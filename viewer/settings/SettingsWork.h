// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"
#include "settings/ComparisonWindow.h"
#include "settings/SettingsTask.h"

#include "featurebrowser/ZQSettings.h"

#include <QObject>

#include <functional>

namespace zqviewer {

class LiveImage;

/// What is done with a camera's settings as a whole: saved, restored, compared, a restoring taken
/// back, the camera's own sets used. Tells how it went, and shows reports and comparisons.
class SettingsWork : public QObject {
    Q_OBJECT

public:
    using Settings = zqcameralib::ZQSettings;

    /// All has to outlive this, and is not owned. Images stop while settings are written.
    SettingsWork(OpenedCamera& camera, LiveImage& images, QWidget* window);

    OpenedCamera& camera() { return m_camera; }
    bool isRunning() const { return m_task.isRunning(); }

    void save(const QString& file);
    void load(const QString& file);
    /// As before the last restoring.
    void takeBack();
    void remember();
    void compareWithRemembered();
    /// Shows where the camera differs from settings of before, to write chosen ones back.
    void compareWith(const Settings& before, const QString& name);
    void compareWithFile(const QString& file);
    void compareWithCamera(SettingsWork& other);
    void compareFiles(const QString& first, const QString& second);
    /// Asks the user first.
    void runUserSet(const QString& set, zqcameralib::ZQUserSet::Action action);

Q_SIGNALS:
    void told(bool isGood, const QString& text);
    /// The camera belongs to a task, and does not any more.
    void begun();
    void ended();
    /// The camera's values have changed.
    void changed();
    /// Whether there is something to take back: the restoring of `what`.
    void canTakeBack(bool can, const QString& what);
    void hasRemembered();

private:
    using Task = SettingsTask::Task;

    bool open(const QString& file, Settings& settings);
    /// The camera's settings, all or those that `lines` name.
    void read(
        const QString& words, const Settings* lines, const std::function<void(Settings)>& then);
    void show(ComparedSettings first, ComparedSettings second);
    void restore(const Settings& settings, const QString& what);
    void restored(Task& task, Task::State state, const QString& what);
    void write(const QString& file, const Settings& settings);
    bool isConfirmed(const QString& question);
    ComparedSettings ofCamera(Settings settings);

    OpenedCamera& m_camera;
    LiveImage& m_images;
    QWidget* m_window;
    SettingsTask m_task;
    Settings m_remembered;
    QString m_rememberedName;
    Settings m_before; ///< of the last restoring; none when there is nothing to take back
};

} // namespace zqviewer
