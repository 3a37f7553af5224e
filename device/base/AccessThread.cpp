// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/AccessThread.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace zqcameralib {

namespace {

struct Entry {
    AccessThread::Task task;
    bool hasBegun = false;
    bool hasEnded = false;
};

using Repeated = std::shared_ptr<std::function<bool()>>;

using EntryPointer = std::shared_ptr<Entry>;

constexpr std::chrono::hours forEver(24);

} // namespace

struct AccessThread::State {
    std::mutex mutex;
    std::condition_variable wake; ///< for the thread: there is something to do
    std::condition_variable progress; ///< for callers: a task has ended
    std::deque<EntryPointer> tasks;
    std::deque<Repeated> behind;
    Task idle;
    std::chrono::milliseconds idlePeriod { forEver };
    bool isClosing = false;
    bool isOver = false;

    void runNext(std::unique_lock<std::mutex>& lock);
    void runBehind(std::unique_lock<std::mutex>& lock);
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

void AccessThread::State::runNext(std::unique_lock<std::mutex>& lock)
{
    const EntryPointer entry = std::move(tasks.front());
    tasks.pop_front();
    entry->hasBegun = true;
    lock.unlock();
    entry->task();
    entry->task = nullptr; // what it owns ends on this thread
    lock.lock();
    entry->hasEnded = true;
    // Who is woken wants the lock at once; each vain wake-up costs two switches of threads.
    lock.unlock();
    progress.notify_all();
    lock.lock();
}

void AccessThread::State::runBehind(std::unique_lock<std::mutex>& lock)
{
    Repeated task = std::move(behind.front());
    behind.pop_front();
    lock.unlock();
    if (!(*task)()) {
        task = nullptr;
    }
    lock.lock();
    if (task) {
        behind.push_front(std::move(task));
    }
}

void AccessThread::work(const std::shared_ptr<State>& state)
{
    std::unique_lock<std::mutex> lock(state->mutex);
    const auto isWanted
        = [&] { return !state->tasks.empty() || !state->behind.empty() || state->isClosing; };
    for (;;) {
        if (!state->wake.wait_for(lock, state->idlePeriod, isWanted)) {
            const Task idle = state->idle;
            lock.unlock();
            if (idle) {
                idle();
            }
            lock.lock();
            continue;
        }
        if (!state->tasks.empty()) {
            state->runNext(lock);
        } else if (state->isClosing) {
            break;
        } else {
            state->runBehind(lock);
        }
    }
    state->behind.clear();
    state->idle = nullptr;
    state->isOver = true;
    state->progress.notify_all();
}

AccessThread::Outcome AccessThread::run(Task task, Clock::time_point until)
{
    const auto entry = std::make_shared<Entry>(Entry { std::move(task) });
    std::unique_lock<std::mutex> lock(m_state->mutex);
    m_state->tasks.push_back(entry);
    lock.unlock();
    m_state->wake.notify_one();
    lock.lock();
    if (m_state->progress.wait_until(lock, until, [&] { return entry->hasEnded; })) {
        return Outcome::Done;
    }
    if (entry->hasBegun) {
        return Outcome::GoesOn;
    }
    auto& tasks = m_state->tasks;
    tasks.erase(std::find(tasks.begin(), tasks.end(), entry));
    return Outcome::NotBegun;
}

void AccessThread::post(Task task)
{
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    m_state->tasks.push_back(std::make_shared<Entry>(Entry { std::move(task) }));
    m_state->wake.notify_one();
}

void AccessThread::repeatBehind(std::function<bool()> task)
{
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    m_state->behind.push_back(std::make_shared<std::function<bool()>>(std::move(task)));
    m_state->wake.notify_one();
}

void AccessThread::whenIdle(Task task, std::chrono::milliseconds period)
{
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    m_state->idlePeriod = task ? period : forEver;
    m_state->idle = std::move(task);
    m_state->wake.notify_one();
}

} // namespace zqcameralib
