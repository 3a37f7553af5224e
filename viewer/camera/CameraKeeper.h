// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"

#include "featurebrowser/ZQFeatureBrowser.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTimer>

#include <string>
#include <vector>

namespace zqviewer {

class CameraTaskBar;

/// Keeps what the browser shows true to the camera: watches whether the camera is there, reads it
/// beside the user and shows the result, and reconnects. A row that nothing has confirmed is marked
/// (FEATURE_READ_FAILED) until it was read.
class CameraKeeper : public QObject {
    Q_OBJECT

public:
    /// The browser shows the loaded repository of `camera`. Nothing is owned, all has to outlive
    /// this.
    CameraKeeper(
        OpenedCamera& camera, featurebrowser::ZQFeatureBrowser& browser, CameraTaskBar& tasks);

    /// Reads all features because the user wants it, and says how it went.
    void readAll();
    /// Reads all features soon because some may have changed, and says only when that fails.
    void readAgain();
    /// After the user has done something: looks what has become of the camera, marks the rows and
    /// reads what is missing, when the event is over. The browser may go on to read some features
    /// in it.
    void lookSoon();
    /// Finds a lost camera, or another one in its place, and reads it.
    void reconnect();
    /// While it is paused nothing is read: the camera belongs to somebody else.
    void pause(bool isPaused) { m_isPaused = isPaused; }
    /// Whether a lost camera is sought without being asked for, at growing intervals. On at first.
    void setReconnectsByItself(bool doesIt);

Q_SIGNALS:
    void message(bool good, const QString& text);
    /// What the last bad message was about is over.
    void recovered(const QString& text);
    void lostChanged(bool isLost);
    /// The camera is sought now.
    void trying();
    /// It will be sought so many milliseconds from now; negative: only when the user wants it.
    void nextTry(int milliseconds);
    /// Another camera is there, or the same with other rights.
    void cameraChanged();

private:
    enum class Wanted { Nothing, Outstanding, All };

    void look();
    void lookAtLost();
    int markAll();
    void noteReturn();
    Wanted wanted();
    void read(Wanted what, bool isAsked);
    void readingEnded(zqcameralib::ZQCameraTask& task, zqcameralib::ZQCameraTask::State state);
    void readingCancelled();
    bool show();
    bool rebuild();
    std::vector<std::string> names();
    void tell(const OpenedCamera::Reading& reading);
    void planReconnecting();
    void reconnectingEnded(zqcameralib::ZQCameraTask& task, zqcameralib::ZQCameraTask::State state);
    void showReconnected();
    void followCamera();

    OpenedCamera& m_camera;
    featurebrowser::ZQFeatureBrowser& m_browser;
    CameraTaskBar& m_tasks;
    QTimer m_watch;
    QTimer m_soon;
    QTimer m_reconnection; ///< runs until the camera is sought by itself
    bool m_reconnectsByItself = true;
    int m_tries = 0; ///< since the camera was lost
    std::vector<std::string> m_shown; ///< names of the rows; none when the tree was emptied
    bool m_isPaused = false;
    bool m_isLost = false;
    QString m_loss; ///< as the user was told
    bool m_isReconnecting = false;
    bool m_isOther = false; ///< another camera was found while reconnecting
    bool m_isAsked = false; ///< the user waits for what the reading finds
    bool m_isCancelled = false; ///< the user does not want what is missing to be read
    bool m_wantsAll = false; ///< what is shown may be outdated
    QDeadlineTimer m_pause; ///< before which nothing is read unasked
    int m_failures = 0; ///< readings in a row
};

} // namespace zqviewer
