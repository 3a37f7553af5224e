#include "window/ViewerWindow.h"

#include "camera/CameraKeeper.h"
#include "camera/CameraTaskBar.h"
#include "images/LiveImage.h"
#include "program/ViewerApplication.h"
#include "images/ImagePane.h"
#include "window/MessageLabel.h"
#include "window/WindowMemory.h"

#include <QAction>
#include <QDockWidget>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTreeView>

using namespace featurebrowser;

namespace zqviewer {

ViewerWindow::ViewerWindow(OpenedCamera& camera, TYPE_LEVEL level, WindowMemory* memory)
    : m_camera(camera)
    , m_browser(&camera.device(), this)
    , m_memory(memory)
    , m_message(new MessageLabel(this))
    , m_tasks(new CameraTaskBar(this))
    , m_reconnect(new QPushButton(tr("&Reconnect"), this))
{
    arrange();
    m_browser.LoadFeatureBrowser();
    m_camera.describe(m_browser);
    m_browser.ShowStandalone(
        0, 0, m_memory != nullptr ? m_memory->columns() : std::vector<int>(), level);
    resize(QSize(1280, 860).boundedTo(screen()->availableSize()));
    if (m_memory != nullptr) {
        m_memory->restore(*this, *tree(), m_camera.name());
    }
    m_keeper = std::make_unique<CameraKeeper>(m_camera, m_browser, *m_tasks);
    connectKeeper();
    showTitle();
    const OpenedCamera::Reading reading = m_camera.reading();
    showMessage(reading.isComplete, reading.text);
}

ViewerWindow::~ViewerWindow()
{
    m_images->close();
    m_keeper.reset();
    // The browser owns its widget: hand it back before the window deletes its children.
    takeCentralWidget();
}

void ViewerWindow::arrange()
{
    m_message->setObjectName(QStringLiteral("message"));
    m_message->setContentsMargins(6, 0, 0, 0); // as the browser above
    m_reconnect->setObjectName(QStringLiteral("reconnect"));
    m_reconnect->setToolTip(tr("Find the camera again, or another one in its place"));
    m_reconnect->hide();
    // The browser does not jump when a button comes or goes.
    statusBar()->setMinimumHeight(m_reconnect->sizeHint().height() + 6);
    statusBar()->addWidget(m_message, 1);
    statusBar()->addWidget(m_browser.GetWidget()->property("statusLine").value<QWidget*>(), 1);
    statusBar()->addPermanentWidget(m_tasks);
    statusBar()->addPermanentWidget(m_reconnect);
    auto* reload = new QAction(tr("Read all features again"), this);
    reload->setShortcut(QKeySequence::Refresh);
    addAction(reload);
    connect(reload, &QAction::triggered, this, [this] { m_keeper->readAll(); });
    setCentralWidget(m_browser.GetWidget());
    m_images = new ImagePane(m_camera, this);
    auto* dock = new QDockWidget(tr("Image"), this);
    dock->setObjectName(QStringLiteral("imageDock"));
    dock->setWidget(m_images);
    addDockWidget(Qt::RightDockWidgetArea, dock);
    resizeDocks({ dock }, { 640 }, Qt::Horizontal);
    connect(m_images, &ImagePane::told, this, &ViewerWindow::imagesTold);
}

void ViewerWindow::connectKeeper()
{
    connect(m_reconnect, &QPushButton::clicked, m_keeper.get(), &CameraKeeper::reconnect);
    connect(m_keeper.get(), &CameraKeeper::lostChanged, m_reconnect, &QWidget::setVisible);
    connect(m_keeper.get(), &CameraKeeper::cameraChanged, this, &ViewerWindow::showTitle);
    connect(m_keeper.get(), &CameraKeeper::message, this, [this](bool good, const QString& text) {
        showMessage(good, text);
        m_isKeepersMessage = true;
    });
    connect(m_keeper.get(), &CameraKeeper::recovered, this, [this](const QString& text) {
        if (m_isKeepersMessage) {
            showMessage(true, text);
        }
    });
}

QTreeView* ViewerWindow::tree() const
{
    return findChild<QTreeView*>(QStringLiteral("featureTree"));
}

void ViewerWindow::showTitle()
{
    const QString name = m_camera.name();
    setWindowTitle(m_camera.camera().isReadOnly() ? tr("%1 (read-only)").arg(name) : name);
}

void ViewerWindow::showMessage(bool good, const QString& text)
{
    m_message->setVisible(!text.isEmpty());
    m_message->showText(good ? text : QStringLiteral("\u26A0 ") + text);
}

/// What stands in the row now, not what was entered.
void ViewerWindow::showWritten(const std::string& name)
{
    m_isKeepersMessage = false;
    const QString shownName = QString::fromStdString(name);
    const auto& states = m_camera.repository().GetFeatureStates();
    const auto state = states.find(name);
    if (state != states.end() && state->second == FEATURE_READ_FAILED) {
        showMessage(false, tr("%1 was written, but could not be read back.").arg(shownName));
        m_isKeepersMessage = true; // who goes on to read it
    } else {
        showMessage(true, {}); // the browser's own line tells it
    }
    m_keeper->lookSoon();
}

void ViewerWindow::FeatureIntModified(std::string name, long)
{
    showWritten(name);
}

void ViewerWindow::FeatureEnumModified(std::string name, std::string, int)
{
    showWritten(name);
}

void ViewerWindow::FeatureBoolModified(std::string name, int)
{
    showWritten(name);
}

void ViewerWindow::FeatureStringModified(std::string name, std::string)
{
    showWritten(name);
}

void ViewerWindow::FeatureIPModified(std::string name, const std::string&)
{
    showWritten(name);
}

void ViewerWindow::FeatureDoubleModified(std::string name, double)
{
    showWritten(name);
}

void ViewerWindow::FeatureExecCommand(std::string name)
{
    if (name == "AcquisitionStart") {
        return m_images->live().start();
    }
    if (name == "AcquisitionStop") {
        return m_images->live().stop();
    }
    const int status = m_camera.device().ExecuteCommand(name.c_str(), 1);
    SendError(status,
        status == STATUS_OK ? "Executed Command [" + name + "]"
                            : m_camera.errorText(status).toStdString());
    AllConfigChanged();
}

/// Starting and stopping locks and frees features.
void ViewerWindow::imagesTold(bool good, const QString& text)
{
    showMessage(good, text);
    AllConfigChanged();
    m_keeper->lookSoon();
}

void ViewerWindow::SendError(int code, std::string text)
{
    showMessage(code == STATUS_OK, QString::fromStdString(text));
    // Where no answer came in time, reading tells whether the camera has taken it.
    m_isKeepersMessage = code != STATUS_OK && ViewerApplication::isTurnOver();
    if (m_isKeepersMessage) {
        m_keeper->readAgain();
    }
    m_keeper->lookSoon();
}

void ViewerWindow::AllConfigChanged()
{
    m_isKeepersMessage = false; // how a command went is not told by reading
    m_keeper->readAgain();
}

void ViewerWindow::ItemSelectionChanged(std::string) { }

void ViewerWindow::ItemColumnResized(int column, int width)
{
    if (m_memory != nullptr) {
        m_memory->setColumn(column, width);
    }
}

void ViewerWindow::FeatureCloseDialog(int, int, TYPE_LEVEL) { }

void ViewerWindow::FeatureLevelChanged(TYPE_LEVEL level)
{
    if (m_memory != nullptr) {
        m_memory->setLevel(level);
    }
}

void ViewerWindow::closeEvent(QCloseEvent* event)
{
    if (m_memory != nullptr) {
        m_memory->store(*this, *tree(), m_camera.name());
    }
    QMainWindow::closeEvent(event);
}

} // namespace zqviewer
