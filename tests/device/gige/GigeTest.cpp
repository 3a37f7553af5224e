#include "FakeCamera.h"
#include "FaultProxy.h"
#include "PrivateNetwork.h"
#include "StatusCodes.h"

#include "Camera.h"

#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <functional>
#include <map>
#include <stdexcept>

using namespace featurebrowser;
using namespace zqcameralib;
using namespace std::chrono_literals;

// Real traffic over loopback with a camera process, through a proxy that harms it. Times are told,
// not judged: "blocked" is the longest single call and all calls together after the fault.
namespace {

using Clock = std::chrono::steady_clock;
using Values = std::map<std::string, std::string>;

int milliseconds(Clock::duration time)
{
    return static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(time).count());
}

class GigE : public testing::Test {
protected:
    void SetUp() override
    {
        if (!FakeCamera::isInstalled()) {
            GTEST_SKIP() << "arv-fake-gv-camera-0.8 is not installed";
        }
        m_fake = std::make_unique<FakeCamera>(ZQ_SIMULATED_CAMERA_XML);
    }

    /// Throws what is wrong: no test goes on without its camera.
    void open(const char* address = FaultProxy::address)
    {
        std::string error;
        m_camera = ZQCamera::Open(address, CameraAccess::Control, error);
        if (!m_camera) {
            throw std::runtime_error("not opened: " + error);
        }
        m_device = std::make_unique<ZQCameraDevice>(m_camera.get(), nullptr);
        m_repository = m_device->GetRepository();
        if (m_repository->Load() != STATUS_OK) {
            throw std::runtime_error("not loaded");
        }
    }

    /// All but the register that tells who has control, which faults may change.
    Values values()
    {
        Values all;
        for (const auto& item : m_repository->GetFeatureList()) {
            if (item->displayFlag == 1 && item->name != "GevCCP") {
                all[item->name] = item->valueText;
            }
        }
        return all;
    }

    /// Reads every feature; false answers count as unread.
    int readAll()
    {
        int unread = 0;
        for (const auto& item : m_repository->GetFeatureList()) {
            const Clock::time_point start = Clock::now();
            unread += m_repository->ReadFeature(item) ? 0 : 1;
            const int taken = milliseconds(Clock::now() - start);
            m_longest = std::max(m_longest, taken);
            m_total += taken;
        }
        return unread;
    }

    /// Tries to reconnect for a while; the time it took.
    int recover()
    {
        const Clock::time_point start = Clock::now();
        int status = -1;
        while (status != STATUS_OK && Clock::now() - start < 20s) {
            status = m_device->Reconnect();
        }
        EXPECT_EQ(status, STATUS_OK);
        return milliseconds(Clock::now() - start);
    }

    std::unique_ptr<FakeCamera> m_fake;
    FaultProxy m_proxy { 4 };
    std::unique_ptr<ZQCamera> m_camera;
    std::unique_ptr<ZQCameraDevice> m_device;
    ZQCameraRepository* m_repository = nullptr;
    int m_longest = 0;
    int m_total = 0;
};

enum class Fate { Survives, Lost, Either };

struct FaultCase {
    const char* name;
    Fate fate;
    Faults faults;
    std::function<void(FakeCamera&)> harm;
    std::function<void(FakeCamera&)> heal;
};

void PrintTo(const FaultCase& test, std::ostream* stream)
{
    *stream << test.name;
}

Faults with(const std::function<void(Faults&)>& change)
{
    Faults faults;
    change(faults);
    return faults;
}

class Fault : public GigE, public testing::WithParamInterface<FaultCase> { };

TEST_P(Fault, ShowsNoWrongValueAndIsRecoveredFrom)
{
    const FaultCase& test = GetParam();
    open();
    const Values right = values();
    std::this_thread::sleep_for(150ms); // the snapshot is over
    readAll(); // what the load has read is handed out once without asking
    std::this_thread::sleep_for(150ms);

    m_longest = m_total = 0;
    if (test.harm) {
        test.harm(*m_fake);
    }
    m_proxy.set(test.faults);
    const int unread = readAll();
    for (const auto& [name, value] : values()) {
        EXPECT_EQ(value, right.at(name)) << name;
    }
    const bool lost = m_camera->isLost();
    if (test.fate != Fate::Either) {
        EXPECT_EQ(lost, test.fate == Fate::Lost);
    }
    EXPECT_EQ(lost || unread > 0, unread > 0);
    if (lost) {
        long value = 0;
        EXPECT_EQ(m_device->GetIntegerValue("Width", &value), cameraLost);
        EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), cameraLost);
        EXPECT_EQ(m_repository->UpdateFeatureStates(), cameraLost);
        EXPECT_EQ(m_repository->GetFeatureStates()["Width"], FEATURE_READ_FAILED);
        std::array<char, errorTextSize> name {};
        std::array<char, errorTextSize> text {};
        m_device->GetErrorText(cameraLost, name.data(), text.data());
        EXPECT_NE(std::string(text.data()).find(FaultProxy::address), std::string::npos)
            << text.data();
        EXPECT_EQ(m_repository->GetFeature("Width")->valueText, right.at("Width"));
    }

    m_proxy.set({});
    if (test.heal) {
        test.heal(*m_fake);
    }
    const int recovery = recover();
    EXPECT_EQ(readAll(), 0);
    EXPECT_EQ(values(), right);
    std::printf("[  FAULT   ] %-28s %s, blocked %d ms at once, %d ms in all, back after %d ms\n",
        test.name, lost ? "lost" : "survived", m_longest, m_total, recovery);
}

const auto stall = [](FakeCamera& camera) { camera.stall(); };
auto resumeAfter(std::chrono::milliseconds time)
{
    return [time](FakeCamera& camera) {
        std::this_thread::sleep_for(time);
        camera.resume();
    };
}
const auto kill = [](FakeCamera& camera) { camera.kill(); };
const auto restart = [](FakeCamera& camera) { camera.start(); };

INSTANTIATE_TEST_SUITE_P(Named, Fault,
    testing::Values(FaultCase { "CameraKilled", Fate::Lost, {}, kill, restart },
        FaultCase { "CameraRestarted", Fate::Either, {},
            [](FakeCamera& camera) {
                camera.kill();
                camera.start();
            },
            {} },
        FaultCase { "Stalled", Fate::Lost, {}, stall, resumeAfter(0ms) },
        FaultCase { "StalledFor4s", Fate::Lost, {}, stall, resumeAfter(2800ms) },
        FaultCase { "StalledFor9s", Fate::Lost, {}, stall, resumeAfter(7800ms) },
        FaultCase {
            "AllRequestsLost", Fate::Lost, with([](Faults& f) { f.loseRequests = 1; }), {}, {} },
        FaultCase {
            "AllRepliesLost", Fate::Lost, with([](Faults& f) { f.loseReplies = 1; }), {}, {} },
        FaultCase { "OneRequestIn50Lost", Fate::Either,
            with([](Faults& f) { f.loseRequests = 0.02; }), {}, {} },
        FaultCase { "OneReplyIn50Lost", Fate::Either, with([](Faults& f) { f.loseReplies = 0.02; }),
            {}, {} },
        FaultCase { "HalfOfAllLost", Fate::Either,
            with([](Faults& f) { f.loseReplies = f.loseRequests = 0.3; }), {}, {} },
        FaultCase { "RequestsTwice", Fate::Survives,
            with([](Faults& f) { f.duplicateRequests = 1; }), {}, {} },
        FaultCase { "RepliesTwice", Fate::Survives, with([](Faults& f) { f.duplicateReplies = 1; }),
            {}, {} },
        FaultCase { "RepliesOutOfOrder", Fate::Either,
            with([](Faults& f) { f.reorderReplies = 0.02; }), {}, {} },
        FaultCase { "HeadersCorrupt", Fate::Either,
            with([](Faults& f) { f.corruptReplies = 0.02; }), {}, {} },
        FaultCase { "AllHeadersCorrupt", Fate::Either,
            with([](Faults& f) { f.corruptReplies = 1; }), {}, {} },
        FaultCase { "RepliesTruncated", Fate::Either,
            with([](Faults& f) { f.truncateReplies = 0.02; }), {}, {} },
        FaultCase { "AllRepliesTruncated", Fate::Either,
            with([](Faults& f) { f.truncateReplies = 1; }), {}, {} },
        FaultCase { "IdsOfOtherRequests", Fate::Either, with([](Faults& f) { f.wrongIds = 0.02; }),
            {}, {} },
        FaultCase { "JitterBothWays", Fate::Survives, with([](Faults& f) {
                       f.requestDelay = f.delay = 1ms;
                       f.requestJitter = f.jitter = 3ms;
                   }),
            {}, {} },
        FaultCase { "Delayed2ms", Fate::Survives, with([](Faults& f) { f.delay = 2ms; }), {}, {} },
        FaultCase { "Delayed600ms", Fate::Lost, with([](Faults& f) { f.delay = 600ms; }), {}, {} },
        FaultCase {
            "BusyForEver", Fate::Either, with([](Faults& f) { f.status = 0x8007; }), {}, {} },
        FaultCase {
            "AccessDenied", Fate::Either, with([](Faults& f) { f.status = 0x8006; }), {}, {} },
        FaultCase { "PendingForEver", Fate::Lost, with([](Faults& f) { f.pendingForever = true; }),
            {}, {} },
        FaultCase { "PendingThenAnswered", Fate::Survives, with([](Faults& f) { f.pendingMs = 3; }),
            {}, {} }),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(GigE, EditsReachTheCamera)
{
    open();
    EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK);
    long width = 0;
    EXPECT_EQ(m_device->GetIntegerValue("Width", &width), STATUS_OK);
    EXPECT_EQ(width, 64);
    EXPECT_EQ(m_device->SetIntegerValue("Width", 7, 1), ERROR_VALUE_OUT_OF_RANGE);
}

TEST_F(GigE, ACameraUnderControlOpensForReadingOnlyOrNotAtAll)
{
    open();
    std::string error;
    EXPECT_FALSE(ZQCamera::Open("127.0.0.1", CameraAccess::Control, error));
    EXPECT_NE(error.find("another application controls"), std::string::npos) << error;

    std::unique_ptr<ZQCamera> second
        = ZQCamera::Open("127.0.0.1", CameraAccess::ControlOrReadOnly, error);
    ASSERT_TRUE(second) << error;
    EXPECT_TRUE(second->isReadOnly());
    ZQCameraDevice device(second.get(), nullptr);
    EXPECT_EQ(device.GetRepository()->Load(), STATUS_OK);
    EXPECT_EQ(device.SetIntegerValue("Width", 64, 1), accessDenied);
    EXPECT_EQ(device.GetRepository()->GetFeature("Width")->lockedFlag, 1);
    EXPECT_FALSE(m_camera->isReadOnly());
    EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK);
}

TEST_F(GigE, ACameraTakenByAnotherApplicationIsRetakenWhenThatIsDone)
{
    open();
    m_proxy.set(with([](Faults& f) { f.loseRequests = 1; })); // also those that keep the control
    std::string error;
    std::unique_ptr<ZQCamera> other;
    for (const Clock::time_point start = Clock::now(); !other && Clock::now() - start < 10s;) {
        std::this_thread::sleep_for(200ms);
        other = ZQCamera::Open("127.0.0.1", CameraAccess::Control, error);
    }
    ASSERT_TRUE(other) << error;
    m_proxy.set({});

    // A real camera refuses the write, this one does not answer it at all.
    EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), cameraLost);
    EXPECT_NE(m_device->Reconnect(), STATUS_OK);
    other.reset();
    recover();
    EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK);
}

TEST_F(GigE, DiscoveryListsTheCameraAndItsIdOpensIt)
{
    ZQDiscovery discovery;
    EXPECT_TRUE(discovery.discover({ "nothing" }).empty());
    const std::vector<CameraInfo> found = discovery.discover({ "GigEVision" });
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].address, "127.0.0.1");
    EXPECT_EQ(found[0].protocol, "GigEVision");
    EXPECT_FALSE(found[0].serial.empty());
    EXPECT_TRUE(found[0].reachable);

    std::string error;
    EXPECT_TRUE(ZQCamera::Open(found[0].id, CameraAccess::Control, error)) << error;
    EXPECT_FALSE(ZQCamera::Open("no such camera", CameraAccess::Control, error));
    EXPECT_NE(error.find("no such camera found"), std::string::npos);
    EXPECT_FALSE(ZQCamera::Open("10.1.2.3", CameraAccess::Control, error));
    EXPECT_NE(error.find("no network"), std::string::npos) << error;
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!testing::GTEST_FLAG(list_tests) && !enterPrivateNetwork()) {
        std::printf("skipped: this system allows no network of one's own\n");
        return 77; // not a success: nothing has been tested
    }
    const bool asOrdinaryUser = argc > 1 && argv[1] == std::string("--ordinary-user");
    if (asOrdinaryUser && !giveUpPrivileges()) {
        std::printf("failed: privileges cannot be given up\n");
        return 1;
    }
    return RUN_ALL_TESTS();
}
