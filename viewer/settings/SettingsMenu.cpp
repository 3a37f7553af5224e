// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsMenu.h"

#include "settings/SettingsFile.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>

namespace zqviewer {

using zqcameralib::ZQUserSet;

namespace {

/// All menus there are, to compare their cameras.
QList<SettingsMenu*>& allMenus()
{
    static QList<SettingsMenu*> all;
    return all;
}

QString fileFilter()
{
    return SettingsMenu::tr("Camera settings (*.zqs *.txt *.pfs);;All files (*)");
}

} // namespace

SettingsMenu::SettingsMenu(OpenedCamera& camera, LiveImage& images, QWidget* window)
    : QObject(window)
    , m_window(window)
    , m_work(camera, images, window)
{
    allMenus().append(this);
    makeActions();
}

SettingsMenu::~SettingsMenu()
{
    allMenus().removeAll(this);
}

QAction* SettingsMenu::add(const QString& words, const char* name)
{
    auto* action = new QAction(words, this);
    action->setObjectName(QLatin1String(name));
    return action;
}

void SettingsMenu::makeActions()
{
    m_save = add(tr("&Save settings\u2026"), "saveSettings");
    m_save->setIconText(tr("Save settings"));
    m_save->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+S")));
    m_load = add(tr("&Load settings\u2026"), "loadSettings");
    m_load->setIconText(tr("Load settings"));
    m_load->setShortcut(QKeySequence(QStringLiteral("Ctrl+L")));
    m_compare = add(tr("&Compare with a file\u2026"), "compareSettings");
    m_compare->setIconText(tr("Compare settings"));
    m_remember = add(tr("&Remember the settings of now"), "rememberSettings");
    m_compareRemembered = add(tr("Compare with those re&membered"), "compareRemembered");
    m_takeBack = add(tr("&Undo loading"), "takeBackSettings");
    m_compareRemembered->setEnabled(false);
    m_takeBack->setEnabled(false);
    const bool canWrite = !m_work.camera().camera().isReadOnly();
    m_load->setEnabled(canWrite);
    connect(m_save, &QAction::triggered, this, &SettingsMenu::chooseAndSave);
    connect(m_load, &QAction::triggered, this, &SettingsMenu::chooseAndLoad);
    connect(m_compare, &QAction::triggered, this, &SettingsMenu::chooseAndCompare);
    connect(m_remember, &QAction::triggered, &m_work, &SettingsWork::remember);
    connect(
        m_compareRemembered, &QAction::triggered, &m_work, &SettingsWork::compareWithRemembered);
    connect(m_takeBack, &QAction::triggered, &m_work, &SettingsWork::takeBack);
    connect(&m_work, &SettingsWork::hasRemembered, this,
        [this] { m_compareRemembered->setEnabled(true); });
    connect(&m_work, &SettingsWork::canTakeBack, this, [this](bool can, const QString& what) {
        m_takeBack->setEnabled(can);
        m_takeBack->setText(tr("&Undo loading %1").arg(what));
    });
}

void SettingsMenu::fill(QMenu& menu)
{
    menu.addActions({ m_save, m_load });
    QMenu* recent = menu.addMenu(tr("L&oad again"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { fillRecent(*recent); });
    menu.addAction(m_takeBack);
    menu.addSeparator();
    menu.addAction(m_compare);
    QMenu* cameras = menu.addMenu(tr("Compare with another c&amera"));
    connect(cameras, &QMenu::aboutToShow, this, [this, cameras] { fillCameras(*cameras); });
    menu.addAction(tr("Compare two &files\u2026"), this, &SettingsMenu::compareFiles);
    menu.addActions({ m_remember, m_compareRemembered });
    menu.addSeparator();
    QMenu* sets = menu.addMenu(tr("User s&ets of the camera"));
    connect(sets, &QMenu::aboutToShow, this, [this, sets] { fillUserSets(*sets); });
}

void SettingsMenu::fillRecent(QMenu& menu)
{
    menu.clear();
    for (const QString& file : recentSettings()) {
        QAction* action = menu.addAction(
            QFileInfo(file).fileName().replace(QLatin1Char('&'), QLatin1String("&&")), this,
            [this, file] { m_work.load(file); });
        action->setToolTip(file);
    }
    menu.setToolTipsVisible(true);
    if (menu.isEmpty()) {
        menu.addAction(tr("No files yet"))->setEnabled(false);
    }
}

void SettingsMenu::fillCameras(QMenu& menu)
{
    menu.clear();
    for (SettingsMenu* other : allMenus()) {
        if (other != this) {
            menu.addAction(other->m_work.camera().title(), this, [this, other] {
                if (allMenus().contains(other)) {
                    m_work.compareWithCamera(other->m_work);
                }
            });
        }
    }
    if (menu.isEmpty()) {
        menu.addAction(tr("No other camera is open"))->setEnabled(false);
    }
}

void SettingsMenu::fillUserSets(QMenu& menu)
{
    using Action = ZQUserSet::Action;
    menu.clear();
    for (const std::string& name : ZQUserSet::Names(m_work.camera().camera())) {
        const QString set = QString::fromStdString(name);
        QMenu* actions = menu.addMenu(set);
        actions->addAction(
            tr("&Load\u2026"), this, [this, set] { m_work.runUserSet(set, Action::Load); });
        actions->addAction(tr("&Save the settings of now into it\u2026"), this,
            [this, set] { m_work.runUserSet(set, Action::Save); });
        actions->addAction(tr("&Compare with now\u2026"), this,
            [this, set] { m_work.runUserSet(set, Action::LookInto); });
    }
    if (menu.isEmpty()) {
        menu.addAction(tr("The camera keeps none"))->setEnabled(false);
    }
}

void SettingsMenu::chooseAndSave()
{
    const QString file = QFileDialog::getSaveFileName(m_window, tr("Save settings"),
        m_work.camera().name() + QStringLiteral(".zqs"), fileFilter());
    if (!file.isEmpty()) {
        m_work.save(file);
    }
}

void SettingsMenu::chooseAndLoad()
{
    const QString file
        = QFileDialog::getOpenFileName(m_window, tr("Load settings"), {}, fileFilter());
    if (!file.isEmpty()) {
        m_work.load(file);
    }
}

void SettingsMenu::chooseAndCompare()
{
    const QString file
        = QFileDialog::getOpenFileName(m_window, tr("Compare with a file"), {}, fileFilter());
    if (!file.isEmpty()) {
        m_work.compareWithFile(file);
    }
}

void SettingsMenu::compareFiles()
{
    QStringList files;
    for (const QString& title : { tr("First file"), tr("Second file") }) {
        files.append(QFileDialog::getOpenFileName(m_window, title, {}, fileFilter()));
        if (files.last().isEmpty()) {
            return;
        }
    }
    m_work.compareFiles(files.first(), files.last());
}

} // namespace zqviewer
