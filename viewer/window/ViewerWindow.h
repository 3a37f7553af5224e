// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"

#include "featurebrowser/IEventFeatureReceiver.h"
#include "featurebrowser/ZQFeatureBrowser.h"
#include "featurebrowser/ZQSettings.h"

#include <QDockWidget>
#include <QMainWindow>

#include <memory>

QT_BEGIN_NAMESPACE
class QToolBar;
class QTreeView;
QT_END_NAMESPACE

namespace zqviewer {

class CameraKeeper;
class CameraLog;
class CameraTaskBar;
class EventLog;
class FeaturePolling;
class ImagePane;
class LostBanner;
class MessageLabel;
class OfferBar;
class SettingsMenu;
class WindowMemory;

/// The viewer's window: the feature browser of one camera, its live image, histogram, chunk data
/// and log in docks around it, and a status bar for its messages. As the browser's receiver it
/// carries out what the browser leaves to the application: starting and stopping acquisition, and
/// the reset of the camera.
class ViewerWindow : public QMainWindow, private featurebrowser::IEventFeatureReceiver {
    Q_OBJECT

public:
    /// `camera` has to outlive the window; its repository is loaded. `memory`: where the window
    /// finds and leaves its state; not owned, null for a window that nobody will come back to.
    /// `log`: of all cameras.
    ViewerWindow(OpenedCamera& camera, featurebrowser::TYPE_LEVEL level, WindowMemory* memory,
        std::shared_ptr<EventLog> log);
    ~ViewerWindow() override;

    /// The view of the features.
    QTreeView* tree() const;
    ImagePane& images() { return *m_images; }
    /// After the camera's number has changed.
    void showTitle();

Q_SIGNALS:
    void openWanted();
    void descriptionDropped(const QString& file);
    void closed();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void FeatureIntModified(std::string name, long value) override;
    void FeatureEnumModified(std::string name, std::string entry, int index) override;
    void FeatureBoolModified(std::string name, int value) override;
    void FeatureStringModified(std::string name, std::string value) override;
    void FeatureIPModified(std::string name, const std::string& text) override;
    void FeatureDoubleModified(std::string name, double value) override;
    void FeatureExecCommand(std::string name) override;
    void ItemSelectionChanged(std::string name) override;
    void ItemColumnResized(int column, int width) override;
    void FeatureCloseDialog(int width, int height, featurebrowser::TYPE_LEVEL level) override;
    void SendError(int code, std::string text) override;
    void FeatureLevelChanged(featurebrowser::TYPE_LEVEL level) override;
    void AllConfigChanged() override;

    void arrange();
    void arrangeStatusBar();
    QDockWidget* addDock(
        QWidget* content, const QString& title, const char* name, Qt::DockWidgetArea area);
    void makeDocks();
    void makeMenus();
    void makeCameraMenu();
    void makeSettingsMenu();
    void connectSettings();
    void makeToolBar(QAction* open);
    void pause(bool isPaused);
    void offerSettings();
    void makeViewMenu();
    void begin();
    void connectKeeper();
    void setLost(bool isLost);
    void keeperSays(bool good, const QString& text);
    void showWritten(const std::string& name);
    void showMessage(bool good, const QString& text);
    void imagesTold(bool good, const QString& text);

    OpenedCamera& m_camera;
    featurebrowser::ZQFeatureBrowser m_browser;
    WindowMemory* m_memory;
    std::unique_ptr<CameraLog> m_log;
    ImagePane* m_images = nullptr;
    LostBanner* m_banner;
    OfferBar* m_offer;
    SettingsMenu* m_settings = nullptr;
    QToolBar* m_tools = nullptr;
    zqcameralib::ZQSettings m_lostSettings; ///< as shown when the camera was lost
    QString m_lostName; ///< of that camera; empty when there is nothing to offer
    MessageLabel* m_message;
    CameraTaskBar* m_tasks;
    QAction* m_reconnect = nullptr;
    std::unique_ptr<CameraKeeper> m_keeper; ///< ends before the browser and the tasks
    std::unique_ptr<FeaturePolling> m_polling; ///< likewise
    bool m_isKeepersMessage = true; ///< what stands there is of the connection, not of an action
};

} // namespace zqviewer
