// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Datagram.h"
#include "GigeFixture.h"
#include "base/StatusCodes.h"

#include "camera/Camera.h"
#include "link/CameraLink.h"

#include "featurebrowser/ZQAcquisition.h"

#include <atomic>

/// How many bytes of images the system lets a receive buffer hold, of those that are wanted.
inline std::uint64_t grantedBuffer(int wanted)
{
    const Socket socket;
    socklen_t size = sizeof wanted;
    setsockopt(socket.handle(), SOL_SOCKET, SO_RCVBUF, &wanted, size);
    getsockopt(socket.handle(), SOL_SOCKET, SO_RCVBUF, &wanted, &size);
    return static_cast<std::uint64_t>(wanted) / 2;
}

/// The acquisition of a camera's images.
class Streams : public GigeFixture {
protected:
    void open(const char* address = directly)
    {
        m_acquisition = nullptr;
        GigeFixture::open(address);
        m_acquisition
            = std::make_unique<featurebrowser::ZQAcquisition>(m_camera.get(), m_device.get());
    }

    /// As a program gets its images that may not read the network card's ring.
    void beOrdinaryUser()
    {
        const zqcameralib::Status begun
            = dynamic_cast<zqcameralib::SessionAccess&>(m_camera->impl().port().backend())
                  .beginWithSession([](zqcameralib::CameraSession& session) {
                      arv_gv_device_set_stream_options(ARV_GV_DEVICE(session.device()),
                          ARV_GV_STREAM_OPTION_PACKET_SOCKET_DISABLED);
                  });
        ASSERT_TRUE(begun.isOk()) << begun.text();
    }

    using Handler = featurebrowser::ZQAcquisition::FrameHandler;
    /// From none on.
    Handler counting()
    {
        m_frames = 0;
        return [this](const featurebrowser::ZQFrame& frame) {
            m_size = frame.size;
            ++m_frames;
        };
    }
    int start() { return start(counting()); }
    /// A slow camera, or a loaded computer, needs several calls.
    int start(const Handler& handler, int buffers = 8)
    {
        int status = 0;
        eventually([&] {
            status = m_acquisition->start(handler, buffers);
            return status != featurebrowser::ZQAcquisition::stillStarting;
        });
        return status;
    }

    bool framesCome(int count)
    {
        return eventually([&] { return m_frames >= count; });
    }
    bool problemHas(const char* words)
    {
        return m_acquisition->problem().find(words) != std::string::npos;
    }
    bool problemTells(const char* words)
    {
        return eventually([&] { return problemHas(words); });
    }

    std::size_t payload()
    {
        long bytes = 0;
        EXPECT_EQ(m_device->GetIntegerValue("PayloadSize", &bytes), featurebrowser::STATUS_OK);
        return static_cast<std::size_t>(bytes);
    }

    std::unique_ptr<featurebrowser::ZQAcquisition> m_acquisition;
    std::atomic<int> m_frames { 0 };
    std::atomic<std::size_t> m_size { 0 };
};
