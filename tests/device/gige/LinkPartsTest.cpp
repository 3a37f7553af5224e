// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "FakeCamera.h"
#include "FaultProxy.h"
#include "base/AravisVersions.h"
#include "base/StatusCodes.h"
#include "link/CameraLink.h"
#include "link/RegisterBatch.h"

#include <gtest/gtest.h>

#include <future>
#include <mutex>

using namespace zqcameralib;
using namespace std::chrono_literals;

namespace {

constexpr Register width { 0x100, 4 };
constexpr Register height { 0x104, 4 };
constexpr std::uint32_t privilege = 0xA00;
const CameraPlace place { "GigEVision", FaultProxy::address };

const char* const slowCamera = "the camera answers too slowly";
const char* const nothingSent = "the camera answers too slowly; nothing was sent";
const char* const controlIsLost = "control of the camera was lost; reconnect to take it back";
const char* const unanswered = "the camera does not answer any more; reconnect to it";

class Links : public testing::Test {
protected:
    void SetUp() override { open(CameraAccess::Control); }
    void open(CameraAccess access)
    {
        m_link = nullptr; // leaves its control first
        Result<std::unique_ptr<CameraLink>> opened = CameraLink::open(place, access);
        ASSERT_TRUE(opened.isOk()) << opened.status().text();
        m_link = std::move(opened.value());
    }
    Status write(std::uint8_t value)
    {
        const std::array<std::uint8_t, 4> bytes { 0, 0, 0, value };
        return m_link->write(width, bytes.data(), AccessKind::Register);
    }
    int read()
    {
        std::array<std::uint8_t, 4> bytes {};
        m_status = m_link->read(width, bytes.data(), AccessKind::Register);
        return m_status.isOk() ? bytes[2] << 8 | bytes[3] : -1;
    }
    static void expect(const Status& status, int code, const std::string& words)
    {
        EXPECT_EQ(status.code(), code);
        EXPECT_EQ(status.text(), FaultProxy::address + (": " + words));
    }
    /// Once it was given up.
    Status reconnect(const Faults& faults)
    {
        m_link->giveUp("lost");
        m_proxy.set(faults);
        Status status = reconnect();
        m_proxy.set({});
        return status;
    }
    Status reconnect()
    {
        Status status = m_link->reconnect(true);
        for (int i = 0; i < 20 && m_link->isReconnecting(); ++i) {
            status = m_link->reconnect(true);
        }
        return status;
    }

    FakeCamera m_fake { ZQ_SIMULATED_CAMERA_XML };
    FaultProxy m_proxy { 3 };
    std::unique_ptr<CameraLink> m_link;
    Status m_status;
};

TEST_F(Links, SayWhatBecameOfWhatThereWasNoTimeFor)
{
    ASSERT_TRUE(write(64).isOk());
    // The thread is busy: nothing begins.
    std::mutex busy;
    busy.lock();
    m_link->post([&busy] { const std::lock_guard<std::mutex> lock(busy); });
    m_link->limitWaiting(20ms);
    expect(write(72), notSent, nothingSent);
    EXPECT_EQ(read(), -1);
    expect(m_status, cameraSlow, slowCamera);
    EXPECT_TRUE(m_link->isTimeOver());
    busy.unlock();
    expect(write(72), notSent, nothingSent); // not even tried
    m_link->limitWaiting(0ms);
    EXPECT_FALSE(m_link->isLimited());
    EXPECT_EQ(read(), 64);

    m_proxy.set(Faults::repliesLost());
    m_link->limitWaiting(600ms);
    expect(write(80), cameraSlow,
        "the camera answers too slowly; it has not confirmed what was sent, and may still take it");
    m_proxy.set({});
    m_link->limitWaiting(0ms);
    EXPECT_EQ(read(), 80);
}

TEST_F(Links, LimitOperationsThatNestOnlyTillTheLastOfThemEnds)
{
    m_link->beginCall();
    m_link->beginCall();
    m_link->endCall();
    std::this_thread::sleep_for(CameraLink::callLimit);
    expect(write(72), notSent, nothingSent);
    m_link->endCall();
    EXPECT_FALSE(m_link->isLimited());
    EXPECT_TRUE(write(72).isOk());
}

TEST_F(Links, ForReadingOnlyWriteNothing)
{
    open(CameraAccess::ReadOnly);
    EXPECT_TRUE(m_link->isReadOnly());
    const int before = read();
    expect(write(72), accessDenied, "opened for reading only");
    EXPECT_EQ(read(), before);
    const std::unique_ptr<CameraLink> watching = std::move(m_link);
    open(CameraAccess::Control); // which it has left to others
    EXPECT_TRUE(write(72).isOk());
    EXPECT_FALSE(watching->isLost());
}

TEST_F(Links, TakeARefusedWriteForLostControl)
{
    m_proxy.set(Faults::refusing(0x8006));
    expect(write(72), cameraLost, controlIsLost);
    EXPECT_TRUE(m_link->isGivenUp());
    EXPECT_EQ(read(), -1);
    expect(m_status, cameraLost, controlIsLost);
    m_proxy.set({});
    const std::uint64_t connection = m_link->connectionNumber();
    EXPECT_TRUE(reconnect().isOk());
    EXPECT_EQ(m_link->connectionNumber(), connection + 1);
    EXPECT_TRUE(write(72).isOk());
    m_proxy.set(Faults::refusing(0x8004));
    EXPECT_EQ(write(80).code(), deviceErrorBase + ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT);
    EXPECT_FALSE(m_link->isLost());
}

TEST_F(Links, SayWhyTheCameraCannotBeHadBack)
{
    open(CameraAccess::ControlOrReadOnly);
    const std::uint64_t camera = m_link->cameraNumber();
    expect(reconnect(Faults::refusing(0x8004, privilege)),
        deviceErrorBase + ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT,
        "the camera does not let the register be written");
    EXPECT_TRUE(m_link->isLost());
    expect(m_link->loss(), cameraLost, "lost");
    EXPECT_TRUE(reconnect(Faults::refusing(0x8006, privilege)).isOk());
    EXPECT_TRUE(m_link->isReadOnly());
    expect(write(72), accessDenied, "opened for reading only");
    EXPECT_TRUE(reconnect({}).isOk());
    EXPECT_FALSE(m_link->isReadOnly());
    EXPECT_EQ(m_link->cameraNumber(), camera);

    open(CameraAccess::Control);
    expect(reconnect(Faults::refusing(0x8006, privilege)), accessDenied,
        "another application controls the camera");
    EXPECT_TRUE(m_link->isLost());
    EXPECT_TRUE(reconnect().isOk());

    open(CameraAccess::ReadOnly);
    EXPECT_TRUE(reconnect({}).isOk());
    expect(write(72), accessDenied, "opened for reading only");
    expect(
        reconnect(Faults::refusing(0x8007)), notReadable, "the camera does not let itself be read");
}

TEST_F(Links, TellACameraThatIsSilentFromOneThatWasGivenUp)
{
    m_proxy.set(Faults::repliesLost());
    m_link->limitWaiting(50ms);
    EXPECT_EQ(read(), -1);
    EXPECT_TRUE(eventually([this] { return m_link->isLost(); }));
    EXPECT_FALSE(m_link->isGivenUp());
    expect(m_link->loss(), cameraLost, "the camera does not answer");
    expect(m_link->reconnect(false), cameraLost, "the camera does not answer yet");
    EXPECT_TRUE(m_link->isReconnecting());
    EXPECT_TRUE(m_link->isGivenUp());
    expect(m_link->loss(), cameraLost, unanswered);
    m_proxy.set({});
    m_link->limitWaiting(0ms);
    EXPECT_TRUE(eventually([this] { return m_link->reconnect(true).isOk(); }));
    EXPECT_GE(read(), 0);
    EXPECT_FALSE(m_link->isReconnecting());
}

TEST_F(Links, SayWhatTheirSessionHasLearnt)
{
    using Health = CameraSession::Health;
    const std::vector<std::pair<std::atomic<bool> Health::*, const char*>> reasons {
        { &Health::controlLost, controlIsLost },
        { &Health::exchanged, "another camera is there now; reconnect to it" },
        { &Health::unanswered, unanswered },
    };
    for (const auto& [reason, words] : reasons) {
        EXPECT_FALSE(m_link->sessionHealth()->isOver());
        (*m_link->sessionHealth()).*reason = true;
        EXPECT_TRUE(m_link->sessionHealth()->isOver());
        EXPECT_TRUE(m_link->isGivenUp());
        EXPECT_TRUE(m_link->health()->lost);
        expect(m_link->loss(), cameraLost, words);
        m_link->giveUp("left");
        EXPECT_TRUE(m_link->isGivenUp());
        expect(m_link->loss(), cameraLost, "left");
        EXPECT_TRUE(reconnect().isOk());
        EXPECT_FALSE(m_link->health()->lost);
    }
    open(CameraAccess::ReadOnly);
    m_link->sessionHealth()->controlLost = true;
    EXPECT_FALSE(m_link->isLost()); // has none
}

RegisterBackend::Requests requests()
{
    return { { width, AccessKind::Register }, { height, AccessKind::Memory },
        { width, AccessKind::Memory } };
}

/// For each: r it was read, f it failed, - it was not tried.
std::string outcome(const RegisterBackend::Requests& all)
{
    std::string text;
    for (const RegisterBackend::Request& one : all) {
        text += one.isDone ? 'r' : one.status.isOk() ? '-' : 'f';
    }
    return text;
}

TEST_F(Links, ReadTogetherWhatThereIsTimeFor)
{
    const auto readTogether = [this] {
        RegisterBackend::Requests all = requests();
        m_link->readTogether(all);
        return outcome(all);
    };
    m_proxy.set(Faults::refusing(0x8007));
    EXPECT_EQ(readTogether(), "f--");
    m_proxy.set(Faults::slow(30ms)); // more than a look at whether it makes sense
    EXPECT_EQ(readTogether(), "rrr");
    m_link->giveUp("left");
    EXPECT_EQ(readTogether(), "---");
}

class Batches : public Links {
protected:
    void SetUp() override { }

    OpeningProgress m_progress;
    std::shared_ptr<CameraSession> m_session = CameraSession::open(place, m_progress).value();
};

TEST_F(Batches, EndWithTheFirstFailureUnlessOneIsAskedForByOne)
{
    RegisterBatch batch(requests());
    EXPECT_TRUE(batch.readNext(*m_session));
    EXPECT_EQ(outcome(batch.takeFinished()), "r");
    m_proxy.set(Faults::refusing(0x8007));
    EXPECT_TRUE(batch.readNext(*m_session));
    m_proxy.set({});
    batch.readAll(*m_session);
    EXPECT_EQ(outcome(batch.takeFinished()), "f");
    EXPECT_FALSE(batch.readNext(*m_session)); // was the last
    EXPECT_FALSE(batch.readNext(*m_session));
    EXPECT_EQ(outcome(batch.takeFinished()), "r");
    RegisterBatch all(requests());
    all.readAll(*m_session);
    const RegisterBackend::Requests read = all.end();
    EXPECT_EQ(outcome(read), "rrr");
    EXPECT_EQ(read[0].bytes, read[2].bytes);
    EXPECT_NE(read[0].bytes, std::vector<std::uint8_t>(4));
}

TEST_F(Batches, ThatAreEndedGiveWhatIsThereAndTakeNothingMore)
{
    RegisterBatch batch(requests());
    EXPECT_TRUE(batch.readNext(*m_session));
    m_proxy.set(Faults::repliesLost());
    const std::uint64_t before = m_proxy.requests();
    std::thread reading([&] { EXPECT_FALSE(batch.readNext(*m_session)); });
    EXPECT_TRUE(eventually([&] { return m_proxy.requests() > before; }));
    EXPECT_EQ(outcome(batch.end()), "r--");
    m_proxy.set({});
    reading.join();
    EXPECT_FALSE(batch.readNext(*m_session));
    EXPECT_TRUE(batch.end().empty());
}

TEST_F(Batches, AreReadBesideTheRestWhileTheyAreWantedAndThereIsASession)
{
    m_session->leaveControl(); // what keeps it would be counted, too
    AccessThread thread;
    const std::uint64_t before = m_proxy.requests();
    for (const std::string expected : { "rrr", "unwanted", "" }) {
        std::promise<void> isFree;
        std::promise<void> isOver;
        thread.post([&isFree] { isFree.get_future().wait(); });
        auto reading = std::make_unique<ReadingBeside>(thread, m_session, requests());
        thread.repeatBehind([&isOver] {
            isOver.set_value();
            return false;
        });
        if (expected == "unwanted") {
            reading = nullptr;
        } else if (expected.empty()) {
            m_session = nullptr;
        }
        isFree.set_value();
        isOver.get_future().wait();
        EXPECT_EQ(reading ? outcome(reading->takeFinished()) : "unwanted", expected);
        EXPECT_TRUE(expected.empty() || m_proxy.requests() - before == requests().size());
    }
}

} // namespace
