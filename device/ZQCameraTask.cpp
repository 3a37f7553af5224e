// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQCameraTask.h"

#include <thread>

namespace zqcameralib {

namespace {
constexpr std::chrono::milliseconds pollPeriod(5);
}

ZQCameraTask::~ZQCameraTask() = default;

ZQCameraTask::State ZQCameraTask::wait(std::chrono::milliseconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    State state = poll();
    while (state == State::Running && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(pollPeriod);
        state = poll();
    }
    return state;
}

} // namespace zqcameralib
