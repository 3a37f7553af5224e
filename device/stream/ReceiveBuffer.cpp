// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "stream/ReceiveBuffer.h"

#include "network/FileDescriptor.h"
#include "network/OwnSockets.h"

#include <arpa/inet.h>
#include <linux/if_ether.h>
#include <sys/socket.h>

#include <algorithm>
#include <cstring>

namespace zqcameralib {

namespace {

constexpr std::uint64_t least = std::uint64_t(1) << 20U;
constexpr std::uint64_t most = std::uint64_t(64) << 20U;

/// The same question that the stream asks before it chooses.
bool readsFromRing(ArvGvDevice* device)
{
    const int options = arv_gv_device_get_stream_options(device);
    if ((options & ARV_GV_STREAM_OPTION_PACKET_SOCKET_DISABLED) != 0) {
        return false;
    }
    return FileDescriptor(socket(PF_PACKET, SOCK_RAW, htons(ETH_P_ALL))).isOpen();
}

/// The stream's own socket; -1 when it is not found.
int socketOf(ArvGvDevice* device, ArvStream* stream)
{
    in_addr address {};
    GSocketAddress* own = arv_gv_device_get_interface_address(device);
    std::memcpy(&address,
        g_inet_address_to_bytes(g_inet_socket_address_get_address(G_INET_SOCKET_ADDRESS(own))),
        sizeof address);
    const in_port_t port = htons(arv_gv_stream_get_port(ARV_GV_STREAM(stream)));
    const std::vector<int> found = ownSockets([&address, port](int handle) {
        const std::optional<sockaddr_in> place = boundTo(handle);
        return place && place->sin_port == port && place->sin_addr.s_addr == address.s_addr;
    });
    return found.empty() ? -1 : found.front();
}

/// Asks for so many bytes; those granted, or 0 when that cannot be known.
std::uint64_t enlarge(int handle, int wanted)
{
    int granted = 0;
    socklen_t length = sizeof granted;
    const bool isKnown = setsockopt(handle, SOL_SOCKET, SO_RCVBUF, &wanted, sizeof wanted) == 0
        && getsockopt(handle, SOL_SOCKET, SO_RCVBUF, &granted, &length) == 0;
    // The system doubles it, for its own accounts.
    return isKnown ? static_cast<std::uint64_t>(granted) / 2 : 0;
}

} // namespace

void makeReceiveBuffer(ArvGvDevice* device, ArvStream* stream, int images, StreamFacts& facts)
{
    if (readsFromRing(device)) {
        return;
    }
    const int wanted = static_cast<int>(
        std::clamp(facts.imageBytes * static_cast<std::uint64_t>(images), least, most));
    // The library would do it when the first image comes, which is too late for that one.
    facts.grantedBuffer = enlarge(socketOf(device, stream), wanted);
    facts.wantedBuffer = facts.grantedBuffer == 0 ? 0 : static_cast<std::uint64_t>(wanted);
    g_object_set(stream, "socket-buffer", ARV_GV_STREAM_SOCKET_BUFFER_FIXED, "socket-buffer-size",
        wanted, nullptr);
}

} // namespace zqcameralib
