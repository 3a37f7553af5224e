// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "../CameraUser.h"
#include "FakeCamera.h"
#include "FaultProxy.h"

#include "featurebrowser/ZQCamera.h"

#include <gtest/gtest.h>

#include <stdexcept>

/// A camera process, a proxy before it, and the real camera side on the other end.
class GigeFixture : public testing::Test, protected CameraUser {
protected:
    static constexpr const char* directly = FakeCamera::usualAddress;

    /// Opens and loads. Throws what is wrong: no test goes on without its camera.
    void open(const char* address = FaultProxy::address,
        zqcameralib::CameraAccess access = zqcameralib::CameraAccess::Control)
    {
        close();
        std::string error;
        m_camera = zqcameralib::ZQCamera::Open(address, access, error);
        if (!m_camera) {
            throw std::runtime_error("not opened: " + error);
        }
        m_device = std::make_unique<featurebrowser::ZQCameraDevice>(m_camera.get(), nullptr);
        m_repository = m_device->GetRepository();
        if (m_repository->Load() != featurebrowser::STATUS_OK) {
            throw std::runtime_error("not loaded");
        }
    }

    void replaceCamera(int imageLoss = 0)
    {
        m_fake = nullptr;
        m_fake = std::make_unique<FakeCamera>(ZQ_SIMULATED_CAMERA_XML, imageLoss);
    }

    void close()
    {
        m_device = nullptr;
        m_camera = nullptr;
    }

    bool recovers()
    {
        return eventually([this] { return m_device->Reconnect() == featurebrowser::STATUS_OK; });
    }

    featurebrowser::ZQCameraDevice& used() override { return *m_device; }

    std::unique_ptr<FakeCamera> m_fake = std::make_unique<FakeCamera>(ZQ_SIMULATED_CAMERA_XML);
    FaultProxy m_proxy { 7 };
    std::unique_ptr<zqcameralib::ZQCamera> m_camera;
    std::unique_ptr<featurebrowser::ZQCameraDevice> m_device;
    featurebrowser::ZQCameraRepository* m_repository = nullptr;
};
