// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// The menus of a camera's window.
#include "camera/CameraKeeper.h"
#include "images/ImagePane.h"
#include "log/CameraLog.h"
#include "settings/SettingsMenu.h"
#include "window/OfferBar.h"
#include "window/ViewerWindow.h"
#include "window/WindowMemory.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStyle>
#include <QToolBar>

#include <array>
#include <utility>

namespace zqviewer {

namespace {

void fill(QMenu& menu, const QList<QAction*>& actions)
{
    for (QAction* action : actions) {
        action != nullptr ? menu.addAction(action) : static_cast<void>(menu.addSeparator());
    }
}

} // namespace

void ViewerWindow::makeMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    QAction* open = file->addAction(tr("&Open a camera\u2026"), this, &ViewerWindow::openWanted);
    open->setShortcut(QKeySequence::Open);
    open->setIcon(style()->standardIcon(QStyle::SP_DialogOpenButton));
    open->setIconText(tr("Open"));
    file->addSeparator();
    fill(*file, m_images->fileActions());
    file->addSeparator();
    file->addAction(tr("&Close"), this, &QWidget::close)->setShortcut(QKeySequence::Close);
    QAction* quit = file->addAction(tr("&Quit"), qApp, &QApplication::closeAllWindows);
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    makeCameraMenu();
    makeSettingsMenu();
    makeViewMenu();
    makeToolBar(open);
    QMenu* help = menuBar()->addMenu(tr("&Help"));
    help->addAction(tr("About &zqviewer"), this, [this] {
        QMessageBox::about(this, tr("About zqviewer"),
            tr("zqviewer %1: features and images of GenICam cameras.")
                    .arg(QCoreApplication::applicationVersion())
                + QStringLiteral("\n\n") + QString::fromStdString(zqcameralib::ZQCamera::versions())
                + QStringLiteral(", Qt ") + QLatin1String(qVersion()));
    });
}

void ViewerWindow::makeToolBar(QAction* open)
{
    m_tools = addToolBar(tr("Tools"));
    m_tools->setObjectName(QStringLiteral("tools"));
    m_tools->addAction(open);
    m_tools->addSeparator();
    m_tools->addActions(m_settings->mainActions());
}

void ViewerWindow::makeCameraMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("C&amera"));
    fill(*menu, m_images->acquisitionActions());
    menu->addSeparator();
    QAction* reload
        = menu->addAction(tr("Read all &features again"), this, [this] { m_keeper->readAll(); });
    reload->setShortcut(QKeySequence::Refresh);
    m_reconnect = menu->addAction(tr("&Reconnect"), this, [this] { m_keeper->reconnect(); });
    m_reconnect->setEnabled(false);
    QAction* byItself = menu->addAction(tr("Reconnect au&tomatically"));
    byItself->setObjectName(QStringLiteral("reconnectByItself"));
    byItself->setCheckable(true);
    byItself->setChecked(m_memory == nullptr || m_memory->reconnectsByItself());
    connect(byItself, &QAction::toggled, this, [this](bool isOn) {
        m_keeper->setReconnectsByItself(isOn);
        if (m_memory != nullptr) {
            m_memory->setReconnectsByItself(isOn);
        }
    });
}

void ViewerWindow::makeSettingsMenu()
{
    m_settings = new SettingsMenu(m_camera, m_images->live(), this);
    m_settings->fill(*menuBar()->addMenu(tr("&Settings")));
    SettingsWork* const work = &m_settings->work();
    connect(work, &SettingsWork::begun, this, [this] { pause(true); });
    connect(work, &SettingsWork::ended, this, [this] { pause(false); });
    connect(work, &SettingsWork::changed, m_keeper.get(), &CameraKeeper::readAgain);
    connect(work, &SettingsWork::told, this, [this](bool good, const QString& text) {
        showMessage(good, text);
        m_isKeepersMessage = false;
        m_log->add(good ? LogLine::Kind::Note : LogLine::Kind::Refused, text);
    });
    connect(m_offer, &OfferBar::accepted, this,
        [this, work] { work->compareWith(m_lostSettings, tr("Before the loss")); });
}

void ViewerWindow::makeViewMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    const std::array<std::pair<const char*, const char*>, 4> docks { { { "imageDock", "Ctrl+1" },
        { "histogramDock", "Ctrl+2" }, { "logDock", "Ctrl+3" }, { "chunkDock", "Ctrl+4" } } };
    for (const auto& [name, key] : docks) {
        auto* dock = findChild<QDockWidget*>(QLatin1String(name));
        QAction* toggle = dock->toggleViewAction();
        connect(toggle, &QAction::triggered, dock, &QWidget::raise); // from behind another one
        toggle->setShortcut(QKeySequence(QLatin1String(key)));
        menu->addAction(toggle);
    }
    menu->addSeparator();
    fill(*menu, m_images->viewActions());
}

} // namespace zqviewer
