// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "session/Discovery.h"

#include "featurebrowser/ZQCamera.h"

namespace zqcameralib {

class __attribute__((visibility("hidden"))) ZQDiscovery::Impl {
public:
    std::vector<CameraInfo> cameras;
};

ZQDiscovery::ZQDiscovery()
    : m_impl(std::make_unique<Impl>())
{
}

ZQDiscovery::~ZQDiscovery() = default;

std::vector<std::string> ZQDiscovery::interfaces()
{
    return { "GigEVision", "USB3Vision" };
}

std::vector<CameraInfo> ZQDiscovery::discover(const std::vector<std::string>& interfaces)
{
    m_impl->cameras = discoverCameras(interfaces);
    return m_impl->cameras;
}

const std::vector<CameraInfo>& ZQDiscovery::cameras() const
{
    return m_impl->cameras;
}

} // namespace zqcameralib
