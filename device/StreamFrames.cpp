#include "StreamFrames.h"

#include "GlibError.h"
#include "StatusCodes.h"

#include <utility>

namespace zqcameralib {

namespace {

constexpr std::uint64_t waitUs = 50000;

/// A stream on its way from the access thread, which keeps it when nobody waits for it any more.
struct Opening {
    ArvStream* stream = nullptr;
    AccessError error;

    Opening() = default;
    Opening(const Opening&) = delete;
    Opening& operator=(const Opening&) = delete;
    ~Opening() { g_clear_object(&stream); }
};

} // namespace

std::unique_ptr<StreamFrames> StreamFrames::open(
    CameraLink& link, const ImageFormat& format, int buffers, AccessError& error)
{
    auto opening = std::make_shared<Opening>();
    const auto task = [opening, buffers, payload = format.payload](CameraSession& session) {
        GlibError failure;
        opening->stream
            = arv_device_create_stream(session.device(), nullptr, nullptr, failure.out());
        if (opening->stream == nullptr) {
            opening->error = { deviceErrorBase + ARV_DEVICE_ERROR_NO_STREAM_CHANNEL,
                failure ? failure.get()->message : "the camera has no image stream" };
            return;
        }
        for (int i = 0; i < buffers; ++i) {
            arv_stream_push_buffer(opening->stream, arv_buffer_new_allocate(payload));
        }
    };
    if (!link.runWithSession(task, error)) {
        return nullptr;
    }
    if (opening->stream == nullptr) {
        error = opening->error;
        return nullptr;
    }
    return std::unique_ptr<StreamFrames>(
        new StreamFrames(link, std::exchange(opening->stream, nullptr)));
}

StreamFrames::StreamFrames(CameraLink& link, ArvStream* stream)
    : m_link(link)
    , m_stream(stream)
{
}

StreamFrames::~StreamFrames()
{
    if (m_current != nullptr) {
        arv_stream_push_buffer(m_stream, m_current);
    }
    // Ends the stream's thread, and with the last one the device.
    m_link.post([stream = m_stream] { g_object_unref(stream); });
}

FrameSource::Outcome StreamFrames::next(featurebrowser::ZQFrame& frame)
{
    if (m_current != nullptr) {
        arv_stream_push_buffer(m_stream, std::exchange(m_current, nullptr));
    }
    ArvBuffer* buffer = arv_stream_timeout_pop_buffer(m_stream, waitUs);
    if (buffer == nullptr) {
        return Outcome::Nothing;
    }
    m_current = buffer;
    const ArvBufferPayloadType type = arv_buffer_get_payload_type(buffer);
    if (arv_buffer_get_status(buffer) != ARV_BUFFER_STATUS_SUCCESS
        || (type != ARV_BUFFER_PAYLOAD_TYPE_IMAGE
            && type != ARV_BUFFER_PAYLOAD_TYPE_EXTENDED_CHUNK_DATA)) {
        return Outcome::Incomplete;
    }
    frame.data = static_cast<const std::uint8_t*>(arv_buffer_get_image_data(buffer, &frame.size));
    frame.width = arv_buffer_get_image_width(buffer);
    frame.height = arv_buffer_get_image_height(buffer);
    frame.pixelFormat = arv_buffer_get_image_pixel_format(buffer);
    frame.frameId = arv_buffer_get_frame_id(buffer);
    frame.timestampNs = arv_buffer_get_timestamp(buffer);
    frame.systemTimestampNs = arv_buffer_get_system_timestamp(buffer);
    return Outcome::Complete;
}

std::uint64_t StreamFrames::lost() const
{
    guint64 completed = 0;
    guint64 failures = 0;
    guint64 underruns = 0;
    arv_stream_get_statistics(m_stream, &completed, &failures, &underruns);
    return underruns;
}

} // namespace zqcameralib
