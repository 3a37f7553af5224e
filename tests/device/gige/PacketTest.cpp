// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "PrivateNetwork.h"
#include "StreamFixture.h"

using namespace featurebrowser;
using namespace zqcameralib;
using namespace std::chrono_literals;
using State = ZQCameraTask::State;

namespace {

/// Finding out how a camera's images arrive whole.
class Packets : public Streams {
protected:
    ~Packets() override { limitPackets(loopbackPacket); }

    void open(const char* address = directly)
    {
        Streams::open(address);
        ASSERT_EQ(set("GevSCPSPacketSize", 1500L), STATUS_OK);
        ASSERT_EQ(set("GevSCPD", 20L), STATUS_OK);
    }

    static bool tries(ZQCameraTask& task)
    {
        return eventually([&] {
            task.poll();
            return task.progress().step.find("Trying packets of") == 0;
        });
    }
};

TEST_F(Packets, AreMadeAsLargeAsArriveWhole)
{
    const std::string restIsFine
        = " None gets lost with the delay between them that was set before.";
    open();
    beOrdinaryUser(); // the ring takes the first of several fragments for all of a packet
    for (const auto& [network, size] : { std::pair(loopbackPacket, "9000"), { 4000, "2304" } }) {
        if (!limitPackets(network)) {
            GTEST_SKIP() << "this system lets no network lose large packets";
        }
        ASSERT_EQ(set("GevSCPSPacketSize", 1500L), STATUS_OK);
        const auto task = m_acquisition->FindPacketSettings();
        EXPECT_TRUE(tries(*task));
        EXPECT_EQ(start(), noImage);
        ASSERT_EQ(task->wait(60s), State::Done) << task->error();
        EXPECT_EQ(task->progress().step,
            std::string("Images arrive whole in packets of ") + size
                + " bytes; before, they had 1500 bytes." + restIsFine);
        EXPECT_EQ(read("GevSCPSPacketSize"), size);
        EXPECT_EQ(read("GevSCPD"), "20");
        EXPECT_EQ(read("GevSCPSDoNotFragment"), "0");
        ASSERT_EQ(start(), STATUS_OK) << m_acquisition->lastError();
        EXPECT_TRUE(framesCome(1));
        EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
    }
}

TEST_F(Packets, AreAsBeforeWhenNoneIsBetterOrNobodyWaitsForIt)
{
    open();
    for (const bool isStopped : { true, false }) {
        const auto task = m_acquisition->FindPacketSettings();
        EXPECT_TRUE(tries(*task));
        isStopped ? (void)m_acquisition->stop() : task->cancel();
        EXPECT_EQ(task->poll(), State::Cancelled);
        EXPECT_EQ(read("GevSCPSPacketSize"), "1500");
        EXPECT_EQ(m_device->IsGrabbing(), 0);
    }
    replaceCamera(990);
    open();
    const auto task = m_acquisition->FindPacketSettings(50.0);
    EXPECT_EQ(task->wait(120s), State::Failed);
    EXPECT_EQ(task->error(),
        "No image arrives whole, whatever the size of its packets; that is left at 1500 bytes.");
    EXPECT_EQ(read("GevSCPSPacketSize"), "1500");
    m_fake->kill();
    EXPECT_EQ(m_acquisition->FindPacketSettings()->wait(20s), State::Failed);
    EXPECT_EQ(m_acquisition->start({}), cameraLost);
}

TEST_F(Packets, AreNotTriedWhereThatCannotBe)
{
    open();
    ASSERT_EQ(start(), STATUS_OK);
    EXPECT_EQ(m_acquisition->FindPacketSettings()->error(),
        "Images are being acquired: stop them first.");
    EXPECT_EQ(m_acquisition->stop(), STATUS_OK);
    ASSERT_EQ(m_device->SetEnumValue("TriggerMode", "On", 0), STATUS_OK);
    const auto triggered = m_acquisition->FindPacketSettings();
    EXPECT_EQ(triggered->wait(20s), State::Failed);
    EXPECT_EQ(
        triggered->error(), "TriggerMode is On: without a trigger there are no images to try.");
    std::string error;
    const auto camera = ZQCamera::OpenSimulated(error);
    ZQCameraDevice device(camera.get(), nullptr);
    EXPECT_EQ(ZQAcquisition(camera.get(), &device).FindPacketSettings()->error(),
        "The camera is simulated: its images do not come over a network.");
}

} // namespace
