// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "StreamFixture.h"

#include <filesystem>
#include <regex>
#include <utility>

using namespace featurebrowser;
using namespace zqcameralib;
using namespace std::chrono_literals;

// Real images over loopback from a camera process.
namespace {

TEST_F(Streams, StartStopEndWithTheCameraAndStartAnewWhenItIsFound)
{
    open();
    ASSERT_EQ(start(), STATUS_OK);
    EXPECT_TRUE(m_acquisition->isRunning());
    EXPECT_NE(m_device->IsGrabbing(), 0);
    EXPECT_TRUE(framesCome(3));
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
    EXPECT_FALSE(m_acquisition->isRunning());
    EXPECT_EQ(m_size, payload());

    ASSERT_EQ(start(), STATUS_OK);
    EXPECT_TRUE(framesCome(1));
    m_fake->kill();
    EXPECT_NE(m_acquisition->stop(), STATUS_OK);
    EXPECT_NE(m_acquisition->lastError().find(directly), std::string::npos);
    EXPECT_TRUE(m_camera->isLost());
    EXPECT_EQ(start(), cameraLost);
    EXPECT_EQ(m_camera->impl().lastError().text(), m_acquisition->lastError());
    m_fake->start();
    EXPECT_TRUE(recovers());
    ASSERT_EQ(start(), STATUS_OK);
    EXPECT_TRUE(framesCome(1));

    m_fake->kill();
    EXPECT_EQ(get("Width"), cameraLost);
    EXPECT_TRUE(eventually([this] { return !m_acquisition->isRunning(); }));
    EXPECT_NE(m_acquisition->problem(), "");
    m_fake->start();
    EXPECT_TRUE(recovers());
    EXPECT_FALSE(m_acquisition->isRunning());
    ASSERT_EQ(start(), STATUS_OK) << m_acquisition->lastError();
    EXPECT_EQ(m_acquisition->problem(), "");
    EXPECT_TRUE(framesCome(2));
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK) << m_acquisition->lastError();
}

TEST_F(Streams, StartAnewOnTheSameConnectionAfterControlIsRetaken)
{
    open(FaultProxy::address);
    beOrdinaryUser(); // the ring takes packets from the camera's address only
    std::atomic<bool> isHeld { true }; // so that the loss itself passes unseen
    const auto hold = [&](const ZQFrame&) {
        ++m_frames;
        eventually([&] { return !isHeld; });
    };
    ASSERT_EQ(start(hold, 2), STATUS_OK);
    EXPECT_TRUE(framesCome(1));
    m_proxy.set(Faults::requestsLost());
    EXPECT_EQ(get("Width"), cameraLost);
    m_proxy.set({});
    EXPECT_TRUE(recovers());
    isHeld = false;
    EXPECT_TRUE(eventually([this] { return !m_acquisition->isRunning(); }));
    EXPECT_GT(m_acquisition->counters().lost, 0U); // no buffer was free
    EXPECT_EQ(m_acquisition->counters().underruns, m_acquisition->counters().lost);
    ASSERT_EQ(start(), STATUS_OK) << m_acquisition->lastError();
    EXPECT_TRUE(framesCome(2));
}

TEST_F(Streams, CountImagesThatLosePacketsAndHandThemNotOut)
{
    replaceCamera(2);
    open();
    const std::size_t whole = payload();
    std::atomic<int> wrong { 0 };
    std::uint64_t last = 0;
    const auto judge = [&](const ZQFrame& frame) {
        const bool isRight = frame.size == whole
            && frame.frameId > std::exchange(last, frame.frameId) && frame.timestampNs != 0
            && frame.systemTimestampNs != 0;
        wrong += isRight ? 0 : 1;
    };
    ASSERT_EQ(start(judge), STATUS_OK);
    EXPECT_TRUE(eventually([this] {
        const ZQFrameCounters counters = m_acquisition->counters();
        return counters.delivered >= 2 && counters.incomplete >= 2;
    }));
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
    EXPECT_EQ(wrong, 0);
    const ZQFrameCounters counters = m_acquisition->counters();
    EXPECT_GE(counters.resendRequests, counters.resentPackets);
    EXPECT_GT(counters.missingPackets, 0U);
    EXPECT_EQ(counters.wrongSize + counters.aborted, 0U);
}

TEST_F(Streams, ReachAnOrdinaryUserWholeUnlessTheReceiveBufferIsTooSmall)
{
    open();
    beOrdinaryUser();
    for (int round = 0; round < 3; ++round) {
        ASSERT_EQ(start(), STATUS_OK);
        EXPECT_TRUE(framesCome(10));
        EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
        const ZQFrameCounters counters = m_acquisition->counters();
        EXPECT_GT(counters.delivered, 2 * counters.incomplete);
    }
    ASSERT_EQ(m_device->SetEnumValue("PixelFormat", "Mono16", 0), STATUS_OK);
    for (const long side : { 64L, 2048L }) {
        ASSERT_EQ(set("Width", side), STATUS_OK);
        ASSERT_EQ(set("Height", side), STATUS_OK);
        ASSERT_EQ(start(), STATUS_OK);
        const bool isEnough = grantedBuffer(64 << 20) >= payload();
        EXPECT_NE(problemHas("rmem_max"), isEnough) << m_acquisition->problem();
        EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
        EXPECT_EQ(m_acquisition->problem(), "");
    }
}

TEST_F(Streams, AreRefusedWhenTheCameraDoesNotTakeTheirDestination)
{
    open(FaultProxy::address);
    for (const std::uint32_t destination : { 0x0D18U, 0x0D00U }) {
        m_proxy.set(Faults::refusing(0x8004, destination));
        EXPECT_NE(start(), STATUS_OK);
        EXPECT_NE(m_acquisition->lastError().find("destination"), std::string::npos)
            << m_acquisition->lastError();
        EXPECT_FALSE(m_acquisition->isRunning());
        EXPECT_EQ(m_device->IsGrabbing(), 0);
    }
    m_proxy.set({});
    EXPECT_EQ(start(), STATUS_OK) << m_acquisition->lastError();
}

TEST_F(Streams, OfATriggeredCameraSayThatItWaitsForItsTrigger)
{
    open();
    ASSERT_EQ(m_device->SetEnumValue("TriggerSelector", "FrameStart", 0), STATUS_OK);
    ASSERT_EQ(m_device->SetEnumValue("TriggerMode", "On", 0), STATUS_OK);
    ASSERT_EQ(m_device->SetEnumValue("TriggerSource", "Software", 0), STATUS_OK);
    ASSERT_EQ(start(), STATUS_OK);
    EXPECT_EQ(m_acquisition->problem(), "");
    EXPECT_TRUE(problemTells("TriggerMode")) << m_acquisition->problem();
    EXPECT_NE(m_acquisition->problem().find("at 127.0.0.1, port "), std::string::npos);
    EXPECT_TRUE(m_acquisition->isRunning());
    EXPECT_EQ(m_device->ExecuteCommand("TriggerSoftware", 0), STATUS_OK);
    EXPECT_TRUE(framesCome(1));
    EXPECT_TRUE(eventually([this] { return m_acquisition->problem().empty(); }));
}

TEST_F(Streams, OfWhichNoImageIsCompleteSaySo)
{
    replaceCamera(800);
    open();
    ASSERT_EQ(start(), STATUS_OK);
    EXPECT_TRUE(problemTells("none is complete")) << m_acquisition->problem();
    const std::regex count(R"(none is complete \([1-9]\d?\d? are not\))");
    EXPECT_TRUE(std::regex_search(m_acquisition->problem(), count)) << m_acquisition->problem();
}

TEST_F(Streams, OfASlowCameraStartInSeveralCallsAndLeaveNothingBehindWhenGivenUp)
{
    open(FaultProxy::address);
    m_proxy.set(Faults::slow(15ms));
    for (int calls = 0; calls < 2; ++calls) {
        EXPECT_EQ(m_acquisition->start({}), ZQAcquisition::stillStarting);
        EXPECT_FALSE(m_acquisition->isRunning());
    }
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
    EXPECT_EQ(start(), STATUS_OK) << m_acquisition->lastError();
    EXPECT_TRUE(m_acquisition->isRunning());
    EXPECT_FALSE(m_camera->isLost());
}

TEST_F(Streams, StartBesideTheCaller)
{
    open(FaultProxy::address);
    beOrdinaryUser();
    m_proxy.set(Faults::slow(10ms));
    const auto given = m_acquisition->StartBeside({});
    EXPECT_EQ(given->poll(), ZQCameraTask::State::Running);
    given->cancel();
    EXPECT_EQ(given->poll(), ZQCameraTask::State::Cancelled);
    const auto starting = m_acquisition->StartBeside([this](const ZQFrame&) { ++m_frames; });
    EXPECT_FALSE(m_acquisition->isRunning());
    ASSERT_EQ(starting->wait(20s), ZQCameraTask::State::Done) << starting->error();
    EXPECT_TRUE(m_acquisition->isRunning());
    EXPECT_TRUE(framesCome(2));
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
    m_fake->kill();
    EXPECT_EQ(m_acquisition->StartBeside({})->wait(20s), ZQCameraTask::State::Failed);
    EXPECT_NE(m_acquisition->lastError(), "");
}

std::ptrdiff_t entries(const char* folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

TEST_F(Streams, OpenedAndClosedAgainAndAgainKeepNothing)
{
    const char* wanted = std::getenv("ZQ_STREAM_CYCLES");
    const int cycles = wanted == nullptr ? 12 : std::atoi(wanted);
    std::ptrdiff_t threads = 0;
    std::ptrdiff_t files = 0;
    for (int cycle = 0; cycle < cycles; ++cycle) {
        open();
        ASSERT_EQ(start(), STATUS_OK) << m_acquisition->lastError();
        EXPECT_TRUE(framesCome(1));
        // Every other one is closed while it streams.
        EXPECT_TRUE(cycle % 2 == 1 || m_acquisition->stop() == STATUS_OK);
        m_acquisition = nullptr;
        close();
        if (cycle == 1) {
            threads = entries("/proc/self/task");
            files = entries("/proc/self/fd");
        }
    }
    EXPECT_TRUE(eventually([&] {
        return entries("/proc/self/task") <= threads && entries("/proc/self/fd") <= files;
    }));
}

} // namespace
