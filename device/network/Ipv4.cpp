// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "network/Ipv4.h"

#include <arpa/inet.h>

#include <array>
#include <cstdint>

namespace zqcameralib {

std::optional<in_addr> parseIpv4(const std::string& text)
{
    in_addr address {};
    return inet_pton(AF_INET, text.c_str(), &address) == 1 ? std::optional(address) : std::nullopt;
}

std::string ipv4Text(const in_addr& address)
{
    std::array<char, INET_ADDRSTRLEN> text {};
    inet_ntop(AF_INET, &address, text.data(), text.size());
    return text.data();
}

std::optional<in_addr> addressBeside(const in_addr& own, const in_addr& mask)
{
    const std::uint32_t hosts = ~ntohl(mask.s_addr);
    if (hosts < 3) {
        return std::nullopt;
    }
    const std::uint32_t next = (ntohl(own.s_addr) & hosts) + 1;
    const std::uint32_t host = next < hosts ? next : 1;
    return in_addr { htonl((ntohl(own.s_addr) & ~hosts) | host) };
}

} // namespace zqcameralib
