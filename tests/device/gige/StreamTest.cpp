#include "StreamFixture.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <utility>

using namespace featurebrowser;
using namespace zqcameralib;
using namespace std::chrono_literals;

// Real images over loopback from a camera process. Times are told, not judged.
namespace {

using Clock = std::chrono::steady_clock;

TEST_F(Streams, StartStopAndEndWithTheCamera)
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
}

TEST_F(Streams, EndWhenTheCameraIsLostAndStartAnewWhenItIsFound)
{
    open();
    ASSERT_EQ(start(), STATUS_OK);
    EXPECT_TRUE(framesCome(1));
    m_fake->kill();
    long width = 0;
    EXPECT_EQ(m_device->GetIntegerValue("Width", &width), cameraLost);
    EXPECT_TRUE(eventually([this] { return !m_acquisition->isRunning(); }));
    EXPECT_NE(m_acquisition->problem(), "");
    m_fake->start();
    EXPECT_TRUE(recovers());
    EXPECT_FALSE(m_acquisition->isRunning());
    ASSERT_EQ(start(), STATUS_OK) << m_acquisition->lastError();
    EXPECT_TRUE(m_acquisition->isRunning());
    EXPECT_EQ(m_acquisition->problem(), "");
    EXPECT_TRUE(framesCome(2));
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK) << m_acquisition->lastError();
}

TEST_F(Streams, StartAnewOnTheSameConnectionAfterControlIsRetaken)
{
    open(FaultProxy::address);
    beOrdinaryUser(); // the ring takes packets from the camera's address only
    std::atomic<bool> isHeld { true }; // so that the loss itself passes unseen
    ASSERT_EQ(m_acquisition->start(
                  [&](const ZQFrame&) {
                      ++m_frames;
                      eventually([&] { return !isHeld; });
                  },
                  2),
        STATUS_OK);
    EXPECT_TRUE(framesCome(1));
    Faults silent;
    silent.loseRequests = 1;
    m_proxy.set(silent);
    long width = 0;
    EXPECT_EQ(m_device->GetIntegerValue("Width", &width), cameraLost);
    m_proxy.set({});
    EXPECT_TRUE(recovers());
    isHeld = false;
    EXPECT_TRUE(eventually([this] { return !m_acquisition->isRunning(); }));
    EXPECT_GT(m_acquisition->counters().lost, 0U); // no buffer was free
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
    ASSERT_EQ(m_acquisition->start([&](const ZQFrame& frame) {
        const bool isRight = frame.size == whole
            && frame.frameId > std::exchange(last, frame.frameId) && frame.timestampNs != 0
            && frame.systemTimestampNs != 0;
        wrong += isRight ? 0 : 1;
    }),
        STATUS_OK);
    EXPECT_TRUE(eventually([this] {
        const ZQFrameCounters counters = m_acquisition->counters();
        return counters.delivered >= 2 && counters.incomplete >= 2;
    }));
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
    EXPECT_EQ(wrong, 0);
}

TEST_F(Streams, ReachAnOrdinaryUserWhole)
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
}

TEST_F(Streams, SayWhenTheReceiveBufferIsTooSmallForAnImage)
{
    open();
    beOrdinaryUser();
    for (const long side : { 64L, 2048L }) {
        ASSERT_EQ(m_device->SetIntegerValue("Width", side, 1), STATUS_OK);
        ASSERT_EQ(m_device->SetIntegerValue("Height", side, 1), STATUS_OK);
        ASSERT_EQ(m_device->SetEnumValue("PixelFormat", "Mono16", 0), STATUS_OK);
        ASSERT_EQ(start(), STATUS_OK);
        const bool isEnough = grantedBuffer(64 << 20) >= payload();
        const bool isSaid = m_acquisition->problem().find("rmem_max") != std::string::npos;
        EXPECT_NE(isSaid, isEnough) << m_acquisition->problem();
        EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
        EXPECT_EQ(m_acquisition->problem(), "");
    }
}

TEST_F(Streams, AreRefusedWhenTheCameraDoesNotTakeTheirDestination)
{
    open(FaultProxy::address);
    Faults faults;
    for (const std::uint32_t destination : { 0x0D18U, 0x0D00U }) {
        faults.refusedWrite = destination;
        m_proxy.set(faults);
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
    EXPECT_TRUE(eventually([this] {
        return m_acquisition->problem().find("TriggerMode") != std::string::npos;
    })) << m_acquisition->problem();
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
    EXPECT_TRUE(eventually([this] {
        return m_acquisition->problem().find("none is complete") != std::string::npos;
    })) << m_acquisition->problem();
    const std::regex count(R"(none is complete \([1-9]\d?\d? are not\))");
    EXPECT_TRUE(std::regex_search(m_acquisition->problem(), count)) << m_acquisition->problem();
}

TEST_F(Streams, OfASlowCameraStartInSeveralCallsAndDoNotLoseIt)
{
    open(FaultProxy::address);
    Faults slow;
    slow.delay = 30ms;
    m_proxy.set(slow);
    int calls = 0;
    int longest = 0;
    const auto isStarting = [&] {
        const Clock::time_point begin = Clock::now();
        ++calls;
        const int status = start();
        const auto taken
            = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
        longest = std::max(longest, static_cast<int>(taken.count()));
        EXPECT_TRUE(status == STATUS_OK || status == ZQAcquisition::stillStarting)
            << m_acquisition->lastError();
        return status != STATUS_OK;
    };
    while (isStarting() && calls < 20 && !HasFailure()) {
        EXPECT_FALSE(m_acquisition->isRunning());
    }
    EXPECT_GT(calls, 1);
    EXPECT_TRUE(m_acquisition->isRunning());
    EXPECT_FALSE(m_camera->isLost());
    std::printf("[  SLOW    ] %d calls, the longest took %d ms\n", calls, longest);
}

TEST_F(Streams, StartBesideTheCaller)
{
    open(FaultProxy::address);
    beOrdinaryUser();
    Faults slow;
    slow.delay = 20ms;
    m_proxy.set(slow);
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

TEST_F(Streams, ThatWereGivenUpWhileTheyStartedLeaveNothingBehind)
{
    open(FaultProxy::address);
    Faults slow;
    slow.delay = 30ms;
    m_proxy.set(slow);
    EXPECT_EQ(start(), ZQAcquisition::stillStarting);
    EXPECT_EQ(start(), ZQAcquisition::stillStarting);
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
    m_proxy.set({});
    EXPECT_TRUE(eventually([this] { return start() == STATUS_OK; })) << m_acquisition->lastError();
}

struct Usage {
    std::ptrdiff_t threads = 0;
    std::ptrdiff_t files = 0;
    long kibibytes = 0;
};

std::ptrdiff_t entries(const char* folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

Usage usage()
{
    std::ifstream file("/proc/self/statm");
    long pages = 0;
    long resident = 0;
    file >> pages >> resident;
    return { entries("/proc/self/task"), entries("/proc/self/fd"), resident * 4 };
}

TEST_F(Streams, OpenedAndClosedAgainAndAgainKeepNothing)
{
    const char* wanted = std::getenv("ZQ_STREAM_CYCLES");
    const int cycles = wanted == nullptr ? 12 : std::atoi(wanted);
    Usage settled;
    for (int cycle = 0; cycle < cycles; ++cycle) {
        open();
        ASSERT_EQ(start(), STATUS_OK) << m_acquisition->lastError();
        EXPECT_TRUE(framesCome(1));
        // Every other one is closed while it streams.
        EXPECT_TRUE(cycle % 2 == 1 || m_acquisition->stop() == STATUS_OK);
        close();
        if (cycle == 1) {
            settled = usage();
        }
    }
    EXPECT_TRUE(eventually([&] {
        const Usage now = usage();
        return now.threads <= settled.threads && now.files <= settled.files;
    }));
    const Usage now = usage();
    std::printf("[  CYCLES  ] %d: %td threads, %td files, %ld KiB; after two %td, %td, %ld KiB\n",
        cycles, now.threads, now.files, now.kibibytes, settled.threads, settled.files,
        settled.kibibytes);
}

} // namespace
