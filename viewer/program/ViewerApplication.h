// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QApplication>

#include <chrono>
#include <vector>

namespace zqcameralib {
class ZQCamera;
} // namespace zqcameralib

namespace zqviewer {

/// The application. It bounds how long one turn of the event loop waits for each camera, so that
/// the windows go on answering whatever becomes of it.
class ViewerApplication : public QApplication {
    Q_OBJECT

public:
    /// How long all operations of one turn together wait for the camera.
    static constexpr std::chrono::milliseconds turnLimit { 1000 };

    using QApplication::QApplication;

    /// Bounds the turns for this camera too, beginning with this one, until it is removed. Does
    /// nothing where the application is another one. The camera is not owned.
    static void addCamera(zqcameralib::ZQCamera* camera);
    static void removeCamera(zqcameralib::ZQCamera* camera);
    /// Whether the turn that runs now has no time left: what it asked of the camera may have got no
    /// answer. False where the application is another one.
    static bool isTurnOver();

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void beginTurn();

    using Clock = std::chrono::steady_clock;

    std::vector<zqcameralib::ZQCamera*> m_cameras;
    Clock::time_point m_turnBegan;
    int m_loopLevel = -1; ///< of the event loop whose event is handled now; -1: none is
};

} // namespace zqviewer
