#pragma once

#include "camera/OpenedCamera.h"

#include <QWidget>

#include <memory>

class QAction;
class QLabel;
class QToolBar;

namespace featurebrowser {
class ZQImageView;
} // namespace featurebrowser

namespace zqviewer {

class CameraTaskBar;
class LiveImage;

/// A camera's live image with what a user does to it: start and stop, zoom, save; below it the
/// pixel under the mouse and how the images come.
class ImagePane : public QWidget {
    Q_OBJECT

public:
    /// `camera` has to outlive the pane.
    ImagePane(OpenedCamera& camera, QWidget* parent);
    /// Stops the images.
    ~ImagePane() override;

    LiveImage& live() { return *m_live; }
    featurebrowser::ZQImageView& view() { return *m_view; }
    /// Stops the images; nothing touches the camera any more.
    void close();

Q_SIGNALS:
    void told(bool isGood, const QString& text);

private:
    void makeActions(QToolBar& bar);
    void runningChanged(bool isRunning);
    void save();

    featurebrowser::ZQImageView* m_view;
    CameraTaskBar* m_tasks;
    QLabel* m_pixel;
    QLabel* m_figures;
    QAction* m_start = nullptr;
    QAction* m_stop = nullptr;
    QAction* m_save = nullptr;
    std::unique_ptr<LiveImage> m_live; ///< ends before the view
};

/// Writes the image with all its bits; the name's end says the format (.png, .tif, .tiff). Returns
/// why not, in a sentence; empty when it has.
QString saveImage(const QImage& image, const QString& name);

} // namespace zqviewer
