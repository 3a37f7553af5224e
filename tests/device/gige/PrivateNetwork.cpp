#include "PrivateNetwork.h"

#include "FakeCamera.h"

#include <arpa/inet.h>
#include <cstring>
#include <linux/capability.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace {

class Interface {
public:
    explicit Interface(const std::string& name)
        : m_handle(socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0))
    {
        std::strncpy(m_request.ifr_name, name.c_str(), IFNAMSIZ - 1);
    }
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;
    ~Interface() { close(m_handle); }

    bool setUp(bool isUp)
    {
        const bool known = ioctl(m_handle, SIOCGIFFLAGS, &m_request) == 0;
        const int flags = m_request.ifr_flags;
        m_request.ifr_flags = static_cast<short>(isUp ? flags | IFF_UP : flags & ~IFF_UP);
        return known && ioctl(m_handle, SIOCSIFFLAGS, &m_request) == 0;
    }

    bool setAddress(const std::string& text)
    {
        sockaddr_in address {};
        address.sin_family = AF_INET;
        inet_pton(AF_INET, text.c_str(), &address.sin_addr);
        std::memcpy(&m_request.ifr_addr, &address, sizeof address);
        return ioctl(m_handle, SIOCSIFADDR, &m_request) == 0;
    }

private:
    int m_handle;
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
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> sets {};
    if (syscall(SYS_capget, &header, sets.data()) != 0) {
        return false;
    }
    const std::uint32_t others = ~(1U << CAP_NET_RAW | 1U << CAP_NET_ADMIN);
    sets[0].effective &= others;
    sets[0].permitted &= others;
    sets[0].inheritable &= others;
    return syscall(SYS_capset, &header, sets.data()) == 0;
}

bool addAddress(const std::string& address)
{
    return Interface(alias(address)).setAddress(address);
}

bool removeAddress(const std::string& address)
{
    return Interface(alias(address)).setUp(false);
}

int countListeners(const std::string& address, unsigned port)
{
    in_addr number {};
    inet_pton(AF_INET, address.c_str(), &number);
    std::array<char, 32> place {}; // the own end, after the number of the line
    std::snprintf(place.data(), place.size(), ": %08X:%04X ", number.s_addr, port);
    std::ifstream table("/proc/self/net/udp");
    int count = 0;
    for (std::string line; std::getline(table, line);) {
        count += line.find(place.data()) != std::string::npos ? 1 : 0;
    }
    return count;
}
