#include "FaultProxy.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <stdexcept>
#include <utility>

namespace {

constexpr std::uint16_t controlPort = 3956;
constexpr std::uint16_t pendingAck = 0x0089;

sockaddr_in endpoint(const char* address, std::uint16_t port)
{
    sockaddr_in result {};
    result.sin_family = AF_INET;
    result.sin_port = htons(port);
    inet_pton(AF_INET, address, &result.sin_addr);
    return result;
}

void putShort(std::vector<std::uint8_t>& packet, std::size_t at, int value)
{
    packet[at] = static_cast<std::uint8_t>(value >> 8);
    packet[at + 1] = static_cast<std::uint8_t>(value);
}

} // namespace

FaultProxy::FaultProxy(std::uint32_t seed)
    : m_random(seed)
    , m_front(socket(AF_INET, SOCK_DGRAM, 0))
    , m_back(socket(AF_INET, SOCK_DGRAM, 0))
{
    const sockaddr_in front = endpoint(address, controlPort);
    const sockaddr_in back = endpoint("127.0.0.1", controlPort);
    if (bind(m_front, reinterpret_cast<const sockaddr*>(&front), sizeof front) != 0
        || connect(m_back, reinterpret_cast<const sockaddr*>(&back), sizeof back) != 0) {
        throw std::runtime_error("no address for the proxy");
    }
    m_thread = std::thread([this] { run(); });
}

FaultProxy::~FaultProxy()
{
    m_stop = true;
    m_thread.join();
    close(m_front);
    close(m_back);
}

void FaultProxy::set(const Faults& faults)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_faults = faults;
}

bool FaultProxy::happens(double share)
{
    return std::uniform_real_distribution<double>(0.0, 1.0)(m_random) < share;
}

FaultProxy::Packet FaultProxy::receive(int handle, void* from, unsigned* size) const
{
    Packet packet(2048);
    const ssize_t count
        = recvfrom(handle, packet.data(), packet.size(), 0, static_cast<sockaddr*>(from), size);
    packet.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
    return packet;
}

void FaultProxy::run()
{
    while (!m_stop) {
        std::array<pollfd, 2> handles { { { m_front, POLLIN, 0 }, { m_back, POLLIN, 0 } } };
        poll(handles.data(), handles.size(), 50);
        Faults faults;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            faults = m_faults;
        }
        if ((handles[0].revents & POLLIN) != 0) {
            std::vector<std::uint8_t> client(sizeof(sockaddr_in));
            socklen_t size = sizeof(sockaddr_in);
            Packet packet = receive(m_front, client.data(), &size);
            m_client = std::move(client);
            onRequest(std::move(packet), faults);
        }
        if ((handles[1].revents & (POLLIN | POLLERR)) != 0) {
            Packet packet = receive(m_back, nullptr, nullptr);
            if (!packet.empty()) {
                onReply(std::move(packet), faults);
            }
        }
        if (faults.pendingForever && !m_pending.empty()) {
            wait(m_pending);
        }
    }
}

void FaultProxy::onRequest(Packet packet, const Faults& faults)
{
    if (packet.size() < 8 || happens(faults.loseRequests)) {
        return;
    }
    if (faults.pendingForever) {
        m_pending = packet;
        return;
    }
    if (faults.pendingMs > 0) {
        wait(packet);
        std::this_thread::sleep_for(std::chrono::milliseconds(faults.pendingMs));
    }
    if (faults.status != 0) {
        Packet refusal(packet.begin(), packet.begin() + 8);
        putShort(refusal, 0, faults.status);
        refusal[3] = static_cast<std::uint8_t>(refusal[3] + 1); // the command's acknowledgement
        putShort(refusal, 4, 0);
        reply(refusal);
        return;
    }
    send(m_back, packet.data(), packet.size(), 0);
    if (happens(faults.duplicateRequests)) {
        send(m_back, packet.data(), packet.size(), 0);
    }
}

void FaultProxy::onReply(Packet packet, const Faults& faults)
{
    if (happens(faults.loseReplies)) {
        return;
    }
    if (faults.delay.count() > 0) {
        std::this_thread::sleep_for(faults.delay);
    }
    if (happens(faults.corruptReplies)) {
        packet[m_random() % 8] ^= static_cast<std::uint8_t>(1U << (m_random() % 8));
    }
    if (happens(faults.truncateReplies)) {
        packet.resize(m_random() % packet.size());
    }
    if (happens(faults.reorderReplies) && m_held.empty()) {
        m_held = std::move(packet);
        return;
    }
    reply(packet);
    if (happens(faults.duplicateReplies)) {
        reply(packet);
    }
    if (!m_held.empty()) {
        reply(m_held);
        m_held.clear();
    }
}

void FaultProxy::reply(const Packet& packet) const
{
    sendto(m_front, packet.data(), packet.size(), 0,
        reinterpret_cast<const sockaddr*>(m_client.data()), sizeof(sockaddr_in));
}

void FaultProxy::wait(const Packet& request) const
{
    Packet packet(12, 0);
    putShort(packet, 2, pendingAck);
    putShort(packet, 4, 4);
    packet[6] = request[6];
    packet[7] = request[7];
    putShort(packet, 10, 1000);
    reply(packet);
}
