// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQCamera.h"

#include "camera/Camera.h"
#include "description/DescriptionFile.h"
#include "opening/CameraOpening.h"
#include "opening/SimulatedOpening.h"
#include "simulation/SimulatedCamera.h"

#include <arv.h>

#include <sstream>

namespace zqcameralib {

namespace {

std::unique_ptr<ZQCamera> wrap(Result<std::unique_ptr<ZQCamera::Impl>> opened, std::string& error)
{
    if (!opened.isOk()) {
        error = opened.status().text();
        return nullptr;
    }
    return std::make_unique<ZQCamera>(std::move(opened.value()));
}

} // namespace

std::unique_ptr<ZQCamera> ZQCamera::OpenSimulated(std::string& error)
{
    return wrap(
        openSimulated(std::string(simulatedCameraDescription()), makeSimulatedCameraBehaviour()),
        error);
}

std::unique_ptr<ZQCamera> ZQCamera::OpenDescription(const std::string& path, std::string& error)
{
    std::string text;
    if (!readDescriptionFile(path, text, error)) {
        return nullptr;
    }
    std::unique_ptr<ZQCamera> camera = wrap(openDescription(std::move(text)), error);
    if (!camera) {
        error = path + ": " + error;
    }
    return camera;
}

std::unique_ptr<ZQCamera> ZQCamera::Open(
    const std::string& id, CameraAccess access, std::string& error)
{
    return openReal(id, access, std::make_shared<OpeningProgress>(), error);
}

std::unique_ptr<ZQCameraOpening> ZQCamera::OpenBeside(const std::string& id, CameraAccess access)
{
    return std::make_unique<ZQCameraOpening>(std::make_unique<ZQCameraOpening::Impl>(id, access));
}

std::string ZQCamera::description() const
{
    std::ostringstream text;
    m_impl->description().root().print(text, " ");
    return text.str();
}

std::string ZQCamera::versions()
{
    std::ostringstream text;
    text << "ZQDeviceManager " ZQ_VERSION ", Aravis " << arv_get_major_version() << '.'
         << arv_get_minor_version() << '.' << arv_get_micro_version();
    return text.str();
}

bool ZQCamera::isLost() const
{
    return m_impl->port().backend().isLost();
}

bool ZQCamera::isReadOnly() const
{
    return m_impl->port().backend().isReadOnly();
}

bool ZQCamera::reconnect(std::string& error)
{
    const Status found = m_impl->reconnect(true);
    error = found.isOk() ? error : found.text();
    return found.isOk();
}

void ZQCamera::limitWaiting(std::chrono::milliseconds total)
{
    m_impl->port().backend().limitWaiting(total);
}

ZQCamera::ZQCamera(std::unique_ptr<Impl> impl)
    : m_impl(std::move(impl))
{
}

ZQCamera::~ZQCamera() = default;

std::string ZQCamera::vendor() const
{
    return std::string(m_impl->description().vendor());
}
std::string ZQCamera::model() const
{
    return std::string(m_impl->description().model());
}
ZQCamera::Impl& ZQCamera::impl()
{
    return *m_impl;
}

} // namespace zqcameralib
