// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/LibraryLock.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>

namespace zqcameralib {

namespace {

constexpr std::chrono::milliseconds cancelCheck(50);

struct State {
    std::mutex mutex;
    std::condition_variable freed;
    std::array<bool, 2> isTaken {};
};

/// Never destroyed: a thread that was given up may hold a part when the process ends.
State& state()
{
    static auto* const instance = new State;
    return *instance;
}

bool& isTaken(LibraryPart part)
{
    return state().isTaken[part == LibraryPart::Parser ? 0 : 1];
}

} // namespace

LibraryLock::LibraryLock(
    LibraryPart part, Clock::time_point until, const std::function<bool()>& isCancelled)
    : m_part(part)
{
    std::unique_lock<std::mutex> lock(state().mutex);
    bool& taken = isTaken(part);
    while (taken && Clock::now() < until && !(isCancelled && isCancelled())) {
        state().freed.wait_until(lock, std::min(until, Clock::now() + cancelCheck));
    }
    m_isHeld = !taken && !(isCancelled && isCancelled());
    taken = taken || m_isHeld;
}

LibraryLock::~LibraryLock()
{
    if (!m_isHeld) {
        return;
    }
    {
        const std::lock_guard<std::mutex> lock(state().mutex);
        isTaken(m_part) = false;
    }
    state().freed.notify_all();
}

} // namespace zqcameralib
