// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "acquisition/PacketSearch.h"

#include <gtest/gtest.h>

using namespace zqcameralib;
using featurebrowser::ZQFrameCounters;
using std::chrono::milliseconds;

namespace {

/// A network that takes packets up to a size, and loses some that follow each other too soon.
struct Network {
    std::int64_t largest;
    std::int64_t leastDelay;

    ZQFrameCounters after(const PacketTrial& trial, milliseconds elapsed) const
    {
        ZQFrameCounters counters;
        const auto frames = static_cast<std::uint64_t>(elapsed.count() / 20); // 50 a second
        const bool arrives = trial.size <= largest;
        const bool loses = trial.delay < leastDelay;
        counters.incomplete = arrives ? (loses ? frames / 10 : 0) : frames;
        counters.delivered = frames - counters.incomplete;
        counters.resendRequests = loses ? frames : 0;
        return counters;
    }
};

struct Case {
    const char* what;
    PacketFacts facts;
    Network network;
    std::int64_t size, delay;
    std::string words;
};

// size, smallest, largest, increment, hasDelay, delay, mostDelay, ticks, imageBytes, rate, limit
const std::vector<Case> cases {
    { "all that the camera can send", { 1500, 576, 9000, 4, false, 0, 0, 1e9, 300000, 50.0, 0 },
        { 65535, 0 }, 9000, 0,
        "Images arrive whole in packets of 9000 bytes; before, they had 1500 bytes." },
    { "all, without a grid", { 1500, 576, 9001, 0, false, 0, 0, 1e9, 300000, 50.0, 0 },
        { 65535, 0 }, 9001, 0,
        "Images arrive whole in packets of 9001 bytes; before, they had 1500 bytes." },
    { "what the network takes", { 9000, 576, 16000, 4, false, 0, 0, 1e9, 300000, 50.0, 0 },
        { 4200, 0 }, 4088, 0,
        "Images arrive whole in packets of 4088 bytes; before, they had 9000 bytes." },
    { "the present one, off the list and off the grid",
        { 3001, 578, 9000, 4, false, 0, 0, 1e9, 300000, 50.0, 0 }, { 4000, 0 }, 3001, 0,
        "Images arrive whole in packets of 3001 bytes, as set before." },
    { "none", { 1500, 576, 9000, 4, true, 7, 100, 1e9, 300000, 50.0, 0 }, { 0, 0 }, 1500, 7,
        "No image arrives whole, whatever the size of its packets; that is left at 1500 bytes." },
    { "the present delay", { 9000, 576, 9000, 4, true, 7, 100000, 1e9, 300000, 50.0, 0 },
        { 9000, 5 }, 9000, 7,
        "Images arrive whole in packets of 9000 bytes, as set before. None gets lost with the "
        "delay between them that was set before." },
    // 36 packets of 72 us take 2.6 of 20 ms: 428 us are left between two, at a tenth's reserve.
    { "a quarter of the room", { 9000, 576, 9000, 4, true, 0, 1000000, 1e9, 300000, 50.0, 0 },
        { 9000, 60000 }, 9000, 107000,
        "Images arrive whole in packets of 9000 bytes, as set before. None gets lost with a delay "
        "of 107000 ticks between them; before, it had 0." },
    { "no more than the camera can", { 9000, 576, 9000, 4, true, 0, 800, 1e8, 300000, 50.0, 0 },
        { 9000, 700 }, 9000, 800,
        "Images arrive whole in packets of 9000 bytes, as set before. None gets lost with a delay "
        "of 800 ticks between them; before, it had 0." },
    { "no delay is enough", { 9000, 576, 9000, 4, true, 3, 1000000, 1e9, 300000, 50.0, 0 },
        { 9000, 500000 }, 9000, 3,
        "Images arrive whole in packets of 9000 bytes, as set before. Some packets get lost, "
        "whatever the delay between them that the frame rate allows; it is left as it was." },
    { "single images", { 1500, 576, 9000, 4, true, 0, 9, 1e9, 300000, 50.0, 1 }, { 1500, 0 }, 1500,
        0,
        "Images arrive whole in packets of 1500 bytes, as set before. None gets lost with the "
        "delay between them that was set before." },
};

TEST(PacketSearch, FindsTheLargestPacketsThatArriveAndTheLeastDelay)
{
    for (const Case& test : cases) {
        PacketSearch search(test.facts);
        while (const auto trial = search.next()) {
            std::optional<bool> isGood;
            for (milliseconds elapsed(0); !isGood; elapsed += milliseconds(10)) {
                ZQFrameCounters counters = test.network.after(*trial, elapsed);
                if (test.facts.frameLimit != 0 && counters.delivered + counters.incomplete > 1) {
                    counters = test.network.after(*trial, milliseconds(20));
                }
                isGood = search.verdict(counters, elapsed);
                ASSERT_LT(elapsed, std::chrono::seconds(60)) << test.what;
            }
            search.note(*isGood);
        }
        EXPECT_EQ(search.best().size, test.size) << test.what;
        EXPECT_EQ(search.best().delay, test.delay) << test.what;
        EXPECT_EQ(search.words(), test.words) << test.what;
        EXPECT_EQ(search.trialsLeft(), 0U) << test.what;
    }
}

TEST(PacketSearch, WaitsForSlowCamerasAndNotForSilentOnes)
{
    PacketFacts facts { 1500, 576, 9000, 4, false, 0, 0, 1e9, 300000, 0.5, 0 };
    PacketSearch slow(facts);
    ZQFrameCounters none;
    EXPECT_EQ(slow.verdict(none, std::chrono::seconds(9)), std::nullopt);
    EXPECT_EQ(slow.verdict(none, std::chrono::seconds(11)), false);
    facts.framesPerSecond = 50.0;
    EXPECT_EQ(PacketSearch(facts).verdict(none, milliseconds(1200)), false);
}

} // namespace
