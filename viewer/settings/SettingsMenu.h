// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "settings/SettingsWork.h"

#include <QList>
#include <QObject>

QT_BEGIN_NAMESPACE
class QAction;
class QMenu;
QT_END_NAMESPACE

namespace zqviewer {

/// What a user can choose to do with a camera's settings as a whole, and with the sets that the
/// camera keeps itself.
class SettingsMenu : public QObject {
    Q_OBJECT

public:
    /// All has to outlive this, and is not owned. Images stop while settings are written.
    SettingsMenu(OpenedCamera& camera, LiveImage& images, QWidget* window);
    ~SettingsMenu() override;

    void fill(QMenu& menu);
    /// Those that a toolbar has.
    QList<QAction*> mainActions() const { return { m_save, m_load, m_compare }; }
    SettingsWork& work() { return m_work; }

private:
    void makeActions();
    QAction* add(const QString& words, const char* name);
    void fillRecent(QMenu& menu);
    void fillCameras(QMenu& menu);
    void fillUserSets(QMenu& menu);
    void chooseAndSave();
    void chooseAndLoad();
    void chooseAndCompare();
    void compareFiles();

    QWidget* m_window;
    SettingsWork m_work;
    QAction* m_save = nullptr;
    QAction* m_load = nullptr;
    QAction* m_compare = nullptr;
    QAction* m_remember = nullptr;
    QAction* m_compareRemembered = nullptr;
    QAction* m_takeBack = nullptr;
};

} // namespace zqviewer
