#include "stream/ReceiveBuffer.h"

#include <arpa/inet.h>
#include <linux/if_ether.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>

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
    const int handle = socket(PF_PACKET, SOCK_RAW, htons(ETH_P_ALL));
    if (handle >= 0) {
        close(handle);
    }
    return handle >= 0;
}

bool isAt(int handle, const in_addr& address, std::uint16_t port)
{
    sockaddr_in own {};
    socklen_t size = sizeof own;
    return getsockname(handle, reinterpret_cast<sockaddr*>(&own), &size) == 0
        && own.sin_family == AF_INET && own.sin_port == htons(port)
        && own.sin_addr.s_addr == address.s_addr;
}

/// The stream's own socket, which the library below does not hand out; -1 when it is not found.
int socketOf(ArvGvDevice* device, ArvStream* stream)
{
    in_addr address {};
    GSocketAddress* own = arv_gv_device_get_interface_address(device);
    std::memcpy(&address,
        g_inet_address_to_bytes(g_inet_socket_address_get_address(G_INET_SOCKET_ADDRESS(own))),
        sizeof address);
    const std::uint16_t port = arv_gv_stream_get_port(ARV_GV_STREAM(stream));
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", none)) {
        const int handle = std::atoi(entry.path().filename().c_str());
        if (isAt(handle, address, port)) {
            return handle;
        }
    }
    return -1;
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
