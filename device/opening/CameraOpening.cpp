// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/CameraOpening.h"

#include "camera/Camera.h"
#include "link/CameraLink.h"
#include "session/Discovery.h"
#include "words/Words.h"

#include <thread>
#include <utility>

namespace zqcameralib {

std::unique_ptr<ZQCamera> openReal(const std::string& id, CameraAccess access,
    const std::shared_ptr<OpeningProgress>& progress, std::string& error)
{
    CameraPlace place;
    progress->step = OpeningProgress::Step::Searching;
    if (!findCamera(id, place, error)) {
        return nullptr;
    }
    Result<std::unique_ptr<CameraLink>> link = CameraLink::open(place, access, progress);
    if (!link.isOk()) {
        error = link.status().text();
        return nullptr;
    }
    progress->step = OpeningProgress::Step::Preparing;
    std::string text = link.value()->description();
    Result<std::unique_ptr<ZQCamera::Impl>> impl
        = openOver(std::move(text), std::move(link.value()));
    if (!impl.isOk()) {
        error = id + ": " + impl.status().text();
        return nullptr;
    }
    return std::make_unique<ZQCamera>(std::move(impl.value()));
}

ZQCameraOpening::Impl::Impl(std::string id, CameraAccess access)
{
    std::thread([shared = m_shared, id = std::move(id), access] {
        std::string error;
        std::unique_ptr<ZQCamera> camera = openReal(id, access, shared->progress, error);
        const std::lock_guard<std::mutex> lock(shared->mutex);
        if (!shared->progress->isCancelled) {
            shared->camera = std::move(camera);
        }
        shared->error = std::move(error);
        shared->isOver = true;
    }).detach();
}

ZQCameraOpening::Impl::~Impl()
{
    cancel();
}

ZQCameraTask::State ZQCameraOpening::Impl::poll()
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    if (m_state == State::Running && m_shared->isOver) {
        m_state = m_shared->camera ? State::Done : State::Failed;
    }
    return m_state;
}

ZQCameraTask::Progress ZQCameraOpening::Impl::progress() const
{
    switch (m_shared->progress->step) {
    case OpeningProgress::Step::Searching:
        return { translated("Searching"), 0, 0 };
    case OpeningProgress::Step::Asking:
        return { translated("Connecting"), 0, 0 };
    case OpeningProgress::Step::Waiting:
        return { translated("Waiting for another camera that is being opened"), 0, 0 };
    case OpeningProgress::Step::Reading:
        return { translated("Reading the camera's description"), 0, 0 };
    case OpeningProgress::Step::Preparing:
        break;
    }
    return { translated("Preparing the features"), 0, 0 };
}

void ZQCameraOpening::Impl::cancel()
{
    m_shared->progress->isCancelled = true;
    if (m_state == State::Running) {
        m_state = State::Cancelled;
    }
}

std::string ZQCameraOpening::Impl::error() const
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    return m_shared->error;
}

std::unique_ptr<ZQCamera> ZQCameraOpening::Impl::takeCamera()
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    return m_state == State::Done ? std::move(m_shared->camera) : nullptr;
}

ZQCameraOpening::ZQCameraOpening(std::unique_ptr<Impl> impl)
    : m_impl(std::move(impl))
{
}

ZQCameraOpening::~ZQCameraOpening() = default;

ZQCameraTask::State ZQCameraOpening::poll()
{
    return m_impl->poll();
}
ZQCameraTask::Progress ZQCameraOpening::progress() const
{
    return m_impl->progress();
}
void ZQCameraOpening::cancel()
{
    m_impl->cancel();
}
std::string ZQCameraOpening::error() const
{
    return m_impl->error();
}
std::unique_ptr<ZQCamera> ZQCameraOpening::takeCamera()
{
    return m_impl->takeCamera();
}

} // namespace zqcameralib
