// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "FaultProxy.h"

#include <poll.h>

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace {

using Packet = Datagram;

constexpr std::size_t headerSize = 8;
constexpr std::uint8_t readRegisterAck = 0x81;
constexpr std::uint8_t readMemoryAck = 0x85;
constexpr std::uint8_t pendingAck = 0x89;

Packet refusal(const Packet& request, int status)
{
    const auto acknowledgement = static_cast<std::uint8_t>(request[3] + 1); // of the command
    return { static_cast<std::uint8_t>(status >> 8), static_cast<std::uint8_t>(status), request[2],
        acknowledgement, 0, 0, request[6], request[7] };
}

Packet wait(const Packet& request)
{
    constexpr int milliseconds = 1000;
    return { 0, 0, 0, pendingAck, 0, 4, request[6], request[7], 0, 0, milliseconds >> 8,
        milliseconds & 0xFF };
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

/// Cameras refuse accesses to memory that are not whole words.
bool isOfParts(const Packet& packet)
{
    const bool isRead = packet[3] == 0x84 && packet.size() == 16;
    const bool isWrite = packet[3] == 0x86 && packet.size() >= 12;
    return ((isRead || isWrite) && packet[11] % 4 != 0) || (isRead && packet[15] % 4 != 0)
        || (isWrite && packet.size() % 4 != 0);
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

FaultProxy::Clock::time_point FaultProxy::replyTime(const Faults& faults)
{
    std::uniform_int_distribution<std::int64_t> more(0, faults.jitter.count());
    return Clock::now() + faults.delay + std::chrono::microseconds(more(m_random));
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
        sendDue();
    }
}

/// Waits a moment for packets and for what is to be sent.
void FaultProxy::awaitPackets() const
{
    std::vector<pollfd> handles { { m_front.handle(), POLLIN, 0 } };
    for (const auto& [place, client] : m_clients) {
        handles.push_back({ client.back.handle(), POLLIN, 0 });
    }
    const std::chrono::nanoseconds longest = 50ms;
    const std::chrono::nanoseconds left
        = m_departures.empty() ? longest : m_departures.begin()->first - Clock::now();
    const timespec time { 0, std::clamp(left, 0ns, longest).count() };
    ppoll(handles.data(), handles.size(), &time, nullptr);
}

void FaultProxy::pass(const Faults& faults)
{
    sockaddr_in from {};
    for (auto& [place, client] : m_clients) {
        Packet packet = client.back.receive(from);
        if (packet.size() >= headerSize) {
            onReply(client, std::move(packet), faults);
        }
        if (faults.pendingForever && !client.pending.empty()) {
            reply(client, wait(client.pending), Clock::now());
        }
    }
    Packet packet = m_front.receive(from);
    if (packet.size() >= headerSize) {
        Client& client = m_clients[{ from.sin_addr.s_addr, from.sin_port }];
        client.address = from;
        onRequest(client, std::move(packet), faults);
    }
}

void FaultProxy::sendDue()
{
    while (!m_departures.empty() && m_departures.begin()->first <= Clock::now()) {
        const Departure& first = m_departures.begin()->second;
        first.socket->send(first.packet, first.to);
        m_departures.erase(m_departures.begin());
    }
}

void FaultProxy::onRequest(Client& client, Packet packet, const Faults& faults)
{
    ++m_requests;
    constexpr std::uint8_t readRegister = 0x80; // GigE Vision 2.0, chapter 14
    constexpr std::uint8_t writeRegister = 0x82;
    const std::uint8_t command = packet.size() > 3 ? packet[3] : 0;
    m_registerRequests += command == readRegister || command == writeRegister ? 1U : 0U;
    if (happens(faults.loseRequests)) {
        return;
    }
    if (faults.pendingForever) {
        client.pending = std::move(packet);
        return;
    }
    if (faults.status != 0
        && (faults.refusedWrite == 0 || isWriteTo(packet, faults.refusedWrite))) {
        reply(client, refusal(packet, faults.status), replyTime(faults));
        return;
    }
    if (isOfParts(packet)) {
        constexpr int badAlignment = 0x8005;
        reply(client, refusal(packet, badAlignment), replyTime(faults));
        return;
    }
    if (faults.pendingMs > 0) {
        reply(client, wait(packet), replyTime(faults));
    }
    const Clock::time_point due
        = Clock::now() + faults.requestDelay + std::chrono::milliseconds(faults.pendingMs);
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (int copies = happens(faults.duplicate) ? 2 : 1; copies > 0; --copies) {
        m_departures.insert({ due, { &client.back, m_camera, packet } });
    }
}

void FaultProxy::onReply(Client& client, Packet packet, const Faults& faults)
{
    if (happens(faults.loseReplies)) {
        return;
    }
    const Clock::time_point due = replyTime(faults);
    if (happens(faults.forgeReplies)) {
        forge(client, packet, due);
    }
    harm(packet, faults);
    if (happens(faults.reorderReplies) && client.held.empty()) {
        client.held = std::move(packet);
        return;
    }
    reply(client, packet, due);
    if (happens(faults.duplicate)) {
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
