// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "network/SourceFilter.h"

#include "network/Ipv4.h"
#include "network/OwnSockets.h"

#include <linux/filter.h>
#include <sys/socket.h>

#include <array>

namespace zqcameralib {

namespace {

constexpr std::uint32_t sourceInIpHeader = 12;

bool isLooseOn(int handle, const in_addr& local)
{
    int type = 0;
    socklen_t size = sizeof type;
    if (getsockopt(handle, SOL_SOCKET, SO_TYPE, &type, &size) != 0 || type != SOCK_DGRAM) {
        return false;
    }
    const std::optional<sockaddr_in> own = boundTo(handle);
    if (!own || own->sin_addr.s_addr != local.s_addr || own->sin_port == 0) {
        return false;
    }
    sockaddr_in peer {};
    size = sizeof peer;
    return getpeername(handle, reinterpret_cast<sockaddr*>(&peer), &size) != 0;
}

} // namespace

std::vector<int> looseSockets(const std::string& local)
{
    const std::optional<in_addr> address = parseIpv4(local);
    if (!address) {
        return {};
    }
    return ownSockets([&address](int handle) { return isLooseOn(handle, *address); });
}

bool hearOnly(int socket, const std::string& address)
{
    const std::optional<in_addr> camera = parseIpv4(address);
    if (!camera) {
        return false;
    }
    // The filter of a datagram socket sees the packet from its UDP header on.
    const auto ipHeader = static_cast<std::uint32_t>(SKF_NET_OFF);
    std::array<sock_filter, 6> program { {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, ipHeader + sourceInIpHeader),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, ntohl(camera->s_addr), 0, 3),
        BPF_STMT(BPF_LD | BPF_H | BPF_ABS, 0),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, controlPort, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, 0x40000),
        BPF_STMT(BPF_RET | BPF_K, 0),
    } };
    const sock_fprog filter { static_cast<unsigned short>(program.size()), program.data() };
    return setsockopt(socket, SOL_SOCKET, SO_ATTACH_FILTER, &filter, sizeof filter) == 0;
}

} // namespace zqcameralib
