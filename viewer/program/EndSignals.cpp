// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "program/EndSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace zqviewer {

namespace {

constexpr std::array<int, 3> endSignals { SIGHUP, SIGINT, SIGTERM };

/// From the handler, which may do hardly anything else than write, to the event loop.
std::array<int, 2> pipeEnds { -1, -1 };

void handle(int number)
{
    const int error = errno;
    const auto byte = static_cast<unsigned char>(number);
    [[maybe_unused]] const ssize_t ignored = write(pipeEnds[1], &byte, 1);
    errno = error;
}

} // namespace

EndSignals::EndSignals()
{
    if (pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    auto* notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &EndSignals::receive);
    for (const int number : endSignals) {
        struct sigaction present { };
        sigaction(number, nullptr, &present);
        if (present.sa_handler == SIG_IGN) {
            continue;
        }
        struct sigaction wanted { };
        wanted.sa_handler = handle;
        wanted.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
        sigaction(number, &wanted, nullptr);
    }
}

EndSignals::~EndSignals()
{
    for (const int number : endSignals) {
        struct sigaction present { };
        sigaction(number, nullptr, &present);
        if (present.sa_handler == handle) {
            signal(number, SIG_DFL);
        }
    }
    for (int& end : pipeEnds) {
        close(end);
        end = -1;
    }
}

void EndSignals::receive()
{
    unsigned char byte = 0;
    if (read(pipeEnds[0], &byte, 1) == 1) {
        m_caught = byte;
        Q_EMIT endWanted();
    }
}

} // namespace zqviewer
