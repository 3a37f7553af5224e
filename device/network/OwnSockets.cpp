// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "network/OwnSockets.h"

#include <sys/socket.h>

#include <cstdlib>
#include <filesystem>

namespace zqcameralib {

std::optional<sockaddr_in> boundTo(int handle)
{
    sockaddr_in own {};
    socklen_t size = sizeof own;
    if (getsockname(handle, reinterpret_cast<sockaddr*>(&own), &size) != 0
        || own.sin_family != AF_INET) {
        return std::nullopt;
    }
    return own;
}

std::vector<int> ownSockets(const std::function<bool(int handle)>& isWanted)
{
    std::vector<int> handles;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd", none)) {
        const int handle = std::atoi(entry.path().filename().c_str());
        if (isWanted(handle)) {
            handles.push_back(handle);
        }
    }
    return handles;
}

} // namespace zqcameralib
