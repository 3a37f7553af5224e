// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQCamera.h"

#include <QString>

#include <future>

namespace zqviewer {

/// Opens a simulated camera beside the user: a large description takes its time.
class SimulatedOpening : public zqcameralib::ZQCameraTask {
public:
    /// `description`: GenICam description to simulate; empty for the built-in camera.
    explicit SimulatedOpening(const QString& description);

    State poll() override;
    Progress progress() const override;
    /// What is being read goes on behind, and nobody waits for it.
    void cancel() override;
    std::string error() const override;
    /// The camera, once, when it is Done.
    std::unique_ptr<zqcameralib::ZQCamera> takeCamera() { return std::move(m_opened.camera); }

private:
    struct Opened {
        std::unique_ptr<zqcameralib::ZQCamera> camera;
        std::string error;
    };

    std::future<Opened> m_opening;
    Opened m_opened;
    State m_state = State::Running;
};

} // namespace zqviewer
