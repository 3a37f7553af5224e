// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

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

/// One piece of what a camera sends along with an image (ChunkModeActive). ZQChunkDecoder tells
/// which features lie in it, and their values.
struct ZQFrameChunk {
    std::uint64_t id = 0; ///< as the camera's description names it (ChunkID)
    const std::uint8_t* data = nullptr;
    std::size_t size = 0; ///< bytes of data
};

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
    /// What came along with the image, without the image itself, in the order in which it was sent.
    /// As valid as data.
    const ZQFrameChunk* chunks = nullptr;
    std::size_t chunkCount = 0;
};

/// What happened to the frames since start().
struct ZQFrameCounters {
    std::uint64_t delivered = 0; ///< handed out
    std::uint64_t incomplete = 0; ///< arrived with data missing; not handed out
    std::uint64_t lost = 0; ///< not received at all, for example because no buffer was free

    // Why frames are missing; 0 also where it cannot be known: all of them of a simulated camera,
    // packets of one that has none (USB3 Vision).
    std::uint64_t underruns = 0; ///< frames for which no buffer was free: the handler is too slow
    std::uint64_t gaps = 0; ///< times that frames were left out between one and the next
    std::uint64_t resendRequests = 0; ///< packets that the camera was asked for once more
    std::uint64_t resentPackets = 0; ///< of them, those that came
    std::uint64_t missingPackets = 0; ///< that did not come at all
    std::uint64_t wrongSize = 0; ///< frames, or packets of them, beyond the size of the start
    std::uint64_t aborted = 0; ///< of the incomplete: frames that the camera or the end cut off
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
/// TriggerSoftware, and none for any other source. With ChunkModeActive they carry the chunks that
/// ChunkEnable asks for, or all without it, in the layout of the camera's description: features
/// called Chunk and a name hold what the feature of that name says, the image's number and its
/// time; others hold 0. Images of the same settings and frameId are the same, byte by byte.
///
/// For images of a GigE Vision camera the system needs a receive buffer: that of several images, 64
/// MiB at most, is asked for, and the setting net.core.rmem_max limits what is granted. Programs
/// with CAP_NET_RAW do without it. problem() tells when it is too small for one image.
class ZQ_EXPORT ZQAcquisition {
public:
    class Impl;

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
    /// Finds by measuring, and sets, how a GigE Vision camera's images arrive whole: the largest
    /// usual packet size (GevSCPSPacketSize, of which the network may not take all), from large to
    /// small; and where packets get lost at the present delay between them (GevSCPD, in ticks of
    /// the camera's clock), the smallest of some delays at which none does. The delay leaves room
    /// for `framesPerSecond` (0: as many as the camera takes at present). Takes trial images: each
    /// trial some frame periods, at least 0.1 s.
    ///
    /// progress() counts trials. When it is Done, progress().step is a sentence that says what was
    /// found and set. What was set before is restored when it fails or is cancelled. It fails at
    /// once, with a sentence, for cameras that send no packets (USB3 Vision, simulated), while
    /// images are acquired, and where they wait for a trigger. start() and StartBeside() are
    /// refused while it goes on; stop() cancels it with its next poll(). counters() and problem()
    /// tell of the trials meanwhile. It waits for the camera at most 1.2 s a poll().
    std::unique_ptr<zqcameralib::ZQCameraTask> FindPacketSettings(double framesPerSecond = 0.0);
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
    std::unique_ptr<Impl> m_impl;
};

} // namespace featurebrowser
