#include "FaultProxy.h"

#include <poll.h>

#include <algorithm>
#include <utility>

namespace {

using Packet = Datagram;

constexpr std::size_t headerSize = 8;
constexpr std::uint8_t readRegisterAck = 0x81;
constexpr std::uint8_t readMemoryAck = 0x85;
constexpr std::uint8_t pendingAck = 0x89;
constexpr int writeProtected = 0x8004;

void putShort(Packet& packet, std::size_t at, int value)
{
    packet[at] = static_cast<std::uint8_t>(value >> 8);
    packet[at + 1] = static_cast<std::uint8_t>(value);
}

Packet refusal(const Packet& request, int status)
{
    Packet packet(request.begin(), request.begin() + headerSize);
    putShort(packet, 0, status);
    packet[3] = static_cast<std::uint8_t>(packet[3] + 1); // the command's acknowledgement
    putShort(packet, 4, 0);
    return packet;
}

bool isWriteTo(const Packet& packet, std::uint32_t address)
{
    const bool isWrite = (packet[3] == 0x82 || packet[3] == 0x86) && packet.size() >= 12;
    std::uint32_t target = 0;
    for (std::size_t at = headerSize; isWrite && at < 12; ++at) {
        target = target << 8U | packet[at];
    }
    return isWrite && target == address;
}

Packet wait(const Packet& request)
{
    Packet packet(headerSize + 4, 0);
    putShort(packet, 2, pendingAck);
    putShort(packet, 4, 4);
    packet[6] = request[6];
    packet[7] = request[7];
    putShort(packet, 10, 1000);
    return packet;
}

} // namespace

FaultProxy::FaultProxy(std::uint32_t seed)
    : m_random(seed)
    , m_camera(endpoint("127.0.0.1"))
    , m_thread([this] { run(); })
{
}

FaultProxy::~FaultProxy()
{
    m_stop = true;
    m_thread.join();
}

void FaultProxy::set(const Faults& faults)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_faults = faults;
}

void FaultProxy::switchTo(const std::string& camera)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_camera = endpoint(camera.c_str());
}

bool FaultProxy::happens(double share)
{
    return std::uniform_real_distribution<double>(0.0, 1.0)(m_random) < share;
}

FaultProxy::Clock::time_point FaultProxy::after(
    std::chrono::microseconds delay, std::chrono::microseconds jitter)
{
    std::uniform_int_distribution<std::int64_t> more(0, jitter.count());
    return Clock::now() + delay + std::chrono::microseconds(more(m_random));
}

void FaultProxy::run()
{
    while (!m_stop) {
        awaitPackets();
        Faults faults; // those that hold when the packet is there
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            faults = m_faults;
        }
        pass(faults);
        for (const Client& client : m_clients) {
            if (faults.pendingForever && !client.pending.empty()) {
                reply(client, wait(client.pending), Clock::now());
            }
        }
        sendDue();
    }
}

/// Waits a moment for packets and takes in what came.
void FaultProxy::awaitPackets() const
{
    std::vector<pollfd> handles { { m_front.handle(), POLLIN, 0 } };
    for (const Client& client : m_clients) {
        handles.push_back({ client.back.handle(), POLLIN, 0 });
    }
    const timespec time { 0, timeUntilDeparture() };
    ppoll(handles.data(), handles.size(), &time, nullptr);
}

void FaultProxy::pass(const Faults& faults)
{
    sockaddr_in from {};
    for (Client& client : m_clients) {
        Packet packet = client.back.receive(from);
        if (packet.size() >= headerSize) {
            onReply(client, std::move(packet), faults);
        }
    }
    Packet packet = m_front.receive(from);
    if (packet.size() >= headerSize) {
        onRequest(clientAt(from), std::move(packet), faults);
    }
}

/// Nanoseconds.
int FaultProxy::timeUntilDeparture() const
{
    const std::chrono::nanoseconds longest = std::chrono::milliseconds(50);
    if (m_departures.empty()) {
        return static_cast<int>(longest.count());
    }
    const std::chrono::nanoseconds time = m_departures.begin()->first - Clock::now();
    return static_cast<int>(std::clamp(time, std::chrono::nanoseconds(0), longest).count());
}

void FaultProxy::sendDue()
{
    while (!m_departures.empty() && m_departures.begin()->first <= Clock::now()) {
        const Departure& first = m_departures.begin()->second;
        first.socket->send(first.packet, first.to);
        m_departures.erase(m_departures.begin());
    }
}

FaultProxy::Client& FaultProxy::clientAt(const sockaddr_in& place)
{
    const auto known = std::find_if(m_clients.begin(), m_clients.end(), [&](const Client& client) {
        return client.address.sin_addr.s_addr == place.sin_addr.s_addr
            && client.address.sin_port == place.sin_port;
    });
    if (known != m_clients.end()) {
        return *known;
    }
    m_clients.push_back({ place, {}, {}, {} });
    return m_clients.back();
}

void FaultProxy::onRequest(Client& client, Packet packet, const Faults& faults)
{
    ++m_requests;
    if (happens(faults.loseRequests)) {
        return;
    }
    if (faults.pendingForever) {
        client.pending = std::move(packet);
        return;
    }
    const bool isRefused
        = faults.refusedWrite == 0 ? faults.status != 0 : isWriteTo(packet, faults.refusedWrite);
    if (isRefused) {
        const int status = faults.status == 0 ? writeProtected : faults.status;
        reply(client, refusal(packet, status), after(faults.delay, faults.jitter));
        return;
    }
    if (faults.pendingMs > 0) {
        reply(client, wait(packet), after(faults.delay, faults.jitter));
    }
    const Clock::time_point due = after(faults.requestDelay, faults.requestJitter)
        + std::chrono::milliseconds(faults.pendingMs);
    request(client, packet, due);
    if (happens(faults.duplicateRequests)) {
        request(client, packet, due);
    }
}

void FaultProxy::onReply(Client& client, Packet packet, const Faults& faults)
{
    if (happens(faults.loseReplies)) {
        return;
    }
    const Clock::time_point due = after(faults.delay, faults.jitter);
    if (happens(faults.forgeReplies)) {
        forge(client, packet, due);
    }
    harm(packet, faults);
    if (happens(faults.reorderReplies) && client.held.empty()) {
        client.held = std::move(packet);
        return;
    }
    reply(client, packet, due);
    if (happens(faults.duplicateReplies)) {
        reply(client, packet, due);
    }
    if (!client.held.empty()) {
        reply(client, client.held, due);
        client.held.clear();
    }
}

void FaultProxy::harm(Packet& reply, const Faults& faults)
{
    if (happens(faults.corruptReplies)) {
        reply[m_random() % headerSize] ^= static_cast<std::uint8_t>(1U << (m_random() % 8));
    }
    if (happens(faults.wrongIds)) {
        reply[7] ^= static_cast<std::uint8_t>(1 + m_random() % 255);
    }
    if (happens(faults.truncateReplies)) {
        reply.resize(m_random() % reply.size());
    }
}

void FaultProxy::reply(const Client& client, const Packet& packet, Clock::time_point due)
{
    m_departures.insert({ due, { &m_front, client.address, packet } });
}

void FaultProxy::request(const Client& client, const Packet& packet, Clock::time_point due)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_departures.insert({ due, { &client.back, m_camera, packet } });
}

/// All bits of what was read, turned round.
void FaultProxy::forge(const Client& client, Packet packet, Clock::time_point due)
{
    if (packet[3] != readRegisterAck && packet[3] != readMemoryAck) {
        return;
    }
    const std::size_t start = packet[3] == readMemoryAck ? headerSize + 4 : headerSize;
    for (std::size_t i = start; i < packet.size(); ++i) {
        packet[i] = static_cast<std::uint8_t>(~packet[i]);
    }
    m_departures.insert({ due, { &m_forger, client.address, packet } });
}
