// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/// Puts this process into a network of its own with nothing but loopback, where camera processes
/// can run. Before any thread starts. Returns why that cannot be done, or null.
const char* enterPrivateNetwork();
/// Says so, and returns the exit status: skipped (77), which is not a success, or failed where the
/// environment variable ZQ_MUST_RUN asks for the tests.
int endWithoutTests(const char* reason);

/// Makes this process one of an ordinary user, as far as networks are concerned: from now on it can
/// neither read raw packets nor enlarge a socket's buffer beyond the limit. Returns whether that
/// was done. After enterPrivateNetwork(), before any thread starts.
bool giveUpPrivileges();

/// Gives loopback an address more, or takes it away again. Returns whether that was done.
bool addAddress(const std::string& address);
bool removeAddress(const std::string& address);

/// What loopback carries unless limited.
constexpr int loopbackPacket = 65536;
/// Makes loopback carry packets up to so many bytes; larger ones get lost. Returns whether that was
/// done.
bool limitPackets(int bytes);

/// How many sockets of this network stand at the port of an IPv4 address. Only looks: to try the
/// port would keep another process from it.
int countListeners(const std::string& address, unsigned port);
