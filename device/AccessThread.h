#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace zqcameralib {

/// One thread that runs tasks in their order, so that a caller can stop waiting for one that hangs.
class AccessThread {
public:
    using Task = std::function<void()>;

    AccessThread();
    AccessThread(const AccessThread&) = delete;
    AccessThread& operator=(const AccessThread&) = delete;
    /// Lets the tasks posted so far run out, and waits for that at most the time given with
    /// finishWithin; then the thread goes on alone and ends when they have.
    ~AccessThread();

    /// Runs `task` and waits for its end, at most `limit`. False when it has not ended by then; it
    /// goes on all the same, so it has to own what it touches.
    bool run(Task task, std::chrono::milliseconds limit);
    /// Runs `task` without waiting.
    void post(Task task);
    /// How long the task that runs now has been running; 0 when there is none.
    std::chrono::milliseconds busyFor() const;
    void finishWithin(std::chrono::milliseconds limit) { m_finishLimit = limit; }

private:
    struct State;
    static void work(const std::shared_ptr<State>& state);

    std::shared_ptr<State> m_state;
    std::chrono::milliseconds m_finishLimit { 1000 };
};

} // namespace zqcameralib
