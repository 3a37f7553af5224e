// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

namespace zqcameralib {

/// Datagram sockets of this process that are bound to `local` (IPv4) and to no peer.
std::vector<int> looseSockets(const std::string& local);

/// Makes the system drop what the socket receives from elsewhere than the control port of the
/// GigE Vision camera `address` (IPv4). False when the system refuses.
bool hearOnly(int socket, const std::string& address);

} // namespace zqcameralib
