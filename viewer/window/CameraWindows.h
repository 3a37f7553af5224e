// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/OpenedCamera.h"
#include "opening/RecentCameras.h"
#include "program/CameraChoice.h"
#include "window/WindowMemory.h"

#include <QObject>

#include <memory>
#include <optional>
#include <vector>

namespace zqviewer {

class EventLog;
class OpeningWindow;
class StartPage;
class ViewerWindow;

/// All windows of the program: the page to begin with, those on the way to a camera, and one for
/// each camera that is open. Ends the program when none is left.
class CameraWindows : public QObject {
    Q_OBJECT

public:
    /// `level`: features are shown up to this one; without, as it was last.
    explicit CameraWindows(std::optional<featurebrowser::TYPE_LEVEL> level);
    /// Closes all.
    ~CameraWindows() override;

    void showStartPage();
    /// Beside the user. A real camera that is open already is brought to the front.
    void open(const CameraChoice& choice);
    /// Images of cameras that are opened from now on start by themselves.
    void setLive(bool isLive) { m_isLive = isLive; }

private:
    struct Desk {
        CameraChoice choice;
        std::unique_ptr<OpenedCamera> camera;
        std::unique_ptr<ViewerWindow> window; ///< ends before the camera
    };

    bool bringToFront(const CameraChoice& choice);
    void openingEnded(OpeningWindow* opening, bool isOpen);
    void show(std::unique_ptr<OpenedCamera> camera, const CameraChoice& choice);
    void setNumber(OpenedCamera& camera) const;
    void closed(const ViewerWindow* window);
    void endWhenNothingIsLeft();

    std::optional<featurebrowser::TYPE_LEVEL> m_level;
    RecentCameras m_recent;
    WindowMemory m_memory;
    std::shared_ptr<EventLog> m_log;
    std::unique_ptr<StartPage> m_start;
    std::vector<std::unique_ptr<OpeningWindow>> m_openings;
    std::vector<std::unique_ptr<Desk>> m_desks;
    bool m_hasOpened = false; ///< any camera
    bool m_isLive = false;
};

} // namespace zqviewer
