// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "stream/StreamOpening.h"

#include "base/AravisVersions.h"
#include "base/GlibError.h"
#include "base/StatusCodes.h"
#include "network/Ipv4.h"
#include "stream/ReceiveBuffer.h"
#include "stream/StreamFrames.h"
#include "stream/UsbStream.h"
#include "words/Words.h"

#include <condition_variable>
#include <cstring>
#include <mutex>
#include <thread>
#include <utility>

namespace zqcameralib {

namespace {

constexpr int noStream = deviceErrorBase + ARV_DEVICE_ERROR_NO_STREAM_CHANNEL;

/// Where a camera sends its images to.
struct Destination {
    std::uint32_t address = 0;
    std::uint32_t port = 0;

    bool operator==(const Destination& other) const
    {
        return address == other.address && port == other.port;
    }
    std::string text() const
    {
        return worded("%s, port %u", ipv4Text({ htonl(address) }).c_str(), port).text();
    }
};

Destination wantedDestination(ArvGvDevice* device, ArvStream* stream)
{
    GInetAddress* address = g_inet_socket_address_get_address(
        G_INET_SOCKET_ADDRESS(arv_gv_device_get_interface_address(device)));
    std::uint32_t binary = 0;
    std::memcpy(&binary, g_inet_address_to_bytes(address), sizeof binary);
    return { ntohl(binary), arv_gv_stream_get_port(ARV_GV_STREAM(stream)) };
}

/// False when the camera does not tell.
bool readDestination(ArvDevice* device, Destination& destination)
{
    constexpr guint64 portRegister = 0x0D00;
    constexpr guint64 addressRegister = 0x0D18;
    constexpr guint64 channelSize = 0x40;
    GlibError error;
    const gint64 channel
        = arv_device_get_integer_feature_value(device, "ArvGevStreamChannelSelector", error.out());
    if (error || channel < 0) {
        return false;
    }
    const guint64 offset = channelSize * static_cast<guint64>(channel);
    if (arv_device_read_register(device, portRegister + offset, &destination.port, error.out())
            == FALSE
        || arv_device_read_register(
               device, addressRegister + offset, &destination.address, error.out())
            == FALSE) {
        return false;
    }
    destination.port &= 0xFFFFU;
    return true;
}

/// The library below ignores it when the camera refuses to be told where to send images to.
bool checkDestination(ArvDevice* device, OpenStream& open)
{
    const Destination wanted = wantedDestination(ARV_GV_DEVICE(device), open.stream.get());
    open.facts.destination = wanted.text();
    Destination taken;
    if (!readDestination(device, taken) || taken == wanted) {
        return true;
    }
    open.status = { noStream,
        worded("the camera does not send its images here: it did not take %s as their destination, "
               "and keeps %s",
            wanted.text().c_str(), taken.text().c_str()) };
    return false;
}

bool addBuffers(ArvStream* stream, std::size_t size, int count)
{
    for (int i = 0; i < count; ++i) {
        void* memory = g_try_malloc(size);
        if (memory == nullptr) {
            return false;
        }
        arv_stream_push_buffer(stream, arv_buffer_new_full(size, memory, memory, g_free));
    }
    return true;
}

bool prepare(ArvDevice* device, OpenStream& open, int buffers)
{
    if (!addBuffers(open.stream.get(), open.facts.imageBytes, buffers)) {
        open.status = { noStream,
            worded(
                "not enough memory for %d images of %zu bytes", buffers, open.facts.imageBytes) };
        return false;
    }
    if (!ARV_IS_GV_DEVICE(device)) {
        return true;
    }
    GlibError ignored;
    open.facts.packetSize = arv_gv_device_get_packet_size(ARV_GV_DEVICE(device), ignored.out());
    makeReceiveBuffer(ARV_GV_DEVICE(device), open.stream.get(), buffers, open.facts);
    return checkDestination(device, open);
}

bool start(OpenStream& open)
{
    GlibError failure;
    if (aravis::startStream(open.stream.get(), failure.out())) {
        return true;
    }
    open.status = { noStream,
        failure ? failure.get()->message : translated("the images cannot be received") };
    return false;
}

void openStream(ArvDevice* device, OpenStream& open, int buffers)
{
    open.device = device;
    if (ARV_IS_UV_DEVICE(device)) {
        open.status = checkUsbStream(device, open.facts);
    }
    if (!open.status.isOk()) {
        return;
    }
    GlibError failure;
    open.stream.reset(aravis::createStream(device, failure.out()));
    if (!open.stream) {
        open.status = { noStream,
            failure ? failure.get()->message : translated("the camera has no image stream") };
    } else if (!prepare(device, open, buffers) || !start(open)) {
        open.stream.reset();
    }
}

} // namespace

struct StreamOpening::Shared {
    std::mutex mutex;
    std::condition_variable progress;
    bool isOver = false;
    bool isUnwanted = false; ///< nobody will ask for it
    std::uint64_t connection = 0;
    OpenStream open;
};

Result<std::unique_ptr<FrameSourceOpening>> StreamOpening::begin(
    SessionAccess& access, const ImageFormat& format, int buffers)
{
    auto shared = std::make_shared<Shared>();
    shared->connection = access.health()->connection;
    shared->open.format = format;
    shared->open.facts.imageBytes = format.payload;
    shared->open.facts.isTriggered = format.isTriggered;
    const auto task = [shared, buffers](CameraSession& session) {
        openStream(session.device(), shared->open, buffers);
        const std::lock_guard<std::mutex> lock(shared->mutex);
        shared->isOver = true;
        shared->progress.notify_all();
        if (shared->isUnwanted) {
            shared->open.stream.reset();
        }
    };
    if (Status begun = access.beginWithSession(task); !begun.isOk()) {
        return begun;
    }
    return std::unique_ptr<StreamOpening>(new StreamOpening(access, std::move(shared)));
}

StreamOpening::StreamOpening(SessionAccess& access, std::shared_ptr<Shared> shared)
    : m_access(access)
    , m_shared(std::move(shared))
{
}

StreamOpening::~StreamOpening()
{
    const std::lock_guard<std::mutex> lock(m_shared->mutex);
    m_shared->isUnwanted = true;
    if (m_shared->isOver) {
        endStream(m_access, std::move(m_shared->open));
    }
}

Result<std::unique_ptr<FrameSource>> StreamOpening::finish(Clock::time_point deadline)
{
    {
        std::unique_lock<std::mutex> lock(m_shared->mutex);
        if (!m_shared->progress.wait_until(lock, deadline, [this] { return m_shared->isOver; })) {
            return Status::general(stillWorking);
        }
    }
    if (!m_shared->open.stream) {
        return m_access.isLost() ? m_access.loss() : m_shared->open.status;
    }
    return std::make_unique<StreamFrames>(
        m_access, m_shared->connection, std::exchange(m_shared->open, {}));
}

void endStream(SessionAccess& access, OpenStream open)
{
    if (!open.stream) {
        return;
    }
    // Owned by whichever task runs: ending it here would wait for the camera.
    ArvStream* stream = open.stream.release();
    const auto task = [stream, device = open.device](CameraSession& session) {
        GObjectPointer<ArvStream> last(stream);
        if (device != session.device()) {
            // After a reconnection the old device may have no control, and waits in vain.
            std::thread([old = std::move(last)] {}).detach();
        }
    };
    if (!access.beginWithSession(task).isOk()) {
        access.post([stream] { const GObjectPointer<ArvStream> last(stream); });
    }
}

} // namespace zqcameralib
