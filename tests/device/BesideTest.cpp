// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"
#include "base/StatusCodes.h"
#include "memory/MemoryBackend.h"
#include "memory/RegisterValues.h"
#include "simulation/SimulatedCamera.h"

#include "featurebrowser/ZQAcquisition.h"

#include <optional>

using namespace featurebrowser;
using namespace zqcameralib;
using State = ZQCameraTask::State;

namespace {

/// A camera that answers one register at a time, and not at once, when it is read beside the
/// caller.
class Tardy : public MemoryBackend {
public:
    using MemoryBackend::MemoryBackend;

    class OneByOne : public Reading {
    public:
        OneByOne(Tardy& camera, Requests requests)
            : m_camera(camera)
            , m_requests(std::move(requests))
        {
            ++m_camera.readings;
        }
        ~OneByOne() override { --m_camera.readings; }
        Requests takeFinished() override
        {
            if (!std::exchange(m_begun, true) || m_requests.empty()) {
                return {};
            }
            Requests finished { m_requests.front() };
            m_requests.erase(m_requests.begin());
            Request& one = finished.front();
            one.status = m_camera.read(one.place, one.bytes.data(), one.kind);
            return finished;
        }

    private:
        Tardy& m_camera;
        Requests m_requests;
        bool m_begun = false;
    };

    bool prefersBatches() const override { return true; }
    bool isReadOnly() const override { return readOnly; }
    bool isLimited() const override { return hasNoTime; }
    bool isTimeOver() const override { return hasNoTime; }
    bool isLost() override { return lost; }
    bool isGivenUp() override { return lost; }
    bool isReconnecting() override { return tries > 0; }
    void beginCall() override { ++calls; }
    void endCall() override { --calls; }
    Status loss() const override { return { cameraLost, "gone" }; }
    Status reconnect(bool) override
    {
        lost = lost && tries-- != 1;
        return lost ? loss() : Status();
    }
    std::uint64_t cameraNumber() const override { return number; }
    std::string description() const override { return text; }
    Status read(const Register& place, std::uint8_t* buffer, AccessKind kind) override
    {
        ++reads;
        return slow == place.address ? Status(cameraSlow, "slow")
                                     : MemoryBackend::read(place, buffer, kind);
    }
    std::unique_ptr<Reading> readBeside(Requests requests) override
    {
        return std::make_unique<OneByOne>(*this, std::move(requests));
    }

    bool hasNoTime = false;
    bool readOnly = false;
    bool lost = false;
    int tries = 0; ///< until it is found
    std::uint64_t number = 0;
    std::string text;
    std::optional<std::uint64_t> slow;
    int reads = 0;
    int readings = 0; ///< beside the caller, that have not ended
    int calls = 0; ///< that are not over
};

/// A decides about Maybe, B where Moved is.
class Beside : public testing::Test, protected CameraUser {
protected:
    static Result<std::unique_ptr<ZQCamera::Impl>> open()
    {
        auto backend = std::make_unique<Tardy>(nullptr);
        for (const auto& [address, value] :
            { std::pair(0U, 1U), { 4U, 16U }, { 8U, 3U }, { 116U, 7U } }) {
            writeWord(backend->memory(), address, value);
        }
        return openOver(TestCamera::description("A B Maybe Moved",
                            intReg("A", 0) + intReg("B", 4)
                                + intReg("Maybe", 8, "<pIsAvailable>A</pIsAvailable>")
                                + intReg("Moved", 100, "<pAddress>B</pAddress>")),
            std::move(backend));
    }
    std::string values()
    {
        std::string text;
        for (const auto& item : m_repository.GetFeatureList()) {
            text += item->valueText + " ";
        }
        return text;
    }

    ZQCameraDevice& used() override { return m_device; }

    std::unique_ptr<ZQCamera> m_camera = std::make_unique<ZQCamera>(std::move(open().value()));
    ZQCameraDevice m_device { m_camera.get(), nullptr };
    ZQCameraRepository& m_repository = *m_device.GetRepository();
    Tardy& m_tardy = static_cast<Tardy&>(m_camera->impl().port().backend());
};

std::string polled(ZQCameraTask& task)
{
    std::string text;
    for (State state = State::Running; state == State::Running;) {
        state = task.poll();
        const ZQCameraTask::Progress progress = task.progress();
        text += std::to_string(progress.done) + "/" + std::to_string(progress.total) + " ";
    }
    return text;
}

TEST_F(Beside, ReadsEachRegisterOnceAndTheLoadTakesThem)
{
    const auto first = m_repository.ReadAhead();
    const auto task = m_repository.ReadAhead();
    EXPECT_EQ(first->poll(), State::Done); // another has begun
    EXPECT_EQ(polled(*task), "0/2 1/2 2/3 3/4 4/4 ");
    EXPECT_EQ(task->poll(), State::Done);
    EXPECT_EQ(task->progress().step, "Reading the features");
    EXPECT_EQ(m_repository.Load(), STATUS_OK);
    EXPECT_EQ(values(), " 1 16 3 7 ");
    EXPECT_EQ(m_tardy.reads, 4);
    EXPECT_EQ(m_repository.Load(), STATUS_OK); // for itself
    EXPECT_EQ(m_tardy.reads, 8);
}

TEST_F(Beside, AWriteHasEverythingReadAgainAndACancelTheLoad)
{
    const auto task = m_repository.ReadAhead();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(task->poll(), State::Running);
    }
    set("B", 20, 0);
    EXPECT_EQ(m_tardy.reads, 2);
    set("B", 20);
    EXPECT_EQ(task->wait(std::chrono::seconds(10)), State::Done);
    const int reads = m_tardy.reads;
    EXPECT_EQ(m_repository.Load(), STATUS_OK);
    EXPECT_EQ(m_tardy.reads, reads);
    EXPECT_EQ(values(), " 1 20 3 0 ");

    const auto other = m_repository.ReadAhead();
    other->poll();
    other->cancel();
    EXPECT_EQ(other->poll(), State::Cancelled);
    EXPECT_EQ(m_tardy.readings, 0);
    EXPECT_EQ(m_repository.Load(), STATUS_OK);
    EXPECT_EQ(m_tardy.reads, reads + 4);
}

TEST_F(Beside, WhatIsOpenedForReadingOnlyIsLocked)
{
    m_tardy.readOnly = true;
    EXPECT_EQ(m_repository.Load(), STATUS_OK);
    EXPECT_EQ(state("A"), FEATURE_LOCKED);
    EXPECT_EQ(state("Main"), FEATURE_AVAILABLE);
}

TEST_F(Beside, ALoadWithoutTimeGoesOnWithTheNext)
{
    m_tardy.hasNoTime = true;
    for (const char* done : { "0 of 2", "1 of 2", "2 of 3", "3 of 4" }) {
        EXPECT_EQ(m_repository.Load(), stillWorking);
        EXPECT_EQ(m_camera->impl().lastError().text(),
            std::string("the camera is slow: ") + done + " registers read, the rest follows");
        EXPECT_FALSE(m_repository.isLoaded());
        EXPECT_EQ(state("A"), FEATURE_READ_FAILED);
    }
    EXPECT_EQ(m_repository.Load(), STATUS_OK);
    EXPECT_EQ(values(), " 1 16 3 7 ");
    writeWord(m_tardy.memory(), 0, 2);
    while (m_repository.Load() == stillWorking) { }
    EXPECT_EQ(values(), " 2 16 3 7 "); // all of it again
    EXPECT_EQ(m_tardy.calls, 0);
}

TEST_F(Beside, WhatThereWasNoTimeForIsReadAlone)
{
    ASSERT_EQ(m_repository.Load(), STATUS_OK);
    EXPECT_EQ(m_repository.UpdateFeatureStates(), STATUS_OK);
    EXPECT_FALSE(m_repository.HasOutstanding());
    m_tardy.slow = 0;
    m_camera->impl().port().invalidate();
    EXPECT_EQ(m_repository.UpdateFeatureStates(), cameraSlow);
    EXPECT_TRUE(m_repository.HasOutstanding());
    m_repository.Clear();
    m_repository.Clear(); // what was known is kept
    m_tardy.slow = 4;
    EXPECT_EQ(m_repository.Load(), STATUS_OK);
    EXPECT_EQ(m_device.GetLastError(), cameraSlow);
    EXPECT_TRUE(m_repository.HasOutstanding());
    EXPECT_EQ(state("Moved"), FEATURE_READ_FAILED);
    EXPECT_EQ(values(), " 1 16 3 7 "); // as last known
    m_tardy.slow.reset();
    writeWord(m_tardy.memory(), 0, 2);
    writeWord(m_tardy.memory(), 116, 8);
    m_tardy.reads = 0;
    EXPECT_EQ(m_repository.ReadAhead(true)->wait(std::chrono::seconds(10)), State::Done);
    EXPECT_EQ(m_tardy.reads, 2);
    EXPECT_EQ(m_repository.Load(), STATUS_OK);
    EXPECT_EQ(m_tardy.reads, 2);
    EXPECT_EQ(values(), " 1 16 3 8 ");
    EXPECT_EQ(state("A"), FEATURE_AVAILABLE);
    EXPECT_FALSE(m_repository.HasOutstanding());
    EXPECT_EQ(state("Moved"), FEATURE_AVAILABLE);
}

TEST_F(Beside, ALostCameraIsToldAndAnotherOneFollowed)
{
    ASSERT_EQ(m_repository.Load(), STATUS_OK);
    m_tardy.lost = true;
    EXPECT_EQ(m_repository.UpdateFeatureStates(), cameraLost);
    EXPECT_EQ(read("A"), failed);
    EXPECT_EQ(value("A"), "1"); // as last known
    EXPECT_EQ(m_repository.Load(), cameraLost);
    EXPECT_FALSE(m_repository.isLoaded());
    EXPECT_EQ(state("A"), FEATURE_READ_FAILED);
    EXPECT_EQ(m_repository.GetFeatureStates().count("Main"), 0U);
    EXPECT_EQ(set("A", 1), cameraLost);
    for (const auto& vain : { m_repository.ReadAhead(), m_device.ReconnectBeside() }) {
        EXPECT_EQ(vain->poll(), State::Failed);
        EXPECT_EQ(vain->error(), "gone");
    }

    m_tardy.tries = 2;
    m_tardy.number = 1;
    m_tardy.text = TestCamera::description("Z", intReg("Z", 8));
    const auto task = m_device.ReconnectBeside();
    EXPECT_EQ(task->poll(), State::Running);
    EXPECT_EQ(task->progress().step, "Connecting");
    EXPECT_EQ(task->progress().done + task->progress().total, 0U);
    EXPECT_EQ(task->wait(std::chrono::seconds(10)), State::Done);
    EXPECT_EQ(task->progress().step, "Reading the features");
    EXPECT_EQ(m_repository.Load(), STATUS_OK);
    EXPECT_EQ(values(), " 3 ");
    const auto last = m_repository.GetFeature("Z");
    for (const auto& isForgotten : std::vector<std::function<bool()>> {
             [&] { return !m_repository.isLoaded(); }, [&] { return values().empty(); },
             [&] { return m_repository.GetFeature("Z") == nullptr; },
             [&] { return m_repository.GetInvalidatedFeatures("Y").empty(); },
             [&] { return m_repository.UpdateFeatureStates() == notLoaded; },
             [&] { return !m_repository.ReadFeature(last); } }) {
        std::string error;
        ++m_tardy.number;
        EXPECT_TRUE(m_camera->reconnect(error)) << error;
        EXPECT_TRUE(isForgotten()) << m_tardy.number;
        EXPECT_EQ(m_repository.Load(), STATUS_OK);
    }
    const auto again = m_device.ReconnectBeside();
    EXPECT_EQ(again->poll(), State::Running);
    m_tardy.lost = true;
    EXPECT_EQ(again->poll(), State::Failed);
    EXPECT_EQ(again->error(), "gone");
}

TEST(BesideImages, OfACameraThatComesBackAreEnded)
{
    TestCamera camera(
        openOver(TestCamera::description("AcquisitionStart AcquisitionStop TLParamsLocked",
                     intReg("R", 0) + command("AcquisitionStart", "R", "1")
                         + command("AcquisitionStop", "R", "2")
                         + node("Integer", "TLParamsLocked", "<Value>0</Value>")),
            std::make_unique<Tardy>(nullptr)));
    auto& tardy = static_cast<Tardy&>(camera.port.backend());
    EXPECT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 0), STATUS_OK);
    for (const int held : { 2, 7 }) { // only once
        tardy.lost = true;
        tardy.tries = 1;
        EXPECT_EQ(camera.device.ReconnectBeside()->wait(std::chrono::seconds(10)), State::Done);
        EXPECT_EQ(camera.registerAt(0), held);
        EXPECT_EQ(camera.read("TLParamsLocked"), "0");
        writeWord(tardy.memory(), 0, 7);
    }
}

TEST_F(Beside, ImagesThatCannotStartTellWhy)
{
    ZQAcquisition acquisition(m_camera.get(), &m_device);
    const auto task = acquisition.StartBeside(nullptr);
    EXPECT_EQ(task->progress().step, "Starting the images");
    EXPECT_EQ(task->wait(std::chrono::seconds(10)), State::Failed);
    EXPECT_EQ(task->error(), "no image can be acquired: the camera tells no Width");
    const auto other = acquisition.StartBeside(nullptr);
    other->cancel();
    EXPECT_EQ(other->poll(), State::Cancelled);
}

TEST(BesideImages, StartWithoutWaitingForWhatWasReadAhead)
{
    TestCamera camera(openOver(std::string(simulatedCameraDescription()),
        std::make_unique<Tardy>(makeSimulatedCameraBehaviour())));
    auto& tardy = static_cast<Tardy&>(camera.port.backend());
    ZQAcquisition acquisition(camera.camera.get(), &camera.device);
    tardy.reads = 0;
    const auto task = acquisition.StartBeside(nullptr);
    EXPECT_EQ(task->poll(), State::Running);
    EXPECT_EQ(tardy.reads, 0);
    EXPECT_EQ(task->wait(std::chrono::seconds(10)), State::Done);
    EXPECT_LT(tardy.reads, 60); // the image's features only
    EXPECT_TRUE(acquisition.isRunning());
    task->cancel(); // too late
    EXPECT_EQ(task->poll(), State::Done);
}

} // namespace
