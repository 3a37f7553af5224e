// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"

#include "featurebrowser/ZQChunkDecoder.h"

#include <QDateTime>
#include <QWidget>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QAction;
class QLabel;
class QToolBar;
QT_END_NAMESPACE

namespace featurebrowser {
class ZQImageView;
} // namespace featurebrowser

namespace zqviewer {

class CameraTaskBar;
class LiveImage;

/// A camera's live image with what a user does to it: start and stop, zoom, turn, select a region,
/// save and record; below it the pixel under the mouse and how the images come.
class ImagePane : public QWidget {
    Q_OBJECT

public:
    /// `camera` has to outlive the pane.
    ImagePane(OpenedCamera& camera, QWidget* parent);
    /// Stops the images.
    ~ImagePane() override;

    LiveImage& live() { return *m_live; }
    featurebrowser::ZQImageView& view() { return *m_view; }
    /// What came along with the image that is shown.
    std::vector<featurebrowser::ZQChunkValue> shownChunks() const;
    /// Whether the camera is lost: the picture is then shown as the last one, until another comes.
    void setLost(bool isLost);
    /// Stops the images; nothing touches the camera any more.
    void close();

    /// For menus, in their order; null where a separator belongs.
    const QList<QAction*>& acquisitionActions() const { return m_acquisition; }
    const QList<QAction*>& viewActions() const { return m_viewing; }
    const QList<QAction*>& fileActions() const { return m_files; }

Q_SIGNALS:
    void told(bool isGood, const QString& text);
    /// These features were written, and have to be shown anew.
    void written(const QStringList& features);

private:
    QAction* add(QList<QAction*>& group, const QString& words, const char* name, QKeySequence keys);
    void makeAcquisitionActions();
    void makeViewActions();
    void makeFileActions();
    void fillBar(QToolBar& bar);
    void arrange();
    void connectView();
    void showFigures(const QString& text);
    void imageChanged();
    void showOutdated();
    void runningChanged(bool isRunning);
    void startSeveral();
    void turn(bool isClockwise);
    void flip();
    void writeRegion(bool isWhole);
    void save();
    void toggleRecording(bool isWanted);

    OpenedCamera& m_camera;
    featurebrowser::ZQImageView* m_view;
    CameraTaskBar* m_tasks;
    QLabel* m_pixel;
    QLabel* m_figures;
    QList<QAction*> m_acquisition;
    QList<QAction*> m_viewing;
    QList<QAction*> m_files;
    QAction* m_start = nullptr;
    QAction* m_stop = nullptr;
    QAction* m_single = nullptr;
    QAction* m_several = nullptr;
    QAction* m_fit = nullptr;
    QAction* m_pixels = nullptr;
    QAction* m_marks = nullptr;
    QAction* m_flipX = nullptr;
    QAction* m_flipY = nullptr;
    QAction* m_region = nullptr;
    QAction* m_packets = nullptr;
    QAction* m_save = nullptr;
    QAction* m_record = nullptr;
    QString m_allFigures; ///< of which the label may show the beginning
    QDateTime m_shownSince; ///< the picture
    bool m_isLost = false;
    int m_count = 10; ///< images that were wanted last
    std::unique_ptr<LiveImage> m_live; ///< ends before the view
};

} // namespace zqviewer
