#include "FakeCamera.h"
#include "FaultProxy.h"
#include "ImagePart.h"
#include "StatusCodes.h"
#include "StreamWords.h"

#include "Camera.h"
#include "CameraLink.h"

#include "featurebrowser/ZQAcquisition.h"
#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <gtest/gtest.h>

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

using namespace featurebrowser;
using namespace zqcameralib;
using namespace std::chrono_literals;

// Real images over loopback from a camera process. Times are told, not judged.
namespace {

using Clock = std::chrono::steady_clock;

const char* const directly = "127.0.0.1";

/// Waits for something at most ten seconds; whether it came.
template <typename Condition> bool eventually(Condition condition)
{
    for (const Clock::time_point start = Clock::now(); Clock::now() - start < 10s;) {
        if (condition()) {
            return true;
        }
        std::this_thread::sleep_for(10ms);
    }
    return false;
}

class Streams : public testing::Test {
protected:
    void SetUp() override
    {
        if (!FakeCamera::isInstalled()) {
            GTEST_SKIP() << "arv-fake-gv-camera-0.8 is not installed";
        }
        m_fake = std::make_unique<FakeCamera>(ZQ_SIMULATED_CAMERA_XML);
    }

    void replaceCamera(int imageLoss)
    {
        m_fake = nullptr;
        m_fake = std::make_unique<FakeCamera>(ZQ_SIMULATED_CAMERA_XML, imageLoss);
    }

    void open(const char* address = directly)
    {
        close();
        std::string error;
        m_camera = ZQCamera::Open(address, CameraAccess::Control, error);
        if (!m_camera) {
            throw std::runtime_error(error);
        }
        m_device = std::make_unique<ZQCameraDevice>(m_camera.get(), nullptr);
        if (m_device->GetRepository()->Load() != STATUS_OK) {
            throw std::runtime_error("not loaded");
        }
        m_acquisition = std::make_unique<ZQAcquisition>(m_camera.get(), m_device.get());
    }

    void close()
    {
        m_acquisition = nullptr;
        m_device = nullptr;
        m_camera = nullptr;
    }

    /// As a program gets its images that may not read the network card's ring.
    void beOrdinaryUser()
    {
        AccessError error;
        dynamic_cast<CameraLink&>(m_camera->impl().port().backend())
            .runWithSession(
                [](CameraSession& session) {
                    arv_gv_device_set_stream_options(ARV_GV_DEVICE(session.device()),
                        ARV_GV_STREAM_OPTION_PACKET_SOCKET_DISABLED);
                },
                error);
    }

    int start()
    {
        m_frames = 0;
        return m_acquisition->start([this](const ZQFrame& frame) {
            m_size = frame.size;
            ++m_frames;
        });
    }

    bool framesCome(int count)
    {
        return eventually([&] { return m_frames >= count; });
    }

    void recover()
    {
        EXPECT_TRUE(eventually([this] { return m_device->Reconnect() == STATUS_OK; }));
    }

    std::size_t payload()
    {
        long bytes = 0;
        EXPECT_EQ(m_device->GetIntegerValue("PayloadSize", &bytes), STATUS_OK);
        return static_cast<std::size_t>(bytes);
    }

    std::unique_ptr<FakeCamera> m_fake;
    FaultProxy m_proxy { 4 };
    std::unique_ptr<ZQCamera> m_camera;
    std::unique_ptr<ZQCameraDevice> m_device;
    std::unique_ptr<ZQAcquisition> m_acquisition;
    std::atomic<int> m_frames { 0 };
    std::atomic<std::size_t> m_size { 0 };
};

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
    EXPECT_EQ(m_camera->impl().lastError().text, m_acquisition->lastError());
    m_fake->start();
    recover();
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
    recover();
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
    ASSERT_EQ(start(), STATUS_OK);
    EXPECT_TRUE(framesCome(1));
    Faults silent;
    silent.loseRequests = 1;
    m_proxy.set(silent);
    long width = 0;
    EXPECT_EQ(m_device->GetIntegerValue("Width", &width), cameraLost);
    m_proxy.set({});
    recover();
    EXPECT_TRUE(eventually([this] { return !m_acquisition->isRunning(); }));
    ASSERT_EQ(start(), STATUS_OK) << m_acquisition->lastError();
    EXPECT_TRUE(framesCome(2));
}

TEST_F(Streams, CountImagesThatLosePacketsAndHandThemNotOut)
{
    replaceCamera(2);
    open();
    const std::size_t whole = payload();
    std::atomic<int> cut { 0 };
    ASSERT_EQ(
        m_acquisition->start([&](const ZQFrame& frame) { cut += frame.size == whole ? 0 : 1; }),
        STATUS_OK);
    EXPECT_TRUE(eventually([this] {
        const ZQFrameCounters counters = m_acquisition->counters();
        return counters.delivered >= 2 && counters.incomplete >= 2;
    }));
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
    EXPECT_EQ(cut, 0);
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

std::uint64_t grantedBuffer(int wanted)
{
    const int handle = socket(AF_INET, SOCK_DGRAM, 0);
    socklen_t size = sizeof wanted;
    setsockopt(handle, SOL_SOCKET, SO_RCVBUF, &wanted, size);
    getsockopt(handle, SOL_SOCKET, SO_RCVBUF, &wanted, &size);
    ::close(handle);
    return static_cast<std::uint64_t>(wanted) / 2;
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

/// Sends image packets in a camera's name.
class Packets {
public:
    explicit Packets(std::uint16_t port)
        : m_handle(socket(AF_INET, SOCK_DGRAM, 0))
    {
        m_target.sin_family = AF_INET;
        m_target.sin_port = htons(port);
        m_target.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    }
    Packets(const Packets&) = delete;
    Packets& operator=(const Packets&) = delete;
    ~Packets() { ::close(m_handle); }

    void send(std::uint32_t kind, std::uint32_t number, const std::string& data)
    {
        const std::string head = bytes(0, 4) + bytes(0x80000000U | kind, 4) + bytes(7, 8);
        const std::string packet = head + bytes(number, 4) + data;
        sendto(m_handle, packet.data(), packet.size(), 0,
            reinterpret_cast<const sockaddr*>(&m_target), sizeof m_target);
    }
    /// In the order of the network.
    static std::string bytes(std::uint64_t value, std::size_t count)
    {
        std::string text;
        for (std::size_t i = count; i > 0; --i) {
            text += i > sizeof value ? '\0' : static_cast<char>(value >> (8 * (i - 1)) & 0xFFU);
        }
        return text;
    }
    static std::string part(std::uint64_t type, std::uint64_t size, std::uint64_t side)
    {
        return bytes(type, 2) + bytes(size, 6) + bytes(0x01080001, 4) + bytes(0, 12)
            + bytes(side, 4) + bytes(side, 4) + bytes(0, 16);
    }

private:
    int m_handle;
    sockaddr_in m_target {};
};

TEST_F(Streams, ShowTheImageAmongOtherPartsAndNoMoreOfItThanCame)
{
    open();
    ASSERT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK);
    ASSERT_EQ(m_device->SetIntegerValue("Height", 16, 1), STATUS_OK);
    ASSERT_EQ(payload(), 1024U);
    ASSERT_EQ(m_device->SetEnumValue("TriggerMode", "On", 0), STATUS_OK); // sends none of its own
    std::atomic<int> height { 0 };
    std::atomic<int> first { 0 };
    ASSERT_EQ(m_acquisition->start([&](const ZQFrame& frame) {
        first = frame.data[0];
        height = frame.height;
    }),
        STATUS_OK);
    std::array<std::uint8_t, 4> port {};
    AccessError error;
    ASSERT_TRUE(m_camera->impl().port().read(
        0x0D00, port.data(), port.size(), AccessKind::Register, error));

    // 16 bytes of something else, then an image that claims more than the buffer holds.
    Packets packets(static_cast<std::uint16_t>(port[2] << 8U | port[3]));
    packets.send(0x01000002, 0,
        Packets::bytes(0x0000000A, 4) + Packets::bytes(1, 8) + Packets::part(0x000A, 16, 0)
            + Packets::part(0x0001, 2048, 64));
    packets.send(0x07000000, 1, Packets::bytes(0, 8) + std::string(16, 'x'));
    packets.send(
        0x07000000, 2, Packets::bytes(1, 2) + Packets::bytes(16, 6) + std::string(1008, 'i'));
    packets.send(
        0x07000000, 3, Packets::bytes(1, 2) + Packets::bytes(1024, 6) + std::string(16, 'i'));
    packets.send(0x02000000, 4, Packets::bytes(0x0000000A, 8));
    EXPECT_TRUE(eventually([&] { return height != 0; }));
    EXPECT_EQ(height, 1008 / 64);
    EXPECT_EQ(first, 'i');
}

TEST(Chunks, BeginWithTheOneThatAllOthersFollow)
{
    const std::string image(10, 'i');
    const std::string tagged = image + Packets::bytes(1, 4) + Packets::bytes(10, 4);
    const auto first = [](const std::string& text) {
        return firstChunk(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    };
    EXPECT_EQ(first(tagged), 10U);
    EXPECT_EQ(first(tagged + "1234" + Packets::bytes(2, 4) + Packets::bytes(4, 4)), 10U);
    EXPECT_EQ(first(tagged + "1234" + Packets::bytes(2, 4) + Packets::bytes(0xFFFFFFFF, 4)), 0U);
    EXPECT_EQ(first("12" + tagged), 0U);
    EXPECT_EQ(first(image), 0U);
    EXPECT_EQ(first(""), 0U);
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

struct WordsCase {
    const char* name;
    StreamFacts facts;
    StreamArrivals arrivals;
    const char* expected;
};

void PrintTo(const WordsCase& test, std::ostream* stream)
{
    *stream << test.name;
}

class StreamWords : public testing::TestWithParam<WordsCase> { };

TEST_P(StreamWords, NameWhatIsKnown)
{
    const std::string words = noImageWords(GetParam().facts, GetParam().arrivals);
    EXPECT_NE(words.find(GetParam().expected), std::string::npos) << words;
}

constexpr std::uint64_t mega = 1U << 20U;

INSTANTIATE_TEST_SUITE_P(Of, StreamWords,
    testing::Values(WordsCase { "Nothing", { mega, 0, 0, 1500, "192.168.0.1, port 5", false }, {},
                        "192.168.0.1, port 5. The camera may not send" },
        WordsCase { "UnknownDestination", { mega, 0, 0, 0, "", false }, {}, "arrives. The" },
        WordsCase { "Trigger", { mega, 0, 0, 1500, "", true }, {}, "waits for its trigger" },
        WordsCase { "SmallBuffer", { mega, 8 * mega, 212992, 1500, "", false },
            { 1000, 1400000, 3, 0 }, "208 KiB, but one image takes 1024 KiB" },
        WordsCase { "LargeBuffer", { mega, 8 * mega, 4 * mega, 1500, "", false },
            { 1000, 1400000, 3, 0 }, "(packet size 1500 bytes)" },
        WordsCase { "LargePacketsMissing", { mega, 8 * mega, 212992, 9000, "", false },
            { 6, 300, 3, 0 }, "packets of 9000 bytes" },
        WordsCase { "NoImageKind", { mega, 0, 0, 1500, "", false }, { 900, 900000, 3, 3 },
            "holds no image" }),
    [](const auto& test) { return std::string(test.param.name); });

} // namespace
