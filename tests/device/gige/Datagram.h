// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

using Datagram = std::vector<std::uint8_t>;

/// Where cameras listen, usually.
inline sockaddr_in endpoint(const char* address, std::uint16_t port = 3956)
{
    sockaddr_in result {};
    result.sin_family = AF_INET;
    result.sin_port = htons(port);
    inet_pton(AF_INET, address, &result.sin_addr);
    return result;
}

/// A socket for datagrams, usually.
class Socket {
public:
    Socket(int type = SOCK_DGRAM)
        : m_handle(socket(AF_INET, type | SOCK_CLOEXEC, 0))
    {
    }
    /// At a place of its own. Throws when that is taken.
    explicit Socket(const sockaddr_in& place, int type = SOCK_DGRAM)
        : Socket(type)
    {
        if (bind(m_handle, reinterpret_cast<const sockaddr*>(&place), sizeof place) != 0) {
            throw std::runtime_error(inet_ntoa(place.sin_addr) + std::string(" is taken"));
        }
    }
    Socket(Socket&&) = delete;
    ~Socket() { close(m_handle); }

    int handle() const { return m_handle; }
    void send(const Datagram& packet, const sockaddr_in& to) const
    {
        sendto(m_handle, packet.data(), packet.size(), 0, reinterpret_cast<const sockaddr*>(&to),
            sizeof to);
    }
    /// The one that waits here, or nothing.
    Datagram receive(sockaddr_in& from) const
    {
        Datagram packet(2048);
        socklen_t size = sizeof from;
        const ssize_t count = recvfrom(m_handle, packet.data(), packet.size(), MSG_DONTWAIT,
            reinterpret_cast<sockaddr*>(&from), &size);
        packet.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
        return packet;
    }

private:
    int m_handle;
};
