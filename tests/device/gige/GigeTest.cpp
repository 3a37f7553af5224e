// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "GigeFixture.h"
#include "PrivateNetwork.h"
#include "base/StatusCodes.h"

#include <glib.h>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

using GigE = GigeFixture;

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
    EXPECT_EQ(set("Width", 64), STATUS_OK);
}

TEST_F(GigE, ACameraTakenByAnotherApplicationIsRetakenWhenThatIsDone)
{
    open();
    m_proxy.set(Faults::requestsLost()); // also those that keep the control
    std::string error;
    std::unique_ptr<ZQCamera> other;
    ASSERT_TRUE(eventually([&] {
        other = ZQCamera::Open(directly, CameraAccess::Control, error);
        return other != nullptr;
    })) << error;
    m_proxy.set({});

    // A real camera refuses the write, this one does not answer it at all.
    EXPECT_EQ(set("Width", 64), cameraLost);
    EXPECT_NE(m_device->Reconnect(), STATUS_OK);
    other.reset();
    EXPECT_TRUE(recovers());
    EXPECT_EQ(set("Width", 64), STATUS_OK);
}

TEST_F(GigE, FourBytesOfAnOlderDescriptionAreReadAndWrittenAsRegisters)
{
    open();
    const auto loaded = m_proxy.requests();
    EXPECT_LT(m_proxy.registerRequests() * 10, loaded); // opening asks for some
    const std::string width = value("Width");

    const std::unique_ptr<FakeCamera> older = olderSchema();
    m_proxy.switchTo("127.0.0.4");
    open();
    const auto before = std::pair(m_proxy.requests(), m_proxy.registerRequests());
    EXPECT_EQ(m_repository->Load(), STATUS_OK);
    EXPECT_GT((m_proxy.registerRequests() - before.second) * 2, m_proxy.requests() - before.first);
    EXPECT_EQ(value("Width"), width);
    const auto asked = m_proxy.registerRequests();
    EXPECT_EQ(set("Width", 64), STATUS_OK);
    EXPECT_GT(m_proxy.registerRequests(), asked);
    EXPECT_EQ(m_repository->Load(), STATUS_OK);
    EXPECT_EQ(value("Width"), "64");
}

TEST_F(GigE, PartsOfWordsAreReadAndWrittenWithTheirWords)
{
    const std::unique_ptr<FakeCamera> odd = oddRegisters();
    m_proxy.switchTo("127.0.0.4");
    open();
    EXPECT_EQ(set("Odd", 0x1234), STATUS_OK);
    EXPECT_EQ(set("Words", "abcdef"), STATUS_OK);
    EXPECT_EQ(read("Odd") + read("Words"), "4660abcdef");
    EXPECT_EQ(set("Odd", 7), STATUS_OK);
    EXPECT_EQ(read("Odd") + read("Words"), "7abcdef");
    EXPECT_EQ(read("Far"), failed);
    EXPECT_NE(set("Far", 9), STATUS_OK);
    EXPECT_EQ(read("Odd"), "7");
}

TEST_F(GigE, DiscoveryListsTheCameraAndItsIdOpensIt)
{
    ZQDiscovery discovery;
    EXPECT_TRUE(discovery.discover({ "nothing" }).empty());
    const std::vector<CameraInfo> found = discovery.discover({ "GigEVision" });
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].address, "127.0.0.1");
    EXPECT_EQ(found[0].protocol, "GigEVision");
    EXPECT_EQ(found[0].vendor + "-" + found[0].model + "-" + found[0].serial, found[0].id);
    EXPECT_EQ(found[0].serial, "GV01");
    EXPECT_TRUE(found[0].reachable);

    std::string error;
    EXPECT_TRUE(ZQCamera::Open(found[0].id, CameraAccess::Control, error)) << error;
    EXPECT_FALSE(ZQCamera::Open("no such camera", CameraAccess::Control, error));
    EXPECT_NE(error.find("no such camera found"), std::string::npos);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (const char* reason = testing::GTEST_FLAG(list_tests) ? nullptr : enterPrivateNetwork()) {
        return endWithoutTests(reason);
    }
    // What the library complains about is not done, and a test might pass over it.
    g_log_set_always_fatal(static_cast<GLogLevelFlags>(G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL));
    const bool asOrdinaryUser = argc > 1 && argv[1] == std::string("--ordinary-user");
    if (asOrdinaryUser && !giveUpPrivileges()) {
        std::printf("failed: privileges cannot be given up\n");
        return 1;
    }
    return RUN_ALL_TESTS();
}
