#pragma once

#include "frames/FrameSource.h"
#include "link/CameraLink.h"
#include "stream/StreamWords.h"

#include <chrono>
#include <memory>

namespace zqcameralib {

/// A camera's stream. Ending it asks the camera once more, so that is done with endStream.
struct OpenStream {
    ArvStream* stream = nullptr; ///< owned; null and an error when there is none
    const ArvDevice* device = nullptr; ///< of the session it belongs to
    ImageFormat format; ///< of the start
    StreamFacts facts;
    AccessError error;
};

/// A stream on its way. The camera may be slow: making it takes twenty accesses or more, which go
/// on behind when nobody waits.
class StreamOpening {
public:
    using Clock = std::chrono::steady_clock;

    /// Begins to open the stream with `buffers` buffers; null and a reason when the camera is lost.
    static std::unique_ptr<StreamOpening> begin(
        CameraLink& link, const ImageFormat& format, int buffers, AccessError& error);
    StreamOpening(const StreamOpening&) = delete;
    StreamOpening& operator=(const StreamOpening&) = delete;
    /// Ends the stream, or what becomes of it; waits for neither.
    ~StreamOpening();

    /// Waits for it, but not beyond `deadline`. The frames once it is there, and once only; else
    /// null and a reason, stillWorking when it is not there yet.
    std::unique_ptr<FrameSource> finish(Clock::time_point deadline, AccessError& error);

private:
    struct Shared;

    StreamOpening(CameraLink& link, std::shared_ptr<Shared> shared);

    CameraLink& m_link;
    std::shared_ptr<Shared> m_shared;
};

/// Ends a stream on the camera's access thread without waiting for it.
void endStream(CameraLink& link, const OpenStream& open);

} // namespace zqcameralib
