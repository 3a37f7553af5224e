// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "network/GigeProbe.h"

#include "base/BigEndian.h"
#include "base/NumberText.h"
#include "network/FileDescriptor.h"
#include "network/Ipv4.h"

#include <poll.h>
#include <sys/socket.h>

#include <algorithm>
#include <thread>
#include <vector>

namespace zqcameralib {

namespace {

using Clock = std::chrono::steady_clock;
using Bytes = std::vector<std::uint8_t>;

// GigE Vision 2.0, chapters 14 to 18 (control protocol) and 27 (bootstrap registers).
constexpr std::uint8_t commandKey = 0x42;
constexpr std::uint8_t acknowledgeRequired = 0x01;
constexpr std::uint16_t readMemory = 0x0084;
constexpr std::uint16_t readMemoryAck = 0x0085;
constexpr std::uint16_t pendingAck = 0x0089;
constexpr std::uint32_t modelRegister = 0x0068;
constexpr std::uint32_t urlRegister = 0x0200;
constexpr std::uint32_t secondUrlRegister = 0x0400; ///< for where the first one leads nowhere
constexpr std::uint16_t modelSize = 32;
constexpr std::uint16_t urlSize = 512;
constexpr std::size_t headerSize = 8;

constexpr std::chrono::milliseconds resendAfter(250);
constexpr std::chrono::milliseconds modelLimit(1250);
constexpr std::chrono::milliseconds pendingLimit(2500);

std::uint16_t shortAt(const Bytes& packet, std::size_t at)
{
    return fromBigEndian<std::uint16_t>(packet.data() + at);
}

template <typename Number> void append(Bytes& packet, Number value)
{
    const auto bytes = toBigEndian(value);
    packet.insert(packet.end(), bytes.begin(), bytes.end());
}

/// A socket that hears the camera alone: the system drops what comes from elsewhere.
class Channel {
public:
    explicit Channel(const std::string& address)
        : m_handle(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        const std::optional<in_addr> place = parseIpv4(address);
        sockaddr_in camera {};
        camera.sin_family = AF_INET;
        camera.sin_port = htons(controlPort);
        camera.sin_addr = place.value_or(in_addr {});
        m_isOpen = place
            && connect(m_handle.get(), reinterpret_cast<const sockaddr*>(&camera), sizeof camera)
                == 0;
    }

    /// The next packet; empty when none comes in time.
    Bytes receive(std::chrono::milliseconds limit) const
    {
        pollfd ready { m_handle.get(), POLLIN, 0 };
        Bytes packet;
        if (poll(&ready, 1, static_cast<int>(limit.count())) > 0) {
            packet.resize(2048);
            const ssize_t count = recv(m_handle.get(), packet.data(), packet.size(), 0);
            packet.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
        }
        return packet;
    }
    void send(const Bytes& packet) const
    {
        if (::send(m_handle.get(), packet.data(), packet.size(), 0) < 0) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10)); // nobody listens now
        }
    }
    bool isOpen() const { return m_isOpen; }

private:
    FileDescriptor m_handle;
    bool m_isOpen = false;
};

struct Reply {
    GigeProbe::Answer answer = GigeProbe::Answer::None;
    Bytes data;
};

Reply ask(const Channel& channel, std::uint32_t address, std::uint16_t size, std::uint16_t number,
    const std::atomic<bool>& isCancelled)
{
    Bytes request { commandKey, acknowledgeRequired };
    append(request, readMemory);
    append(request, std::uint16_t { 8 }); // bytes that follow the header
    append(request, number);
    append(request, address);
    append(request, std::uint32_t { size });

    Reply reply;
    const Clock::time_point start = Clock::now();
    Clock::time_point end = start + modelLimit;
    for (Clock::time_point sent; Clock::now() < end && !isCancelled;) {
        if (Clock::now() - sent > resendAfter) {
            channel.send(request);
            sent = Clock::now();
        }
        Bytes packet = channel.receive(std::chrono::milliseconds(25));
        if (packet.size() < headerSize || shortAt(packet, 6) != number) {
            continue;
        }
        if (shortAt(packet, 2) == pendingAck) {
            reply.answer = GigeProbe::Answer::Waits;
            end = start + pendingLimit;
        } else if (shortAt(packet, 2) == readMemoryAck && shortAt(packet, 0) != 0) {
            reply.answer = GigeProbe::Answer::Refused;
            return reply;
        } else if (shortAt(packet, 2) == readMemoryAck && packet.size() >= headerSize + 4U + size) {
            reply.answer = GigeProbe::Answer::Given;
            reply.data.assign(packet.begin() + headerSize + 4, packet.end());
            return reply;
        }
    }
    return reply;
}

/// "Local:name.zip;8000;1D8F2": the size is the last, in hexadecimal digits.
std::uint64_t sizeInUrl(const Bytes& data)
{
    std::string url(data.begin(), data.end());
    url.resize(std::min(url.size(), url.find('\0')));
    const std::size_t last = url.rfind(';');
    return last == std::string::npos ? 0 : leadingUnsigned(url.substr(last + 1), 16);
}

} // namespace

GigeProbe probeGige(const std::string& address, const std::atomic<bool>& isCancelled)
{
    GigeProbe probe;
    const Channel channel(address);
    if (!channel.isOpen()) {
        probe.answer = GigeProbe::Answer::NoWay;
        return probe;
    }
    const Clock::time_point start = Clock::now();
    probe.answer = ask(channel, modelRegister, modelSize, 1, isCancelled).answer;
    probe.roundTrip = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
    if (probe.answer == GigeProbe::Answer::Given) {
        const Reply url = ask(channel, urlRegister, urlSize, 2, isCancelled);
        const Reply second = ask(channel, secondUrlRegister, urlSize, 3, isCancelled);
        probe.descriptionSize = std::max(sizeInUrl(url.data), sizeInUrl(second.data));
    }
    return probe;
}

} // namespace zqcameralib
