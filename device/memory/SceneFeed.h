// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "scene/SceneSettings.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace zqcameralib {

/// Between a camera in process and the frames that it sends: the camera's thread tells what has
/// changed, the frames' thread takes it.
class SceneFeed {
public:
    /// What the frames' thread has to know.
    struct Order {
        SceneSettings settings;
        std::uint64_t settingsNumber = 0; ///< another one for other settings
        bool isSending = true;
        std::uint64_t triggers = 0; ///< not answered yet
    };

    // On the camera's thread.
    void setSettings(SceneSettings settings);
    /// Frames are sent from the beginning unless it says otherwise.
    void setSending(bool isSending);
    /// TriggerSoftware; without effect where nothing waits for it.
    void trigger();
    /// Whether the frames asked for have been taken; tells it once.
    bool takeEnd();

    // On the frames' thread.
    Order take();
    void answerTrigger();
    /// Until something is told, or so long.
    void wait(std::chrono::milliseconds longest);
    void end();

private:
    void tell();

    std::mutex m_mutex;
    std::condition_variable m_told;
    bool m_isTold = false;
    bool m_hasEnded = false;
    Order m_order;
};

} // namespace zqcameralib
