#include "network/Ipv4.h"

#include <arpa/inet.h>

#include <array>

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

} // namespace zqcameralib
