// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "acquisition/StartTask.h"

#include "base/StatusCodes.h"
#include "words/Words.h"

#include "featurebrowser/FeatureTypes.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <utility>

namespace zqcameralib {

namespace {

std::vector<bool> neededFeatures(const ZQCamera::Impl& camera)
{
    constexpr std::array<std::string_view, 11> names { "Width", "Height", "PixelFormat",
        "PayloadSize", "AcquisitionResultingFrameRate", "AcquisitionFrameRate",
        "AcquisitionFrameRateAbs", "AcquisitionMode", "AcquisitionFrameCount", "TriggerMode",
        "AcquisitionStart" };
    std::vector<bool> needed;
    for (const Feature& feature : camera.features()) {
        needed.push_back(std::find(names.begin(), names.end(), feature.name) != names.end());
    }
    return needed;
}

} // namespace

StartTask::StartTask(ZQCamera::Impl& camera, Steps steps)
    : m_camera(camera)
    , m_steps(std::move(steps))
    , m_ahead(camera, {}, neededFeatures(camera))
{
}

/// Over what was read ahead, until the start itself changes the camera.
int StartTask::goOn()
{
    std::optional<RegisterPort::Ahead> ahead;
    if (m_ahead.isCurrent()) {
        ahead.emplace(m_camera.port(), m_ahead.known());
    }
    return m_steps.goOn();
}

ZQCameraTask::State StartTask::poll()
{
    // Once: the start itself changes the camera.
    m_isRead
        = m_isRead || m_outcome != State::Running || m_ahead.step() != ReadAhead::State::Running;
    if (m_outcome != State::Running || !m_isRead) {
        return m_outcome;
    }
    const int status = goOn();
    if (status == featurebrowser::STATUS_OK) {
        m_outcome = State::Done;
    } else if (status != stillWorking) {
        m_outcome = State::Failed;
        m_error = m_steps.error();
    }
    return m_outcome;
}

ZQCameraTask::Progress StartTask::progress() const
{
    return { translated("Starting the images"), m_ahead.done(), m_ahead.total() };
}

void StartTask::cancel()
{
    if (m_outcome == State::Running) {
        m_steps.giveUp();
        m_outcome = State::Cancelled;
    }
}

} // namespace zqcameralib
