#pragma once

#include "CameraLink.h"
#include "FrameSource.h"

namespace zqcameralib {

/// The stream of a real camera.
class StreamFrames : public FrameSource {
public:
    /// Opens the camera's stream with `buffers` buffers; null and a reason when it has none or does
    /// not answer.
    static std::unique_ptr<StreamFrames> open(
        CameraLink& link, const ImageFormat& format, int buffers, AccessError& error);
    /// Ends the stream on the camera's access thread, which may outlast this.
    ~StreamFrames() override;

    Outcome next(featurebrowser::ZQFrame& frame) override;
    std::uint64_t lost() const override;

private:
    StreamFrames(CameraLink& link, ArvStream* stream);

    CameraLink& m_link;
    ArvStream* m_stream;
    ArvBuffer* m_current = nullptr; ///< handed out, to be given back
};

} // namespace zqcameralib
