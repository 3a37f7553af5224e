// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/GObjectPointer.h"
#include "frames/FrameSource.h"
#include "session/SessionAccess.h"
#include "stream/StreamWords.h"

#include <arv.h>

#include <chrono>
#include <memory>

namespace zqcameralib {

/// A camera's stream. Ending it asks the camera once more, so that is done with endStream.
struct OpenStream {
    GObjectPointer<ArvStream> stream; ///< null and a failure when there is none
    const ArvDevice* device = nullptr; ///< of the session it belongs to
    ImageFormat format; ///< of the start
    StreamFacts facts;
    Status status;
};

/// A stream on its way. The camera may be slow: making it takes twenty accesses or more, which go
/// on behind when nobody waits.
class StreamOpening final : public FrameSourceOpening {
public:
    /// Begins to open the stream with `buffers` buffers; a failure when the camera is lost.
    /// `access` has to outlive it and its frames.
    static Result<std::unique_ptr<FrameSourceOpening>> begin(
        SessionAccess& access, const ImageFormat& format, int buffers);
    /// Ends the stream, or what becomes of it; waits for neither.
    ~StreamOpening() override;

    Result<std::unique_ptr<FrameSource>> finish(Clock::time_point deadline) override;

private:
    struct Shared;

    StreamOpening(SessionAccess& access, std::shared_ptr<Shared> shared);

    SessionAccess& m_access;
    std::shared_ptr<Shared> m_shared;
};

/// Ends a stream, if there is one, on the camera's access thread without waiting for it.
void endStream(SessionAccess& access, OpenStream open);

} // namespace zqcameralib
