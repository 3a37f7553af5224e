#include "featurebrowser/ZQCamera.h"

#include "Camera.h"
#include "CameraLink.h"
#include "DescriptionFile.h"
#include "Discovery.h"
#include "SimulatedCamera.h"

namespace zqcameralib {

namespace {

std::unique_ptr<ZQCamera> wrap(std::unique_ptr<ZQCamera::Impl> impl)
{
    return impl ? std::make_unique<ZQCamera>(std::move(impl)) : nullptr;
}

} // namespace

std::unique_ptr<ZQCamera> ZQCamera::OpenSimulated(std::string& error)
{
    return wrap(openSimulated(
        std::string(simulatedCameraDescription()), makeSimulatedCameraBehaviour(), error));
}

std::unique_ptr<ZQCamera> ZQCamera::OpenDescription(const std::string& path, std::string& error)
{
    std::string text;
    if (!readDescriptionFile(path, text, error)) {
        return nullptr;
    }
    std::unique_ptr<ZQCamera> camera = wrap(openDescription(std::move(text), error));
    if (!camera) {
        error = path + ": " + error;
    }
    return camera;
}

std::unique_ptr<ZQCamera> ZQCamera::Open(
    const std::string& id, CameraAccess access, std::string& error)
{
    CameraPlace place;
    if (!findCamera(id, place, error)) {
        return nullptr;
    }
    std::unique_ptr<CameraLink> link = CameraLink::open(place, access, error);
    if (!link) {
        return nullptr;
    }
    std::string text = link->description();
    std::unique_ptr<ZQCamera> camera = wrap(openOver(std::move(text), std::move(link), error));
    if (!camera) {
        error = id + ": " + error;
    }
    return camera;
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
    m_impl->port().invalidate();
    return m_impl->port().backend().reconnect(error);
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
