// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "stream/StreamFrames.h"

#include <utility>

namespace zqcameralib {

namespace {

constexpr std::uint64_t waitUs = 50000;

} // namespace

StreamFrames::StreamFrames(SessionAccess& access, std::uint64_t connection, OpenStream open)
    : m_access(access)
    , m_health(access.health())
    , m_session(access.sessionHealth())
    , m_connection(connection)
    , m_open(std::move(open))
{
}

StreamFrames::~StreamFrames()
{
    giveBack();
    endStream(m_access, std::move(m_open));
}

void StreamFrames::giveBack()
{
    if (m_current != nullptr) {
        arv_stream_push_buffer(m_open.stream.get(), std::exchange(m_current, nullptr));
    }
}

/// The library's thread for the images of a camera that is unplugged asks for them without a pause
/// until it is ended, which takes no time then.
void StreamFrames::endHere()
{
    m_troubles = troubles();
    m_open.stream.reset();
}

FrameSource::Outcome StreamFrames::next(featurebrowser::ZQFrame& frame)
{
    giveBack();
    if (m_session->unplugged) {
        endHere();
    }
    if (m_health->lost || m_health->connection != m_connection || m_session->isOver()) {
        return Outcome::Ended;
    }
    ArvBuffer* buffer = arv_stream_timeout_pop_buffer(m_open.stream.get(), waitUs);
    if (buffer == nullptr) {
        return Outcome::Nothing;
    }
    m_current = buffer;
    const ArvBufferStatus status = arv_buffer_get_status(buffer);
    if (status != ARV_BUFFER_STATUS_SUCCESS) {
        ++m_incomplete;
        const bool isTooLarge = status == ARV_BUFFER_STATUS_SIZE_MISMATCH
            || status == ARV_BUFFER_STATUS_WRONG_PACKET_ID;
        m_troubles.wrongSize += isTooLarge ? 1 : 0;
        m_troubles.aborted += status == ARV_BUFFER_STATUS_ABORTED ? 1 : 0;
        return Outcome::Incomplete;
    }
    m_chunks = findChunks(buffer, m_open.facts.imageBytes,
        ARV_IS_UV_STREAM(m_open.stream.get()) ? ChunkTags::LittleEndian : ChunkTags::BigEndian);
    if (!findImage(buffer, m_open.facts.imageBytes, m_chunks, m_open.format, frame)) {
        ++m_withoutImage;
        return Outcome::Incomplete;
    }
    if (m_chunks.size() > 1) {
        frame.chunks = m_chunks.data() + 1;
        frame.chunkCount = m_chunks.size() - 1;
    }
    frame.frameId = arv_buffer_get_frame_id(buffer);
    frame.timestampNs = arv_buffer_get_timestamp(buffer);
    frame.systemTimestampNs = arv_buffer_get_system_timestamp(buffer);
    return Outcome::Complete;
}

std::uint64_t StreamFrames::lost() const
{
    return troubles().underruns;
}

FrameTroubles StreamFrames::troubles() const
{
    FrameTroubles troubles = m_troubles;
    ArvStream* stream = m_open.stream.get();
    if (stream == nullptr) {
        return troubles;
    }
    guint64 completed = 0;
    guint64 failures = 0;
    arv_stream_get_statistics(stream, &completed, &failures, &troubles.underruns);
    if (ARV_IS_GV_STREAM(stream)) {
        const auto count = [stream](const char* name) {
            return arv_stream_get_info_uint64_by_name(stream, name);
        };
        troubles.gaps = count("n_missing_frames");
        troubles.resendRequests = count("n_resend_requests");
        troubles.resentPackets = count("n_resent_packets");
        troubles.missingPackets = count("n_missing_packets");
        troubles.wrongSize += count("n_size_mismatch_errors");
    }
    return troubles;
}

std::string StreamFrames::whyNothing() const
{
    StreamArrivals arrivals;
    arrivals.incomplete = m_incomplete;
    arrivals.withoutImage = m_withoutImage;
    arrivals.packets = m_incomplete + m_withoutImage;
    if (ARV_IS_GV_STREAM(m_open.stream.get())) {
        arrivals.packets
            = arv_stream_get_info_uint64_by_name(m_open.stream.get(), "n_received_packets");
        arrivals.bytes
            = arv_stream_get_info_uint64_by_name(m_open.stream.get(), "n_transferred_bytes");
    }
    return noImageWords(m_open.facts, arrivals);
}

} // namespace zqcameralib
