#pragma once

#include "featurebrowser/IEventFeatureReceiver.h"
#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <QMainWindow>

#include <memory>

class QLabel;
class QPushButton;
class QTreeView;

namespace zqviewer {

/// The viewer's window: the feature browser of one camera, and a status bar for its messages.
/// As the browser's receiver it carries out what the browser leaves to the application: starting
/// and stopping acquisition, and the reset of the camera.
class ViewerWindow : public QMainWindow, private featurebrowser::IEventFeatureReceiver {
    Q_OBJECT

public:
    /// `camera` has to outlive the window. Reads all features; on failure `error` is one line and
    /// the window is of no use.
    ViewerWindow(zqcameralib::ZQCamera& camera, featurebrowser::TYPE_LEVEL level, QString& error);
    ~ViewerWindow() override;

    /// The view of the features.
    QTreeView* tree() const;

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

    void showWritten(const std::string& name, const QString& value);
    void showMessage(bool good, const QString& text);
    void run(const std::string& command);
    void reload();
    void watchConnection();
    void reconnect();

    zqcameralib::ZQCamera& m_camera;
    featurebrowser::ZQCameraDevice m_device;
    featurebrowser::ZQFeatureBrowser m_browser;
    QLabel* m_message;
    QPushButton* m_reconnect;
};

} // namespace zqviewer
