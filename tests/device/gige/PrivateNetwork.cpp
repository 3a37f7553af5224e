// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "PrivateNetwork.h"

#include "Datagram.h"
#include "FakeCamera.h"

#include <cstring>
#include <linux/capability.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

class Interface {
public:
    explicit Interface(const std::string& name)
    {
        std::strncpy(m_request.ifr_name, name.c_str(), IFNAMSIZ - 1);
    }

    bool setUp(bool isUp)
    {
        const bool known = ioctl(m_socket.handle(), SIOCGIFFLAGS, &m_request) == 0;
        const int flags = m_request.ifr_flags;
        m_request.ifr_flags = static_cast<short>(isUp ? flags | IFF_UP : flags & ~IFF_UP);
        return known && ioctl(m_socket.handle(), SIOCSIFFLAGS, &m_request) == 0;
    }

    bool setAddress(const std::string& text)
    {
        const sockaddr_in address = endpoint(text.c_str(), 0);
        std::memcpy(&m_request.ifr_addr, &address, sizeof address);
        return ioctl(m_socket.handle(), SIOCSIFADDR, &m_request) == 0;
    }

    bool setLargestPacket(int bytes)
    {
        m_request.ifr_mtu = bytes;
        return ioctl(m_socket.handle(), SIOCSIFMTU, &m_request) == 0;
    }

private:
    Socket m_socket;
    ifreq m_request {};
};

/// The second name of loopback that carries the address.
std::string alias(const std::string& address)
{
    return "lo:" + address.substr(address.rfind('.') + 1);
}

} // namespace

const char* enterPrivateNetwork()
{
    if (unshare(CLONE_NEWNET) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0) {
        return "this system allows no network of one's own";
    }
    if (!Interface("lo").setUp(true)) {
        return "loopback does not come up";
    }
    return FakeCamera::isInstalled() ? nullptr : "arv-fake-gv-camera-0.8 is not installed";
}

int endWithoutTests(const char* reason)
{
    const bool isFailure = std::getenv("ZQ_MUST_RUN") != nullptr;
    std::printf("%s: %s\n", isFailure ? "failed" : "skipped", reason);
    return isFailure ? 1 : 77;
}

bool giveUpPrivileges()
{
    __user_cap_header_struct header { _LINUX_CAPABILITY_VERSION_3, 0 };
    const std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> none {};
    return syscall(SYS_capset, &header, none.data()) == 0;
}

bool addAddress(const std::string& address)
{
    return Interface(alias(address)).setAddress(address);
}

bool removeAddress(const std::string& address)
{
    return Interface(alias(address)).setUp(false);
}

bool limitPackets(int bytes)
{
    // No fragments are put together without memory for them; the lower limit is never above.
    const long memory = bytes < loopbackPacket ? 0 : 4L << 20;
    bool isSet = false;
    for (const char* limit : { "low", "high", "low" }) {
        std::ofstream file("/proc/sys/net/ipv4/ipfrag_" + std::string(limit) + "_thresh");
        isSet = bool(file << memory << std::flush);
    }
    return isSet && Interface("lo").setLargestPacket(bytes);
}

int countListeners(const std::string& address, unsigned port)
{
    const in_addr number = endpoint(address.c_str()).sin_addr;
    std::array<char, 32> place {}; // the own end, after the number of the line
    std::snprintf(place.data(), place.size(), ": %08X:%04X ", number.s_addr, port);
    std::ifstream table("/proc/self/net/udp");
    int count = 0;
    for (std::string line; std::getline(table, line);) {
        count += line.find(place.data()) != std::string::npos ? 1 : 0;
    }
    return count;
}
