#include "AccessThread.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace zqcameralib {

using Clock = std::chrono::steady_clock;

struct AccessThread::State {
    std::mutex mutex;
    std::condition_variable wake; ///< for the thread: there is something to do
    std::condition_variable progress; ///< for callers: a task has ended
    std::deque<std::pair<std::uint64_t, Task>> tasks;
    std::uint64_t posted = 0;
    std::uint64_t ended = 0; ///< tasks end in the order of their numbers
    Clock::time_point started;
    bool isBusy = false;
    bool isClosing = false;
    bool isOver = false;
};

AccessThread::AccessThread()
    : m_state(std::make_shared<State>())
{
    std::thread([state = m_state] { work(state); }).detach();
}

AccessThread::~AccessThread()
{
    std::unique_lock<std::mutex> lock(m_state->mutex);
    m_state->isClosing = true;
    m_state->wake.notify_one();
    m_state->progress.wait_for(lock, m_finishLimit, [this] { return m_state->isOver; });
}

void AccessThread::work(const std::shared_ptr<State>& state)
{
    std::unique_lock<std::mutex> lock(state->mutex);
    for (;;) {
        state->wake.wait(lock, [&] { return !state->tasks.empty() || state->isClosing; });
        if (state->tasks.empty()) {
            break;
        }
        auto [number, task] = std::move(state->tasks.front());
        state->tasks.pop_front();
        state->isBusy = true;
        state->started = Clock::now();
        lock.unlock();
        task();
        task = nullptr; // what it owns ends on this thread
        lock.lock();
        state->isBusy = false;
        state->ended = number;
        // Who is woken wants the lock at once; each vain wake-up costs two switches of threads.
        lock.unlock();
        state->progress.notify_all();
        lock.lock();
    }
    state->isOver = true;
    state->progress.notify_all();
}

bool AccessThread::run(Task task, std::chrono::milliseconds limit)
{
    std::unique_lock<std::mutex> lock(m_state->mutex);
    const std::uint64_t number = ++m_state->posted;
    m_state->tasks.emplace_back(number, std::move(task));
    lock.unlock();
    m_state->wake.notify_one();
    lock.lock();
    return m_state->progress.wait_for(lock, limit, [&] { return m_state->ended >= number; });
}

void AccessThread::post(Task task)
{
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    m_state->tasks.emplace_back(++m_state->posted, std::move(task));
    m_state->wake.notify_one();
}

std::chrono::milliseconds AccessThread::busyFor() const
{
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    return m_state->isBusy
        ? std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_state->started)
        : std::chrono::milliseconds(0);
}

} // namespace zqcameralib
