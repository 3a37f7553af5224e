#pragma once

#include <QApplication>

#include <chrono>

namespace zqcameralib {
class ZQCamera;
} // namespace zqcameralib

namespace zqviewer {

/// The application. It bounds how long one turn of the event loop waits for the camera, so that the
/// windows go on answering whatever becomes of it.
class ViewerApplication : public QApplication {
    Q_OBJECT

public:
    /// How long all operations of one turn together wait for the camera.
    static constexpr std::chrono::milliseconds turnLimit { 1000 };

    using QApplication::QApplication;

    /// The camera whose turns are bounded from now on, beginning with this one; null for none. It
    /// is not owned.
    void setCamera(zqcameralib::ZQCamera* camera);
    /// Whether the turn that runs now has no time left: what it asked of the camera may have got no
    /// answer. False where the application is another one.
    static bool isTurnOver();

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void beginTurn();

    using Clock = std::chrono::steady_clock;

    zqcameralib::ZQCamera* m_camera = nullptr;
    Clock::time_point m_turnBegan;
    int m_loopLevel = -1; ///< of the event loop whose event is handled now; -1: none is
};

} // namespace zqviewer
