// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"

#include "featurebrowser/ZQFeatureBrowser.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <string>
#include <unordered_map>
#include <vector>

QT_BEGIN_NAMESPACE
class QTreeView;
QT_END_NAMESPACE

namespace zqviewer {

class CameraTaskBar;

/// Reads features again that the camera changes by itself: those on the screen whose description
/// gives a polling time, the pinned ones, and those that the application shows elsewhere. The
/// camera is asked no faster than it answers, with three times as long for everything else; not at
/// all while the browser is hidden, the camera is lost or something else is being read.
class FeaturePolling : public QObject {
    Q_OBJECT

public:
    /// Nothing is owned, all has to outlive this.
    FeaturePolling(OpenedCamera& camera, featurebrowser::ZQFeatureBrowser& browser, QTreeView& tree,
        CameraTaskBar& tasks);

    /// The feature is shown beside the browser and is read as well, where the camera has it.
    void follow(const std::string& name) { m_followed.push_back(name); }
    /// While it is paused nothing is read: the camera belongs to somebody else.
    void pause(bool isPaused) { m_isPaused = isPaused; }
    /// The camera's features have been read anew: their polling times may be others.
    void forget() { m_features.clear(); }

Q_SIGNALS:
    /// A feature could not be read.
    void failed();

private:
    using Clock = std::chrono::steady_clock;
    struct Polled {
        std::chrono::milliseconds period;
        Clock::time_point isRead; ///< when last
    };

    void look();
    bool isIdle() const;
    std::vector<std::string> wanted() const;
    Polled& polled(const std::string& name);
    void poll(const std::string& name, Polled& polled);

    OpenedCamera& m_camera;
    featurebrowser::ZQFeatureBrowser& m_browser;
    QTreeView& m_tree;
    CameraTaskBar& m_tasks;
    std::vector<std::string> m_followed;
    std::unordered_map<std::string, Polled> m_features;
    bool m_isPaused = false;
    Clock::time_point m_rest; ///< until when the camera is left alone
    QTimer m_timer;
};

} // namespace zqviewer
