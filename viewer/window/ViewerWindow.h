#pragma once

#include "camera/OpenedCamera.h"

#include "featurebrowser/IEventFeatureReceiver.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <QMainWindow>

#include <memory>

class QPushButton;
class QTreeView;

namespace zqviewer {

class CameraKeeper;
class CameraTaskBar;
class ImagePane;
class MessageLabel;
class WindowMemory;

/// The viewer's window: the feature browser of one camera, its live image beside it, and a status
/// bar for its messages.
/// As the browser's receiver it carries out what the browser leaves to the application: starting
/// and stopping acquisition, and the reset of the camera.
class ViewerWindow : public QMainWindow, private featurebrowser::IEventFeatureReceiver {
    Q_OBJECT

public:
    /// `camera` has to outlive the window; its repository is loaded. `memory`: where the window
    /// finds and leaves its state; not owned, null for a window that nobody will come back to.
    ViewerWindow(OpenedCamera& camera, featurebrowser::TYPE_LEVEL level, WindowMemory* memory);
    ~ViewerWindow() override;

    /// The view of the features.
    QTreeView* tree() const;
    ImagePane& images() { return *m_images; }

protected:
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
    void connectKeeper();
    void showTitle();
    void showWritten(const std::string& name);
    void showMessage(bool good, const QString& text);
    void imagesTold(bool good, const QString& text);

    OpenedCamera& m_camera;
    featurebrowser::ZQFeatureBrowser m_browser;
    WindowMemory* m_memory;
    ImagePane* m_images = nullptr;
    MessageLabel* m_message;
    CameraTaskBar* m_tasks;
    QPushButton* m_reconnect;
    std::unique_ptr<CameraKeeper> m_keeper; ///< ends before the browser and the tasks
    bool m_isKeepersMessage = true; ///< what stands there is of the connection, not of an action
};

} // namespace zqviewer
