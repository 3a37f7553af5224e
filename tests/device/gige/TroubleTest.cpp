// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "GigeFixture.h"
#include "base/StatusCodes.h"

#include "camera/Camera.h"

#include "featurebrowser/ZQAcquisition.h"

#include <algorithm>
#include <atomic>
#include <set>

using namespace featurebrowser;
using namespace zqcameralib;
using namespace std::chrono_literals;

namespace {

using State = ZQCameraTask::State;

class Trouble : public GigeFixture {
protected:
    void open(CameraAccess access = CameraAccess::Control)
    {
        GigeFixture::open(FaultProxy::address, access);
        forget();
    }

    /// Waits until what was read before has to be read anew.
    static void forget() { std::this_thread::sleep_for(120ms); }

    /// Afresh from the camera, unless it was read a moment ago.
    int reload()
    {
        m_repository->Clear();
        return m_repository->Load();
    }
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

TEST_F(Trouble, OpensBesideTheCallerAndDoesNotMeetOpeningsThatWereGivenUp)
{
    const char* const reading = "Reading the camera's description";
    m_proxy.set(Faults::slow(4ms)); // long enough that it is seen
    for (int i = 0; i < 2; ++i) {
        const auto opening = ZQCamera::OpenBeside(FaultProxy::address, CameraAccess::Control);
        ASSERT_TRUE(eventually([&] { return opening->progress().step == reading; }));
        opening->cancel();
        EXPECT_EQ(opening->poll(), State::Cancelled);
        EXPECT_FALSE(opening->takeCamera());
    }
    std::string error;
    EXPECT_TRUE(ZQCamera::OpenSimulated(error)) << error;
    const auto opening = ZQCamera::OpenBeside(FaultProxy::address, CameraAccess::Control);
    EXPECT_TRUE(eventually([&] { return opening->progress().step == reading; }));
    ASSERT_EQ(opening->wait(20s), State::Done) << opening->error();
    const std::unique_ptr<ZQCamera> camera = opening->takeCamera();
    ASSERT_TRUE(camera);
    EXPECT_FALSE(opening->takeCamera());
    EXPECT_EQ(camera->model(), "AreaScan2K");
    EXPECT_FALSE(camera->isReadOnly());
}

TEST_F(Trouble, ADeadAddressIsToldInWords)
{
    std::string error;
    EXPECT_FALSE(ZQCamera::Open("127.0.0.9", CameraAccess::Control, error));
    EXPECT_EQ(error, "127.0.0.9: no camera answers there; check power, cable and the address");
    m_proxy.set(Faults::requestsLost());
    const auto opening = ZQCamera::OpenBeside(FaultProxy::address, CameraAccess::Control);
    EXPECT_EQ(opening->wait(10s), State::Failed);
    EXPECT_NE(opening->error().find("no camera answers there"), std::string::npos);
    Faults pending;
    pending.pendingForever = true;
    m_proxy.set(pending);
    EXPECT_FALSE(ZQCamera::Open(FaultProxy::address, CameraAccess::Control, error));
    EXPECT_NE(error.find("asks to wait"), std::string::npos) << error;
}

TEST_F(Trouble, ACameraThatWasRestartedOrExchangedForAnotherShowsItsOwnFeatures)
{
    open();
    m_fake->restart();
    EXPECT_EQ(reload(), cameraLost); // it does not know this controller any more
    ASSERT_TRUE(recovers());
    ASSERT_TRUE(m_repository->GetFeature("Gamma"));
    EXPECT_EQ(set("Width", 96), STATUS_OK);

    const std::shared_ptr<FeatureItem> width = m_repository->GetFeature("Width");
    const std::unique_ptr<FakeCamera> exchanged = otherModel();
    m_fake->kill();
    EXPECT_NE(get("Width"), STATUS_OK);
    m_proxy.switchTo("127.0.0.4");
    ASSERT_TRUE(recovers());
    EXPECT_EQ(m_camera->model(), "Another");
    EXPECT_TRUE(m_repository->isLoaded());
    EXPECT_FALSE(m_repository->GetFeature("Gamma"));
    EXPECT_FALSE(m_repository->ReadFeature(width)); // a record of the camera that is gone
    EXPECT_EQ(set("Width", 64), STATUS_OK);
}

TEST_F(Trouble, AStreamDoesNotKeepTheControlOfACameraThatWasExchanged)
{
    open();
    ZQAcquisition acquisition(m_camera.get(), m_device.get());
    const auto starts
        = [&] { return eventually([&] { return acquisition.start({}) == STATUS_OK; }); };
    ASSERT_TRUE(starts()) << acquisition.lastError();
    const FakeCamera other(ZQ_SIMULATED_CAMERA_XML, 0, "127.0.0.4", "GV02");
    m_proxy.switchTo("127.0.0.4");
    EXPECT_TRUE(eventually([this] { return m_camera->isLost(); }));
    ASSERT_TRUE(recovers());
    EXPECT_TRUE(eventually([&] { return !acquisition.isRunning(); })) << "its thread notices";
    EXPECT_EQ(value("DeviceSerialNumber"), "GV02");
    EXPECT_TRUE(starts()) << acquisition.lastError();
}

// At 100 ms a round trip nothing is lost, and a tree costs as many of them as it has registers.
TEST_F(Trouble, ASlowCameraIsNotALostOne)
{
    open();
    m_proxy.set(Faults::slow(50ms));
    EXPECT_EQ(set("Width", 64), STATUS_OK) << errorText(cameraSlow);
    EXPECT_EQ(m_device->SetEnumValue("GainSelector", "Red", 1), STATUS_OK);
    EXPECT_NE(read("Gain"), failed);
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
    m_proxy.set(Faults::slow(2500us));
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
    m_proxy.set(Faults::slow(10ms));
    const auto ahead = m_repository->ReadAhead();
    EXPECT_EQ(ahead->poll(), State::Running);
    const std::size_t total = ahead->progress().total;
    EXPECT_GT(total, 50U);
    ASSERT_TRUE(eventually(
        [&] { return ahead->poll() != State::Running || ahead->progress().done > total / 2; }));
    EXPECT_EQ(ahead->poll(), State::Running);
    EXPECT_EQ(set("Width", 72), STATUS_OK); // and all is read again
    EXPECT_TRUE(m_repository->isLoaded());
    ASSERT_EQ(ahead->wait(20s), State::Done) << ahead->error();
    const std::uint64_t before = m_proxy.requests();
    m_proxy.set(Faults::requestsLost());
    EXPECT_EQ(reload(), STATUS_OK);
    EXPECT_EQ(value("Width"), "72");
    EXPECT_LE(m_proxy.requests() - before, 1U); // one that keeps the control
}

TEST_F(Trouble, WhatHasNoTimeLeftFollowsLater)
{
    open();
    m_proxy.set(Faults::slow(10ms));
    m_camera->limitWaiting(100ms);
    EXPECT_EQ(reload(), stillWorking);
    EXPECT_NE(errorText(stillWorking).find("registers read"), std::string::npos);
    EXPECT_FALSE(m_repository->isLoaded());
    EXPECT_EQ(state("Width"), FEATURE_READ_FAILED);
    EXPECT_TRUE(eventually([this] {
        m_camera->limitWaiting(100ms);
        return m_repository->Load() == STATUS_OK;
    }));
    EXPECT_EQ(count(FEATURE_READ_FAILED), 0U);
    EXPECT_FALSE(m_camera->isLost());
}

TEST_F(Trouble, AReloadThatFailsMarksEveryFeatureAndSaysWhy)
{
    open();
    const std::string width = value("Width");
    const std::size_t features = m_repository->GetFeatureList().size();
    const std::vector<std::pair<Faults, const char*>> cases {
        { Faults::requestsLost(), "does not answer" },
        { Faults::refusing(0x8007), "busy" },
        { Faults::refusing(0x8006), "denied" },
    };
    for (const auto& [faults, words] : cases) {
        SCOPED_TRACE(words);
        forget();
        m_proxy.set(faults);
        const int status = reload();
        EXPECT_NE(status, STATUS_OK);
        EXPECT_NE(errorText(status).find(words), std::string::npos) << errorText(status);
        EXPECT_FALSE(m_repository->isLoaded());
        EXPECT_GT(count(FEATURE_READ_FAILED), features * 3 / 4); // all but categories
        EXPECT_EQ(count(FEATURE_AVAILABLE), 0U);
        m_proxy.set({});
        ASSERT_TRUE(recovers());
        EXPECT_EQ(count(FEATURE_READ_FAILED), 0U);
        EXPECT_EQ(value("Width"), width);
    }
}

TEST_F(Trouble, ACameraThatOnlyPausesComesBackByItself)
{
    open();
    m_fake->stall();
    EXPECT_EQ(get("Width"), cameraLost);
    EXPECT_TRUE(m_camera->isLost());
    EXPECT_NE(errorText(cameraLost).find("does not answer"), std::string::npos);
    EXPECT_EQ(m_repository->UpdateFeatureStates(), cameraLost);
    m_fake->resume();
    EXPECT_TRUE(eventually([this] { return !m_camera->isLost(); }));
    // What was shown before is not confirmed by an answer to something else.
    EXPECT_EQ(m_repository->UpdateFeatureStates(), STATUS_OK);
    EXPECT_EQ(state("Width"), FEATURE_READ_FAILED);
    EXPECT_NE(read("Width"), failed);
    EXPECT_EQ(state("Width"), FEATURE_AVAILABLE);
    EXPECT_EQ(get("Width"), STATUS_OK);
}

TEST_F(Trouble, ACameraThatIsGoneIsNoticedWithoutBeingAsked)
{
    for (const CameraAccess access : { CameraAccess::Control, CameraAccess::ReadOnly }) {
        SCOPED_TRACE(access == CameraAccess::Control ? "controlled" : "for reading only");
        open(access);
        m_fake->kill();
        EXPECT_TRUE(eventually([this] { return m_camera->isLost(); }));
        m_fake->start();
        EXPECT_TRUE(recovers());
    }
}

TEST_F(Trouble, RepliesFromElsewhereAreNotBelieved)
{
    open();
    const std::string width = value("Width");
    Faults forged;
    forged.forgeReplies = 1.0;
    m_proxy.set(forged);
    ASSERT_EQ(reload(), STATUS_OK);
    EXPECT_EQ(value("Width"), width);
    EXPECT_EQ(count(FEATURE_READ_FAILED), 0U);
}

TEST_F(Trouble, AnAcquisitionEndsWithTheCameraOrTheDeviceThatStartedIt)
{
    open();
    ASSERT_EQ(m_device->ExecuteCommand("AcquisitionStart", 1), STATUS_OK);
    ASSERT_NE(read("Width"), failed);
    ASSERT_EQ(state("Width"), FEATURE_LOCKED);
    forget();
    m_proxy.set(Faults::requestsLost());
    EXPECT_NE(get("Width"), STATUS_OK);
    EXPECT_EQ(m_device->IsGrabbing(), 0);
    ASSERT_TRUE(eventually([this] { return m_camera->impl().port().backend().isGivenUp(); }));
    m_proxy.set({});
    ASSERT_TRUE(recovers());
    EXPECT_EQ(state("Width"), FEATURE_AVAILABLE);
    EXPECT_EQ(set("Width", 64), STATUS_OK);
    EXPECT_EQ(m_device->IsGrabbing(), 0);

    ASSERT_EQ(m_device->ExecuteCommand("AcquisitionStart", 1), STATUS_OK);
    m_device = std::make_unique<ZQCameraDevice>(m_camera.get(), nullptr);
    EXPECT_EQ(m_device->IsGrabbing(), 0);
    EXPECT_EQ(set("Width", 72), STATUS_OK);
}

} // namespace
