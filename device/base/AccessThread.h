// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace zqcameralib {

/// One thread that runs tasks in their order, so that a caller can stop waiting for one that hangs.
class AccessThread {
public:
    using Task = std::function<void()>;
    using Clock = std::chrono::steady_clock;

    /// What became of a task by the time its caller stopped waiting. One that has not begun never
    /// will; one that goes on has to own what it touches.
    enum class Outcome { Done, NotBegun, GoesOn };

    AccessThread();
    AccessThread(const AccessThread&) = delete;
    AccessThread& operator=(const AccessThread&) = delete;
    /// Lets the tasks posted so far run out, and waits for that at most the time given with
    /// finishWithin; then the thread goes on alone and ends when they have.
    ~AccessThread();

    /// Runs `task` and waits for its end, at most until `until`.
    Outcome run(Task task, Clock::time_point until);
    /// Runs `task` without waiting.
    void post(Task task);
    /// Runs `task` again and again, whenever nothing else is to be done, until it returns false.
    void repeatBehind(std::function<bool()> task);
    /// Runs `task` again and again after the thread has had nothing to do for `period`. Empty: no
    /// more.
    void whenIdle(Task task, std::chrono::milliseconds period);
    void finishWithin(std::chrono::milliseconds limit) { m_finishLimit = limit; }

private:
    struct State;
    static void work(const std::shared_ptr<State>& state);

    std::shared_ptr<State> m_state;
    std::chrono::milliseconds m_finishLimit { 1000 };
};

} // namespace zqcameralib
