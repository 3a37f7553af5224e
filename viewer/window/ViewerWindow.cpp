// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/ViewerWindow.h"

#include "camera/CameraKeeper.h"
#include "camera/CameraTaskBar.h"
#include "camera/FeaturePolling.h"
#include "images/ChunkPane.h"
#include "images/HistogramPane.h"
#include "images/ImagePane.h"
#include "images/LiveImage.h"
#include "log/CameraLog.h"
#include "log/LogPane.h"
#include "opening/DroppedFile.h"
#include "program/FileKind.h"
#include "program/ViewerApplication.h"
#include "settings/SettingsMenu.h"
#include "settings/ShownSettings.h"
#include "window/LostBanner.h"
#include "window/MessageLabel.h"
#include "window/OfferBar.h"
#include "window/WindowMemory.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QToolBar>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

using namespace featurebrowser;

namespace zqviewer {

ViewerWindow::ViewerWindow(
    OpenedCamera& camera, TYPE_LEVEL level, WindowMemory* memory, std::shared_ptr<EventLog> log)
    : m_camera(camera)
    , m_browser(&camera.device(), this)
    , m_memory(memory)
    , m_log(std::make_unique<CameraLog>(camera,
          *m_browser.GetWidget()->property("changeLog").value<QAbstractItemModel*>(),
          std::move(log)))
    , m_banner(new LostBanner(this))
    , m_offer(new OfferBar(this))
    , m_message(new MessageLabel(this))
    , m_tasks(new CameraTaskBar(this))
{
    ViewerApplication::addCamera(&m_camera.camera());
    arrange();
    m_browser.LoadFeatureBrowser();
    m_camera.describe(m_browser);
    m_browser.ShowStandalone(
        0, 0, m_memory != nullptr ? m_memory->columns() : std::vector<int>(), level);
    if (m_memory != nullptr) {
        m_memory->restore(*this, *m_browser.GetWidget(), m_camera.name());
    }
    begin();
}

void ViewerWindow::begin()
{
    m_keeper = std::make_unique<CameraKeeper>(m_camera, m_browser, *m_tasks);
    m_keeper->setReconnectsByItself(m_memory == nullptr || m_memory->reconnectsByItself());
    m_polling = std::make_unique<FeaturePolling>(m_camera, m_browser, *tree(), *m_tasks);
    m_polling->follow("DeviceTemperature");
    connectKeeper();
    makeMenus();
    showTitle();
    const OpenedCamera::Reading reading = m_camera.reading();
    showMessage(reading.isComplete, reading.text);
    m_log->add(reading.isComplete ? LogLine::Kind::Found : LogLine::Kind::Note, reading.text);
}

ViewerWindow::~ViewerWindow()
{
    m_images->close();
    m_polling.reset();
    m_keeper.reset();
    ViewerApplication::removeCamera(&m_camera.camera());
    // The browser owns its widget: hand it back before the window deletes its children.
    m_browser.GetWidget()->setParent(nullptr);
}

void ViewerWindow::arrange()
{
    setAcceptDrops(true);
    const int frame = style()->pixelMetric(QStyle::PM_TitleBarHeight) + 8;
    resize(QSize(1280, 860).boundedTo(screen()->availableSize() - QSize(8, frame)));
    arrangeStatusBar();
    auto* middle = new QWidget(this);
    middle->setMinimumWidth(fontMetrics().averageCharWidth() * 40); // docks leave so much
    auto* layout = new QVBoxLayout(middle);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_banner);
    layout->addWidget(m_offer);
    layout->addWidget(m_browser.GetWidget(), 1);
    setCentralWidget(middle);
    makeDocks();
}

void ViewerWindow::arrangeStatusBar()
{
    m_message->setObjectName(QStringLiteral("message"));
    m_message->setContentsMargins(6, 0, 0, 0); // as the browser above
    // The browser does not jump when the task's button comes or goes.
    statusBar()->setMinimumHeight(m_tasks->sizeHint().height() + 6);
    statusBar()->addWidget(m_message, 1);
    statusBar()->addWidget(m_browser.GetWidget()->property("statusLine").value<QWidget*>(), 1);
    statusBar()->addPermanentWidget(m_tasks);
}

QDockWidget* ViewerWindow::addDock(
    QWidget* content, const QString& title, const char* name, Qt::DockWidgetArea area)
{
    auto* dock = new QDockWidget(title, this);
    dock->setObjectName(QLatin1String(name));
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
}

void ViewerWindow::makeDocks()
{
    m_images = new ImagePane(m_camera, this);
    QDockWidget* images = addDock(m_images, tr("Image"), "imageDock", Qt::RightDockWidgetArea);
    QDockWidget* histogram = addDock(new HistogramPane(m_images->view(), this), tr("Histogram"),
        "histogramDock", Qt::RightDockWidgetArea);
    QDockWidget* chunks = addDock(
        new ChunkPane(*m_images, this), tr("Chunk data"), "chunkDock", Qt::RightDockWidgetArea);
    tabifyDockWidget(histogram, chunks); // so that most of the height is left to the image
    histogram->hide();
    chunks->hide();
    auto* log = new LogPane(*m_log, this);
    addDock(log, tr("Log"), "logDock", Qt::BottomDockWidgetArea)->hide();
    resizeDocks({ images }, { std::min(640, width() / 2) }, Qt::Horizontal);
    connect(m_images, &ImagePane::told, this, &ViewerWindow::imagesTold);
    connect(log, &LogPane::told, this, &ViewerWindow::showMessage);
    connect(m_images, &ImagePane::written, this, [this](const QStringList& features) {
        for (const QString& name : features) {
            m_browser.RefreshFeature(name.toStdString());
        }
    });
}

/// While the camera belongs to a task of the settings.
void ViewerWindow::pause(bool isPaused)
{
    m_keeper->pause(isPaused);
    m_polling->pause(isPaused);
    for (QWidget* part : { static_cast<QWidget*>(menuBar()), centralWidget(),
             static_cast<QWidget*>(m_images), static_cast<QWidget*>(m_tools) }) {
        part->setEnabled(!isPaused);
    }
}

/// Where a camera that was lost holds other settings now, as after it was without power.
void ViewerWindow::offerSettings()
{
    if (m_camera.camera().isLost() || std::exchange(m_lostName, {}) != m_camera.title()) {
        return; // another one has settings of its own
    }
    const auto now = shownSettings(m_camera);
    int count = 0;
    for (const auto& difference : zqcameralib::ZQSettings::Compare(m_lostSettings, now)) {
        count += difference.first && difference.second ? 1 : 0;
    }
    if (count > 0) {
        m_offer->offer(
            tr("%n setting(s) differ from those before the camera was lost.", nullptr, count),
            tr("&Show and restore\u2026"));
    }
}

void ViewerWindow::connectKeeper()
{
    connect(m_banner, &LostBanner::reconnectWanted, m_keeper.get(), &CameraKeeper::reconnect);
    connect(m_keeper.get(), &CameraKeeper::lostChanged, this, &ViewerWindow::setLost);
    connect(m_keeper.get(), &CameraKeeper::trying, m_banner, &LostBanner::showTrying);
    connect(m_keeper.get(), &CameraKeeper::nextTry, m_banner, &LostBanner::showNextTry);
    connect(m_keeper.get(), &CameraKeeper::cameraChanged, this, [this] {
        m_polling->forget();
        showTitle();
        offerSettings();
    });
    connect(m_keeper.get(), &CameraKeeper::message, this, &ViewerWindow::keeperSays);
    connect(m_keeper.get(), &CameraKeeper::recovered, this, [this](const QString& text) {
        if (m_isKeepersMessage) {
            showMessage(true, text);
        }
        offerSettings();
    });
    connect(m_polling.get(), &FeaturePolling::failed, m_keeper.get(), &CameraKeeper::lookSoon);
}

void ViewerWindow::setLost(bool isLost)
{
    if (isLost && !m_browser.GetWidget()->property("cameraLost").toBool()) {
        m_lostSettings = shownSettings(m_camera);
        m_lostName = m_camera.title();
    }
    m_browser.GetWidget()->setProperty("cameraLost", isLost);
    m_reconnect->setEnabled(isLost);
    m_images->setLost(isLost);
    if (!isLost) {
        m_banner->hideLoss();
    }
}

/// Of the connection: while the camera is lost the banner says it.
void ViewerWindow::keeperSays(bool good, const QString& text)
{
    const bool isLoss = !good && m_browser.GetWidget()->property("cameraLost").toBool();
    if (isLoss) {
        m_banner->showLoss(text);
    }
    showMessage(good || isLoss, isLoss ? QString() : text);
    m_isKeepersMessage = true;
    if (!text.isEmpty()) {
        m_log->add(isLoss ? LogLine::Kind::Lost
                : good    ? LogLine::Kind::Found
                          : LogLine::Kind::Note,
            text);
    }
}

QTreeView* ViewerWindow::tree() const
{
    return findChild<QTreeView*>(QStringLiteral("featureTree"));
}

void ViewerWindow::showTitle()
{
    const QString name = m_camera.title();
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
    if (m_images->live().isRunning()) {
        m_images->live().stop(); // a reset ends them
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
    m_log->add(LogLine::Kind::Note, text);
    AllConfigChanged();
    m_keeper->lookSoon();
}

void ViewerWindow::SendError(int code, std::string text)
{
    showMessage(code == STATUS_OK, QString::fromStdString(text));
    if (code != STATUS_OK) { // a command that was run stands in the browser's own list
        m_log->add(LogLine::Kind::Refused, QString::fromStdString(text));
    }
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
        m_memory->store(*this, *m_browser.GetWidget(), m_camera.name());
    }
    QMainWindow::closeEvent(event);
    Q_EMIT closed();
}

void ViewerWindow::dragEnterEvent(QDragEnterEvent* event)
{
    if (!fileOf(*event->mimeData()).isEmpty()) {
        event->acceptProposedAction();
    }
}

void ViewerWindow::dropEvent(QDropEvent* event)
{
    const QString file = fileOf(*event->mimeData());
    if (isDescriptionFile(file)) {
        Q_EMIT descriptionDropped(file);
    } else {
        m_settings->work().load(file);
    }
}

} // namespace zqviewer
