// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "base/AccessThread.h"
#include "base/LibraryLock.h"

#include <gtest/gtest.h>

#include <future>
#include <string>

using namespace zqcameralib;
using Clock = AccessThread::Clock;
using Outcome = AccessThread::Outcome;

namespace {

const Clock::time_point never = Clock::now() + std::chrono::hours(1);

TEST(AccessThread, RunsTasksInTheirOrderAndTheRestBehindThem)
{
    std::string done;
    std::promise<void> isIdle;
    std::promise<void> begun;
    std::promise<void> goOn;
    std::promise<void> over;
    {
        AccessThread thread;
        const auto idle = [&] {
            done += 'i';
            thread.whenIdle({}, {});
            isIdle.set_value();
        };
        thread.whenIdle(idle, std::chrono::milliseconds(1));
        EXPECT_EQ(thread.run([] {}, never), Outcome::Done); // from the next task on
        isIdle.get_future().wait();
        thread.post([&] {
            begun.set_value();
            goOn.get_future().wait();
            done += 'a';
        });
        begun.get_future().wait();
        thread.repeatBehind([&, left = 2]() mutable {
            done += 'r';
            if (--left == 0) {
                over.set_value();
            }
            return left > 0;
        });
        thread.post([&] { done += 'b'; });
        EXPECT_EQ(thread.run([&] { done += 'x'; }, Clock::now()), Outcome::NotBegun);
        thread.post([&] { done += 'c'; });
        goOn.set_value();
        over.get_future().wait();
        EXPECT_EQ(thread.run([&] { done += 'd'; }, never), Outcome::Done);
        thread.post([&] { done += 'e'; });
    }
    EXPECT_EQ(done, "iabcrrde"); // also what was posted last
}

TEST(AccessThread, GoesOnWhenItsCallerStopsWaiting)
{
    std::promise<void> goOn;
    std::promise<void> ended;
    {
        AccessThread thread;
        thread.finishWithin(std::chrono::milliseconds(1));
        Outcome outcome = Outcome::NotBegun;
        for (std::chrono::milliseconds wait(10); outcome == Outcome::NotBegun; wait *= 2) {
            outcome = thread.run(
                [&] {
                    goOn.get_future().wait();
                    ended.set_value();
                },
                Clock::now() + wait);
        }
        EXPECT_EQ(outcome, Outcome::GoesOn);
    }
    goOn.set_value();
    ended.get_future().wait();
}

TEST(LibraryLock, LetsOneInAndOthersGiveUp)
{
    const Clock::time_point now = Clock::now();
    {
        const LibraryLock parser(LibraryPart::Parser, now);
        EXPECT_TRUE(parser);
        EXPECT_FALSE(LibraryLock(LibraryPart::Parser, now));
        EXPECT_FALSE(LibraryLock(LibraryPart::Parser, never, [] { return true; }));
        EXPECT_TRUE(LibraryLock(LibraryPart::Interfaces, now));
    }
    EXPECT_FALSE(LibraryLock(LibraryPart::Parser, now, [] { return true; }));
    EXPECT_TRUE(LibraryLock(LibraryPart::Parser, now));
}

} // namespace
