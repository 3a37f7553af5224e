// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"
#include "program/CameraChoice.h"

#include "featurebrowser/ZQCameraTask.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

namespace zqviewer {

class CameraTaskBar;

/// Opens a camera and reads its features, shows how far that is, and says why it fails. Shows
/// itself when that takes long enough to be looked at. Accepted when the camera can be taken,
/// rejected when the user gives up.
class OpeningWindow : public QDialog {
    Q_OBJECT

public:
    explicit OpeningWindow(CameraChoice choice);
    ~OpeningWindow() override;

    const CameraChoice& choice() const { return m_choice; }
    /// Begins.
    void start();
    /// The camera with its features loaded, once; null before the window was accepted.
    std::unique_ptr<OpenedCamera> takeCamera() { return std::move(m_camera); }

private:
    void arrange();
    void read(std::unique_ptr<zqcameralib::ZQCamera> camera);
    /// Runs a task and what follows when it is done; else the user is told or has given up.
    void run(std::unique_ptr<zqcameralib::ZQCameraTask> task,
        const std::function<void(zqcameralib::ZQCameraTask&)>& done);
    void load();
    void fail(const QString& reason);

    CameraChoice m_choice;
    std::unique_ptr<OpenedCamera> m_camera;
    QLabel* m_heading;
    QLabel* m_reason;
    QWidget* m_ways; ///< what can be done after a failure
    QPushButton* m_again;
    QTimer m_appearance; ///< runs until the window shows itself
    std::unique_ptr<CameraTaskBar> m_tasks; ///< runs tasks of the camera and ends before it
};

} // namespace zqviewer
