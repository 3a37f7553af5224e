// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "acquisition/FormatReading.h"
#include "acquisition/FrameDelivery.h"
#include "camera/Camera.h"
#include "frames/FrameSource.h"

#include "featurebrowser/ICameraDevice.h"
#include "featurebrowser/ZQAcquisition.h"

#include <chrono>
#include <memory>

namespace featurebrowser {

/// The acquisition of one camera. Its start asks what images look like, opens their source and
/// tells the camera to send; what does not fit into one call is continued by the next.
class __attribute__((visibility("hidden"))) ZQAcquisition::Impl {
public:
    /// Both have to outlive it.
    Impl(zqcameralib::ZQCamera& camera, ICameraDevice& device)
        : m_camera(camera)
        , m_device(device)
    {
    }

    /// As ZQAcquisition::start, waiting at most `limit`; also while packets are measured.
    int start(FrameHandler handler, int buffers, std::chrono::milliseconds limit);
    /// The same for the user, who is refused then.
    int startForUser(FrameHandler handler, int buffers, std::chrono::milliseconds limit);
    /// Ends the images and a measuring.
    int stop();
    int stopImages();
    /// Ends a start that is on its way.
    void giveUp();
    const zqcameralib::AcquisitionState& state() const { return m_state; }
    zqcameralib::ZQCamera::Impl& camera() { return m_camera.impl(); }
    ICameraDevice& device() { return m_device; }

    /// Whether images are acquired, or about to be.
    bool isBusy() const { return m_delivery || m_starting || m_isMeasuring; }
    /// Keeps the acquisition for measuring packets until that, or the images, are ended.
    bool beginMeasuring() { return m_isMeasuring = true; }
    void endMeasuring() { m_isMeasuring = false; }
    bool isMeasuring() const { return m_isMeasuring; }

private:
    using Clock = std::chrono::steady_clock;
    using Status = zqcameralib::Status;

    /// A start on its way, which may take several calls.
    struct Starting {
        int buffers = 0;
        std::uint64_t connection = 0; ///< number of the connection when it began
        FrameHandler handler;
        std::unique_ptr<zqcameralib::FormatReading> reading;
        std::unique_ptr<zqcameralib::FrameSourceOpening> opening;
        zqcameralib::ImageFormat openedFor;
        std::unique_ptr<zqcameralib::FrameSource> source;
        bool isSent = false; ///< the camera was told, but has not confirmed it
    };

    int succeed();
    int fail(const Status& failure);
    Status refusal(int code);
    zqcameralib::RegisterBackend& backend() { return m_camera.impl().port().backend(); }
    /// Goes on with a start begun before where that still fits, else begins one.
    void prepare(FrameHandler handler, int buffers);
    /// Gets one step further also when there is no time at all.
    int advance(Clock::time_point deadline);
    Status step(Clock::time_point deadline);
    Status beginStream();
    Status startCamera();

    zqcameralib::ZQCamera& m_camera;
    ICameraDevice& m_device;
    zqcameralib::AcquisitionState m_state;
    std::unique_ptr<Starting> m_starting;
    /// There from a successful start until stop().
    std::unique_ptr<zqcameralib::FrameDelivery> m_delivery;
    bool m_isMeasuring = false;
};

} // namespace featurebrowser
