// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <netinet/in.h>

#include <optional>
#include <string>

namespace zqcameralib {

/// UDP port of a GigE Vision camera's control channel (GigE Vision 2.0, chapter 14).
constexpr in_port_t controlPort = 3956;

/// The address that a dotted text stands for; nothing when it is none.
std::optional<in_addr> parseIpv4(const std::string& text);
std::string ipv4Text(const in_addr& address);

/// An address of the same network as `own`, which is not `own`, the network's or its broadcast
/// address: for a camera that needs one. Nothing where the network has no room.
std::optional<in_addr> addressBeside(const in_addr& own, const in_addr& mask);

} // namespace zqcameralib
