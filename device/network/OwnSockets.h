// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <netinet/in.h>

#include <functional>
#include <optional>
#include <vector>

namespace zqcameralib {

/// The IPv4 address and port that a socket is bound to; nothing for what is none.
std::optional<sockaddr_in> boundTo(int handle);

/// The sockets of this process for which `isWanted` holds. The library below hands none out.
std::vector<int> ownSockets(const std::function<bool(int handle)>& isWanted);

} // namespace zqcameralib
