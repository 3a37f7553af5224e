// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "RawCamera.h"

#include "Datagram.h"
#include "FakeCamera.h"

#include <arpa/inet.h>
#include <poll.h>

#include <cstring>

std::uint32_t readRegister(std::uint32_t address)
{
    const Socket socket;
    const auto byte = [address](unsigned at) { return static_cast<std::uint8_t>(address >> at); };
    // GigE Vision: a command that wants an answer, READREG, 4 bytes of payload, number 1.
    socket.send({ 0x42, 1, 0, 0x80, 0, 4, 0, 1, byte(24), byte(16), byte(8), byte(0) },
        endpoint(FakeCamera::usualAddress));
    pollfd wait { socket.handle(), POLLIN, 0 };
    sockaddr_in from {};
    const Datagram reply = poll(&wait, 1, 2000) == 1 ? socket.receive(from) : Datagram();
    if (reply.size() != 12) {
        throw std::runtime_error("the camera does not answer a packet of the test's own");
    }
    std::uint32_t value = 0;
    std::memcpy(&value, reply.data() + 8, sizeof value);
    return ntohl(value);
}
