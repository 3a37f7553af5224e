#include "RawCamera.h"

#include "FakeCamera.h"

#include <arpa/inet.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

std::uint32_t readRegister(std::uint32_t address)
{
    sockaddr_in camera {};
    camera.sin_family = AF_INET;
    camera.sin_port = htons(3956);
    inet_pton(AF_INET, FakeCamera::usualAddress, &camera.sin_addr);
    const int handle = socket(AF_INET, SOCK_DGRAM, 0);
    // GigE Vision: a command that wants an answer, READREG, 4 bytes of payload, number 1.
    const std::array<std::uint32_t, 3> request { htonl(0x42010080), htonl(0x00040001),
        htonl(address) };
    std::array<std::uint32_t, 3> reply {};
    sendto(handle, request.data(), sizeof request, 0, reinterpret_cast<const sockaddr*>(&camera),
        sizeof camera);
    pollfd wait { handle, POLLIN, 0 };
    const bool done
        = poll(&wait, 1, 2000) == 1 && recv(handle, reply.data(), sizeof reply, 0) == sizeof reply;
    close(handle);
    if (!done) {
        throw std::runtime_error("the camera does not answer a packet of the test's own");
    }
    return ntohl(reply[2]);
}
