#include "GigeFixture.h"
#include "base/StatusCodes.h"

#include "camera/Camera.h"

#include "featurebrowser/ZQAcquisition.h"

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

using namespace featurebrowser;
using namespace zqcameralib;
using namespace std::chrono_literals;

namespace {

using State = ZQCameraTask::State;

Faults slow(std::chrono::milliseconds roundTrip)
{
    Faults faults;
    faults.requestDelay = faults.delay = roundTrip / 2;
    return faults;
}

Faults blackHole()
{
    Faults faults;
    faults.loseRequests = 1.0;
    return faults;
}

Faults refusing(int status)
{
    Faults faults;
    faults.status = status;
    return faults;
}

/// The built-in camera under another name, and without Gamma.
class OtherDescription {
public:
    OtherDescription()
        : m_path(std::filesystem::temp_directory_path()
            / ("other-camera-" + std::to_string(getpid()) + ".xml"))
    {
        std::ifstream in(ZQ_SIMULATED_CAMERA_XML);
        std::stringstream text;
        text << in.rdbuf();
        const std::regex gamma("<pFeature>Gamma</pFeature>");
        std::ofstream(m_path) << std::regex_replace(
            std::regex_replace(text.str(), gamma, ""), std::regex("AreaScan2K"), "Another");
    }
    OtherDescription(const OtherDescription&) = delete;
    OtherDescription& operator=(const OtherDescription&) = delete;
    ~OtherDescription() { std::filesystem::remove(m_path); }

    std::string path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

class Trouble : public GigeFixture {
protected:
    void open(CameraAccess access = CameraAccess::Control)
    {
        GigeFixture::open(FaultProxy::address, access);
        forget();
    }

    /// Waits until what was read before has to be read anew.
    static void forget() { std::this_thread::sleep_for(120ms); }

    std::size_t count(FEATURE_STATE state)
    {
        const auto& states = m_repository->GetFeatureStates();
        return static_cast<std::size_t>(std::count_if(states.begin(), states.end(),
            [state](const auto& entry) { return entry.second == state; }));
    }
};

// What the library keeps in globals: its parser, and the lists of what was found.
TEST_F(Trouble, ManyThreadsOpenAndSearchCamerasAtOnce)
{
    std::vector<std::thread> threads;
    std::atomic<int> opened { 0 };
    std::atomic<std::size_t> found { 0 };
    for (const std::string place : { "127.0.0.1", "127.0.0.2", "", "127.0.0.1" }) {
        threads.emplace_back([place, &opened, &found] {
            for (int i = 0; i < 8; ++i) {
                std::string error;
                const auto camera = place.empty()
                    ? ZQCamera::OpenSimulated(error)
                    : ZQCamera::Open(place, CameraAccess::ReadOnly, error);
                ASSERT_TRUE(camera) << error;
                ZQCameraDevice device(camera.get(), nullptr);
                opened += device.GetRepository()->Load() == STATUS_OK ? 1 : 0;
            }
            found += ZQDiscovery().discover({ "GigEVision" }).size();
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(opened, 32);
    EXPECT_EQ(found, threads.size());
}

TEST_F(Trouble, AnOpeningThatWasGivenUpDoesNotMeetTheNext)
{
    // Long enough that opening reads the description when it is cancelled.
    m_proxy.set(slow(8ms));
    for (int i = 0; i < 2; ++i) {
        const auto opening = ZQCamera::OpenBeside(FaultProxy::address, CameraAccess::Control);
        ASSERT_TRUE(eventually(
            [&] { return opening->progress().step == "Reading the camera's description"; }));
        opening->cancel();
        EXPECT_EQ(opening->poll(), State::Cancelled);
        EXPECT_FALSE(opening->takeCamera());
    }
    m_proxy.set({});
    std::string error;
    EXPECT_TRUE(ZQCamera::OpenSimulated(error)) << error;
    open();
    EXPECT_FALSE(m_camera->isReadOnly());
}

TEST_F(Trouble, OpensBesideTheCallerAndTellsWhatItDoes)
{
    m_proxy.set(slow(4ms));
    const auto opening = ZQCamera::OpenBeside(FaultProxy::address, CameraAccess::Control);
    std::set<std::string> steps;
    ASSERT_TRUE(eventually([&] {
        steps.insert(opening->progress().step);
        return opening->poll() != State::Running;
    }));
    ASSERT_EQ(opening->poll(), State::Done) << opening->error();
    EXPECT_EQ(steps.count("Reading the camera's description"), 1U);
    const std::unique_ptr<ZQCamera> camera = opening->takeCamera();
    ASSERT_TRUE(camera);
    EXPECT_FALSE(opening->takeCamera());
    EXPECT_EQ(camera->model(), "AreaScan2K");
}

TEST_F(Trouble, ADeadAddressIsToldInWords)
{
    std::string error;
    EXPECT_FALSE(ZQCamera::Open("127.0.0.9", CameraAccess::Control, error));
    EXPECT_EQ(error, "127.0.0.9: no camera answers there; check power, cable and the address");
    m_proxy.set(blackHole());
    const auto opening = ZQCamera::OpenBeside(FaultProxy::address, CameraAccess::Control);
    EXPECT_EQ(opening->wait(10s), State::Failed);
    EXPECT_NE(opening->error().find("no camera answers there"), std::string::npos);
    Faults pending;
    pending.pendingForever = true;
    m_proxy.set(pending);
    EXPECT_FALSE(ZQCamera::Open(FaultProxy::address, CameraAccess::Control, error));
    EXPECT_NE(error.find("asks to wait"), std::string::npos) << error;
}

TEST_F(Trouble, ACameraExchangedForAnotherShowsItsOwnFeatures)
{
    open();
    ASSERT_TRUE(m_repository->GetFeature("Gamma"));
    const std::shared_ptr<FeatureItem> width = m_repository->GetFeature("Width");
    const OtherDescription other;
    const FakeCamera exchanged(other.path(), 0, "127.0.0.4", "GV02");
    m_fake->kill();
    long value = 0;
    EXPECT_NE(m_device->GetIntegerValue("Width", &value), STATUS_OK);
    m_proxy.switchTo("127.0.0.4");
    ASSERT_TRUE(recovers());
    EXPECT_EQ(m_camera->model(), "Another");
    EXPECT_TRUE(m_repository->isLoaded());
    EXPECT_FALSE(m_repository->GetFeature("Gamma"));
    EXPECT_FALSE(m_repository->ReadFeature(width)); // a record of the camera that is gone
    EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK);
}

TEST_F(Trouble, AStreamDoesNotKeepTheControlOfACameraThatWasExchanged)
{
    open();
    ZQAcquisition acquisition(m_camera.get(), m_device.get());
    ASSERT_EQ(acquisition.start({}), STATUS_OK) << acquisition.lastError();
    const FakeCamera other(ZQ_SIMULATED_CAMERA_XML, 0, "127.0.0.4", "GV02");
    m_proxy.switchTo("127.0.0.4");
    EXPECT_TRUE(eventually([this] { return m_camera->isLost(); }));
    ASSERT_TRUE(recovers());
    EXPECT_FALSE(acquisition.isRunning());
    EXPECT_EQ(m_repository->GetFeature("DeviceSerialNumber")->valueText, "GV02");
    EXPECT_EQ(acquisition.start({}), STATUS_OK) << acquisition.lastError();
}

TEST_F(Trouble, ARestartedCameraOfTheSameKindKeepsItsFeatures)
{
    open();
    m_fake->kill();
    m_fake->start();
    m_repository->Clear();
    EXPECT_EQ(m_repository->Load(), cameraLost); // it does not know this controller any more
    ASSERT_TRUE(recovers());
    EXPECT_TRUE(m_repository->GetFeature("Gamma"));
    EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK);
}

// At 100 ms a round trip nothing is lost, and a tree costs as many of them as it has registers.
TEST_F(Trouble, ASlowCameraIsNotALostOne)
{
    open();
    m_proxy.set(slow(100ms));
    EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK) << text(cameraSlow);
    EXPECT_EQ(m_device->SetEnumValue("GainSelector", "Red", 1), STATUS_OK);
    EXPECT_TRUE(m_repository->ReadFeature(m_repository->GetFeature("Gain")));
    for (int i = 0; i < 15; ++i) {
        long width = 0;
        EXPECT_EQ(m_device->GetIntegerValue("Width", &width), STATUS_OK);
        EXPECT_EQ(width, 64);
        EXPECT_FALSE(m_camera->isLost());
    }
}

TEST_F(Trouble, ATreeCostsOneRoundTripPerRegister)
{
    open();
    m_proxy.set(slow(5ms));
    for (const bool isBeside : { false, true }) {
        const RegisterPort::Recorder recorder(m_camera->impl().port());
        const std::uint64_t before = m_proxy.requests();
        ZQCameraDevice fresh(m_camera.get(), nullptr);
        if (isBeside) {
            EXPECT_EQ(fresh.GetRepository()->ReadAhead()->wait(20s), State::Done);
        }
        EXPECT_EQ(fresh.GetRepository()->Load(), STATUS_OK);
        for (const auto& item : fresh.GetRepository()->GetFeatureList()) {
            EXPECT_TRUE(fresh.GetRepository()->ReadFeature(item)) << item->name;
        }
        const std::set<Register> distinct(recorder.read.begin(), recorder.read.end());
        // Those that keep the control come on top, one a second.
        EXPECT_LE(m_proxy.requests() - before, distinct.size() * 11 / 10) << isBeside;
    }
}

TEST_F(Trouble, ReadsAheadBesideEditsAndWithProgress)
{
    open();
    m_proxy.set(slow(20ms));
    const auto ahead = m_repository->ReadAhead();
    EXPECT_EQ(ahead->poll(), State::Running);
    const std::size_t total = ahead->progress().total;
    EXPECT_GT(total, 50U);
    ASSERT_TRUE(eventually(
        [&] { return ahead->poll() != State::Running || ahead->progress().done > total / 2; }));
    EXPECT_EQ(ahead->poll(), State::Running);
    EXPECT_EQ(m_device->SetIntegerValue("Width", 72, 1), STATUS_OK); // and all is read again
    EXPECT_TRUE(m_repository->isLoaded());
    ASSERT_EQ(ahead->wait(20s), State::Done) << ahead->error();
    const std::uint64_t before = m_proxy.requests();
    m_proxy.set(blackHole());
    m_repository->Clear();
    EXPECT_EQ(m_repository->Load(), STATUS_OK);
    EXPECT_EQ(m_repository->GetFeature("Width")->valueText, "72");
    EXPECT_LE(m_proxy.requests() - before, 1U); // one that keeps the control
}

TEST_F(Trouble, WhatHasNoTimeLeftFollowsLater)
{
    open();
    m_proxy.set(slow(20ms));
    m_camera->limitWaiting(100ms);
    m_repository->Clear();
    EXPECT_EQ(m_repository->Load(), stillWorking);
    EXPECT_NE(text(stillWorking).find("registers read"), std::string::npos);
    EXPECT_FALSE(m_repository->isLoaded());
    EXPECT_EQ(m_repository->GetFeatureStates()["Width"], FEATURE_READ_FAILED);
    EXPECT_TRUE(eventually([this] {
        m_camera->limitWaiting(100ms);
        return m_repository->Load() == STATUS_OK;
    }));
    EXPECT_EQ(count(FEATURE_READ_FAILED), 0U);

    // Single features as well: they say that they are unread, and are read beside.
    m_camera->limitWaiting(1ms);
    forget();
    const auto gain = m_repository->GetFeature("Gain");
    m_repository->ReadFeature(gain); // as loaded
    EXPECT_FALSE(m_repository->ReadFeature(gain));
    EXPECT_EQ(m_repository->GetFeatureStates()["Gain"], FEATURE_READ_FAILED);
    EXPECT_TRUE(m_repository->HasOutstanding());
    EXPECT_FALSE(m_camera->isLost());
    const auto ahead = m_repository->ReadAhead(true);
    EXPECT_LT(ahead->progress().total, 12U);
    EXPECT_EQ(ahead->wait(20s), State::Done);
    m_repository->Clear();
    EXPECT_EQ(m_repository->Load(), STATUS_OK);
    EXPECT_FALSE(m_repository->HasOutstanding());
    EXPECT_EQ(m_repository->GetFeatureStates()["Gain"], FEATURE_AVAILABLE);
    EXPECT_TRUE(m_repository->ReadFeature(m_repository->GetFeature("Width")));
}

struct ReloadCase {
    const char* name;
    Faults faults;
    const char* words;
};

void PrintTo(const ReloadCase& test, std::ostream* stream)
{
    *stream << test.name;
}

class FailedReload : public Trouble, public testing::WithParamInterface<ReloadCase> { };

TEST_P(FailedReload, MarksEveryFeatureAndSaysWhy)
{
    open();
    const std::string value = m_repository->GetFeature("Width")->valueText;
    const std::size_t features = m_repository->GetFeatureList().size();
    m_proxy.set(GetParam().faults);
    m_repository->Clear();
    const int status = m_repository->Load();
    EXPECT_NE(status, STATUS_OK);
    EXPECT_NE(text(status).find(GetParam().words), std::string::npos) << text(status);
    EXPECT_FALSE(m_repository->isLoaded());
    EXPECT_GT(count(FEATURE_READ_FAILED), features * 3 / 4); // all but categories
    EXPECT_EQ(count(FEATURE_AVAILABLE), 0U);
    m_proxy.set({});
    ASSERT_TRUE(recovers());
    EXPECT_EQ(count(FEATURE_READ_FAILED), 0U);
    EXPECT_EQ(m_repository->GetFeature("Width")->valueText, value);
}

INSTANTIATE_TEST_SUITE_P(Named, FailedReload,
    testing::Values(ReloadCase { "BlackHole", blackHole(), "does not answer" },
        ReloadCase { "Busy", refusing(0x8007), "busy" },
        ReloadCase { "Denied", refusing(0x8006), "denied" }),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(Trouble, AFeatureThatAloneFailsKeepsItsValueAndIsMarked)
{
    open();
    RegisterPort& port = m_camera->impl().port();
    const std::string value = m_repository->GetFeature("Gamma")->valueText;
    const RegisterPort::Recorder recorder(port);
    m_repository->ReadFeature(m_repository->GetFeature("Gamma"));
    EXPECT_TRUE(m_repository->ReadFeature(m_repository->GetFeature("Gamma")));
    ASSERT_FALSE(recorder.read.empty());
    const std::uint64_t gamma = recorder.read.back().address;
    port.setFaultHook(
        [gamma](std::uint64_t address, std::size_t, bool) { return address == gamma; });
    // Reads together do not pass the hook: alone it shows what one register does.
    port.invalidate();
    EXPECT_FALSE(m_repository->ReadFeature(m_repository->GetFeature("Gamma")));
    EXPECT_EQ(m_repository->GetFeature("Gamma")->valueText, value);
    EXPECT_EQ(m_repository->UpdateFeatureStates(), STATUS_OK);
    EXPECT_EQ(m_repository->GetFeatureStates()["Gamma"], FEATURE_READ_FAILED);
    EXPECT_EQ(m_repository->GetFeatureStates()["Width"], FEATURE_AVAILABLE);
    port.setFaultHook({});
    EXPECT_TRUE(m_repository->ReadFeature(m_repository->GetFeature("Gamma")));
    EXPECT_EQ(m_repository->GetFeatureStates()["Gamma"], FEATURE_AVAILABLE);
}

TEST_F(Trouble, ACameraThatOnlyPausesComesBackByItself)
{
    open();
    m_fake->stall();
    long value = 0;
    EXPECT_EQ(m_device->GetIntegerValue("Width", &value), cameraLost);
    EXPECT_TRUE(m_camera->isLost());
    EXPECT_NE(text(cameraLost).find("does not answer"), std::string::npos);
    EXPECT_EQ(m_repository->UpdateFeatureStates(), cameraLost);
    m_fake->resume();
    EXPECT_TRUE(eventually([this] { return !m_camera->isLost(); }));
    // What was shown before is not confirmed by an answer to something else.
    EXPECT_EQ(m_repository->UpdateFeatureStates(), STATUS_OK);
    EXPECT_EQ(m_repository->GetFeatureStates()["Width"], FEATURE_READ_FAILED);
    EXPECT_TRUE(m_repository->ReadFeature(m_repository->GetFeature("Width")));
    EXPECT_EQ(m_repository->GetFeatureStates()["Width"], FEATURE_AVAILABLE);
    EXPECT_EQ(m_device->GetIntegerValue("Width", &value), STATUS_OK);
}

class Idle : public Trouble, public testing::WithParamInterface<CameraAccess> { };

TEST_P(Idle, ACameraThatIsGoneIsNoticedWithoutBeingAsked)
{
    open(GetParam());
    m_fake->kill();
    EXPECT_TRUE(eventually([this] { return m_camera->isLost(); }));
    m_fake->start();
    EXPECT_TRUE(recovers());
}

INSTANTIATE_TEST_SUITE_P(Access, Idle,
    testing::Values(CameraAccess::Control, CameraAccess::ReadOnly), [](const auto& test) {
        return test.param == CameraAccess::Control ? "Controlled" : "ReadOnly";
    });

TEST_F(Trouble, RepliesFromElsewhereAreNotBelieved)
{
    open();
    const std::string width = m_repository->GetFeature("Width")->valueText;
    Faults forged;
    forged.forgeReplies = 1.0;
    m_proxy.set(forged);
    m_repository->Clear();
    ASSERT_EQ(m_repository->Load(), STATUS_OK);
    EXPECT_EQ(m_repository->GetFeature("Width")->valueText, width);
    EXPECT_EQ(count(FEATURE_READ_FAILED), 0U);
}

TEST_F(Trouble, LosingTheCameraEndsTheAcquisition)
{
    open();
    ASSERT_EQ(m_device->ExecuteCommand("AcquisitionStart", 1), STATUS_OK);
    ASSERT_TRUE(m_repository->ReadFeature(m_repository->GetFeature("Width")));
    ASSERT_EQ(m_repository->GetFeatureStates()["Width"], FEATURE_LOCKED);
    forget();
    m_proxy.set(blackHole());
    long value = 0;
    EXPECT_NE(m_device->GetIntegerValue("Width", &value), STATUS_OK);
    EXPECT_EQ(m_device->IsGrabbing(), 0);
    ASSERT_TRUE(eventually([this] { return m_camera->impl().port().backend().isGivenUp(); }));
    m_proxy.set({});
    ASSERT_TRUE(recovers());
    EXPECT_EQ(m_repository->GetFeatureStates()["Width"], FEATURE_AVAILABLE);
    EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK);
    EXPECT_EQ(m_device->IsGrabbing(), 0);
}

TEST_F(Trouble, ADeviceThatEndsStopsWhatItStarted)
{
    open();
    ASSERT_EQ(m_device->ExecuteCommand("AcquisitionStart", 1), STATUS_OK);
    m_device = std::make_unique<ZQCameraDevice>(m_camera.get(), nullptr);
    EXPECT_EQ(m_device->IsGrabbing(), 0);
    EXPECT_EQ(m_device->SetIntegerValue("Width", 64, 1), STATUS_OK);
}

} // namespace
