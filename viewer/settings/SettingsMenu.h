// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"
#include "settings/ComparisonWindow.h"
#include "settings/SettingsTask.h"

#include "featurebrowser/ZQSettings.h"

#include <QList>
#include <QObject>

#include <functional>

QT_BEGIN_NAMESPACE
class QAction;
class QMenu;
QT_END_NAMESPACE

namespace zqviewer {

class LiveImage;

/// What a user does with a camera's settings as a whole: save, load, compare, take a loading back,
/// and the sets that the camera keeps itself.
class SettingsMenu : public QObject {
    Q_OBJECT

public:
    /// All has to outlive this, and is not owned. Images stop while settings are written.
    SettingsMenu(OpenedCamera& camera, LiveImage& images, QWidget* window);
    ~SettingsMenu() override;

    void fill(QMenu& menu);
    /// Those that a toolbar has.
    QList<QAction*> mainActions() const { return { m_save, m_load, m_compare }; }
    void load(const QString& file);
    void save(const QString& file);
    void compareWithFile(const QString& file);
    /// Shows where the camera differs from settings of before, to write chosen ones back.
    void compareWith(const zqcameralib::ZQSettings& before, const QString& name);
    bool isRunning() const { return m_task.isRunning(); }

Q_SIGNALS:
    void told(bool isGood, const QString& text);
    /// The camera belongs to a task, and does not any more.
    void begun();
    void ended();
    /// The camera's values have changed.
    void changed();

private:
    using Settings = zqcameralib::ZQSettings;
    using Task = SettingsTask::Task;

    void makeActions();
    QAction* add(const QString& words, const char* name);
    void fillRecent(QMenu& menu);
    void fillCameras(QMenu& menu);
    void fillUserSets(QMenu& menu);
    void chooseAndSave();
    void chooseAndLoad();
    void chooseAndCompare();
    void compareFiles();
    bool open(const QString& file, Settings& settings);
    void remember();
    void takeBack();
    /// The camera's settings, all or those that `lines` name.
    void read(
        const QString& words, const Settings* lines, const std::function<void(Settings)>& then);
    void compareWithCamera(SettingsMenu& other);
    void show(ComparedSettings first, ComparedSettings second);
    void restore(const Settings& settings, const QString& what);
    void restored(Task& task, Task::State state, const QString& what);
    void write(const QString& file, const Settings& settings);
    void runUserSet(const QString& set, zqcameralib::ZQUserSet::Action action);
    bool isConfirmed(const QString& question);
    ComparedSettings ofCamera(Settings settings);

    OpenedCamera& m_camera;
    LiveImage& m_images;
    QWidget* m_window;
    SettingsTask m_task;
    QAction* m_save = nullptr;
    QAction* m_load = nullptr;
    QAction* m_compare = nullptr;
    QAction* m_remember = nullptr;
    QAction* m_compareRemembered = nullptr;
    QAction* m_takeBack = nullptr;
    Settings m_remembered;
    QString m_rememberedName;
    Settings m_before; ///< of the last restoring; none when there is nothing to take back
};

/// What the browser shows, without asking the camera: every setting as it was read last, at the
/// present positions of its selectors.
zqcameralib::ZQSettings shownSettings(OpenedCamera& camera);

} // namespace zqviewer
