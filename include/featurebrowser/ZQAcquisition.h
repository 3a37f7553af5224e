#pragma once

#include "Export.h"
#include "ZQCameraTask.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace zqcameralib {
class ZQCamera;
} // namespace zqcameralib

namespace featurebrowser {

class ICameraDevice;

/// One image as it arrives. The data belongs to the acquisition and is valid only during the call
/// that hands it out.
struct ZQFrame {
    const std::uint8_t* data = nullptr;
    std::size_t size = 0; ///< bytes of data
    int width = 0; ///< pixels
    int height = 0; ///< pixels
    std::uint32_t pixelFormat = 0; ///< PFNC code, for example 0x01080001 for Mono8
    std::uint64_t frameId = 0; ///< as the camera counts
    std::uint64_t timestampNs = 0; ///< camera's clock, nanoseconds
    std::uint64_t systemTimestampNs = 0; ///< this computer's clock, nanoseconds since 1970
};

/// What happened to the frames since start().
struct ZQFrameCounters {
    std::uint64_t delivered = 0; ///< handed out
    std::uint64_t incomplete = 0; ///< arrived with data missing; not handed out
    std::uint64_t lost = 0; ///< not received at all, for example because no buffer was free
};

/// Starts and stops a camera's image acquisition and hands its frames out on a thread of its own.
///
/// Uses the device's commands, so that ICameraDevice::IsGrabbing and the features that are locked
/// while images are acquired follow. start() and stop() belong to the thread that drives the
/// device; all else may be asked on any thread, at any time.
///
/// A simulated camera, whatever its description, makes up images of one scene: charts, and balls
/// that move by one step a frame. They follow its settings, by the standard's names (SFNC) and
/// older ones: region, binning, decimation, reversal, pixel format, exposure, gain, black level,
/// gamma, white balance, test pattern, frame rate. With TriggerMode On it takes one image for each
/// TriggerSoftware, and none for any other source. Images of the same settings and frameId are the
/// same, byte by byte.
///
/// For images of a GigE Vision camera the system needs a receive buffer: that of several images, 64
/// MiB at most, is asked for, and the setting net.core.rmem_max limits what is granted. Programs
/// with CAP_NET_RAW do without it. problem() tells when it is too small for one image.
class ZQ_EXPORT ZQAcquisition {
public:
    /// Called with each complete frame, on the acquisition's thread. It may take its time: frames
    /// that find no free buffer meanwhile are lost. It may not throw, nor call stop().
    using FrameHandler = std::function<void(const ZQFrame&)>;

    /// Neither pointer is owned or may be null; both have to outlive this. `device` is the one
    /// built over `camera`.
    ZQAcquisition(zqcameralib::ZQCamera* camera, ICameraDevice* device);
    ZQAcquisition(const ZQAcquisition&) = delete;
    ZQAcquisition& operator=(const ZQAcquisition&) = delete;
    /// Stops.
    ~ZQAcquisition();

    /// Makes `buffers` buffers (2 to 1000) for the present image size and starts. Returns 0 or a
    /// device error code (lastError() has the words); already running is not an error and changes
    /// nothing. Waits at most 1.3 s: then stillStarting says that a slow camera has more to do,
    /// which goes on behind; calling again continues, and stop() gives it up. What has ended by
    /// itself starts anew.
    int start(FrameHandler handler, int buffers = 8);
    /// The same beside the caller. Cancelling it, or stop(), gives the start up.
    std::unique_ptr<zqcameralib::ZQCameraTask> StartBeside(FrameHandler handler, int buffers = 8);
    /// Stops; when it returns, the handler is not running and will not be called again. Returns 0
    /// or the error of the camera's stop command; the acquisition has ended in any case. Does not
    /// wait for a camera that is lost.
    int stop();
    /// Whether images can come: from a successful start() until stop(), or until the camera has
    /// been lost (also when it was found again meanwhile), or has taken the one or several images
    /// of its AcquisitionMode. The camera's settings stay locked until stop() all the same.
    bool isRunning() const;
    /// Since the last successful start().
    ZQFrameCounters counters() const;

    /// What start() returns while a slow camera has more to do.
    static constexpr int stillStarting = static_cast<int>(0x80350005U);

    /// Why the last start() or stop() failed, in words for the user; empty when it did not.
    std::string lastError() const;
    /// What is wrong with the images since the last successful start(), in words for the user;
    /// empty while nothing is known. Tells of a receive buffer that is too small, of no complete
    /// image for 2 s and four frame periods, with the likely reason, and of an acquisition that
    /// ended with the camera.
    std::string problem() const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace featurebrowser
