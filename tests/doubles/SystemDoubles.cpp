// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "SystemDoubles.h"

#include "Journal.h"
#include "Script.h"

#include <array>
#include <cerrno>
#include <ctime>

namespace doubles {

StderrDouble::StderrDouble()
    : m_original(stderr)
{
    const auto write = [](void*, const char* bytes, std::size_t size) {
        note("stderr", std::string(bytes, size));
        return static_cast<ssize_t>(size);
    };
    stderr = fopencookie(nullptr, "w", { nullptr, write, nullptr, nullptr });
    static std::array<char, 65536> buffer;
    std::setvbuf(stderr, buffer.data(), _IOFBF, buffer.size());
}

StderrDouble::~StderrDouble()
{
    std::fclose(stderr);
    stderr = m_original;
}

} // namespace doubles

/// Takes the place of the C library's function in the whole test program: a pause is written down
/// and not waited for. An interrupted one leaves half of its time.
extern "C" int nanosleep(const timespec* time, timespec* remaining)
{
    doubles::note("nanosleep", time->tv_sec, time->tv_nsec, time == remaining);
    auto& errors = doubles::script().pauseErrors;
    if (errors.empty()) {
        return 0;
    }
    *remaining = { 0, time->tv_nsec / 2 };
    errno = errors.front();
    errors.pop_front();
    return -1;
}
