// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Eventually.h"
#include "TestCamera.h"
#include "base/StatusCodes.h"

#include "featurebrowser/ZQAcquisition.h"

#include <atomic>

using namespace featurebrowser;

namespace {

/// Lets a test wait for frames; the last one is told when no more come.
class Frames {
public:
    ZQAcquisition::FrameHandler handler()
    {
        return [this](const ZQFrame& frame) {
            m_last = frame;
            m_thread = std::this_thread::get_id();
            ++m_count;
        };
    }
    /// How many there are by then.
    int waitFor(int count)
    {
        eventually([&] { return m_count >= count; });
        return m_count;
    }

    ZQFrame m_last;
    std::thread::id m_thread;
    std::atomic<int> m_count { 0 };
};

TEST(Acquisition, DeliversImagesOfTheCamerasSizeOnAThreadOfItsOwn)
{
    TestCamera camera(TestCamera::simulated());
    ASSERT_EQ(camera.set("Width", 64), STATUS_OK);
    ASSERT_EQ(camera.set("Height", 32), STATUS_OK);
    long payload = 0;
    camera.device.GetIntegerValue("PayloadSize", &payload);
    ZQAcquisition acquisition(camera.camera.get(), &camera.device);
    Frames frames;

    ASSERT_EQ(acquisition.start(frames.handler()), STATUS_OK);
    EXPECT_EQ(acquisition.start(frames.handler()), STATUS_OK);
    EXPECT_NE(camera.device.IsGrabbing(), 0);
    EXPECT_EQ(camera.read("AcquisitionStatus"), "1");
    EXPECT_EQ(camera.set("Width", 128), zqcameralib::featureLocked);
    frames.waitFor(3);
    EXPECT_EQ(acquisition.stop(), STATUS_OK);
    EXPECT_EQ(camera.device.IsGrabbing(), 0);
    EXPECT_FALSE(acquisition.isRunning());

    const int count = frames.m_count;
    EXPECT_GE(count, 3);
    EXPECT_EQ(acquisition.counters().delivered, static_cast<std::uint64_t>(count));
    EXPECT_EQ(frames.m_last.width, 64);
    EXPECT_EQ(frames.m_last.height, 32);
    EXPECT_EQ(frames.m_last.size, static_cast<std::size_t>(payload));
    EXPECT_EQ(frames.m_last.pixelFormat, 0x01080001U);
    EXPECT_NE(frames.m_thread, std::this_thread::get_id());
    EXPECT_EQ(camera.set("Width", 128), STATUS_OK);
}

TEST(Acquisition, EndsByItselfAfterTheFramesAskedFor)
{
    TestCamera camera(TestCamera::simulated());
    camera.device.SetEnumValue("AcquisitionMode", "MultiFrame", 0);
    ASSERT_EQ(camera.set("AcquisitionFrameCount", 3), STATUS_OK);
    ZQAcquisition acquisition(camera.camera.get(), &camera.device);
    for (const auto& [mode, count] : { std::pair("SingleFrame", 1), { "MultiFrame", 3 } }) {
        ASSERT_EQ(camera.device.SetEnumValue("AcquisitionMode", mode, 0), STATUS_OK);
        Frames frames;
        for (int total = count; total <= 2 * count; total += count) {
            ASSERT_EQ(acquisition.start(frames.handler()), STATUS_OK);
            EXPECT_TRUE(eventually([&] { return !acquisition.isRunning(); }));
            EXPECT_EQ(frames.waitFor(total), total) << mode;
            EXPECT_NE(camera.device.IsGrabbing(), 0);
            camera.port.invalidate();
            EXPECT_EQ(camera.read("AcquisitionStatus"), "0");
        }
        EXPECT_EQ(acquisition.stop(), STATUS_OK);
        EXPECT_EQ(camera.device.IsGrabbing(), 0);
    }
}

TEST(Acquisition, IsRunningFromEveryStartToEveryStop)
{
    TestCamera camera(TestCamera::simulated());
    ZQAcquisition acquisition(camera.camera.get(), &camera.device);
    for (int round = 0; round < 100; ++round) {
        ASSERT_EQ(acquisition.start(nullptr), STATUS_OK);
        ASSERT_TRUE(acquisition.isRunning()) << round;
        ASSERT_EQ(acquisition.stop(), STATUS_OK);
        ASSERT_FALSE(acquisition.isRunning()) << round;
    }
}

TEST(Acquisition, SaysWhyItDoesNotStart)
{
    TestCamera camera(TestCamera::simulated());
    ASSERT_EQ(camera.set("Height", 32), STATUS_OK);
    ZQAcquisition acquisition(camera.camera.get(), &camera.device);
    camera.port.setFaultHook([](std::uint64_t, std::size_t, bool write) { return write; });
    EXPECT_EQ(acquisition.start(nullptr), zqcameralib::injectedFault);
    EXPECT_EQ(acquisition.lastError(), "injected fault");
    EXPECT_EQ(camera.camera->impl().lastError().code(), zqcameralib::injectedFault);
    EXPECT_EQ(camera.camera->impl().lastError().text(), "injected fault");
    EXPECT_FALSE(acquisition.isRunning());
    camera.port.setFaultHook(nullptr);
    EXPECT_EQ(acquisition.start(nullptr), STATUS_OK);
    EXPECT_EQ(acquisition.lastError(), "");
}

TEST(Acquisition, SaysWhyNoImageComesWhereNoRateIsTold)
{
    TestCamera camera("Width Height AcquisitionFrameRate TriggerMode AcquisitionStart "
                      "AcquisitionStop TriggerSoftware",
        intReg("Width", 0) + intReg("Height", 4) + reg("FloatReg", "AcquisitionFrameRate", 8)
            + node("Enumeration", "TriggerMode",
                R"(<EnumEntry Name="On"><Value>0</Value></EnumEntry><pValue>Go</pValue>)")
            + intReg("Go", 12) + intReg("Run", 16) + command("AcquisitionStart", "Run", "1")
            + command("AcquisitionStop", "Run", "0") + command("TriggerSoftware", "Run", "2"));
    camera.set("Width", 8);
    camera.set("Height", 8);
    ZQAcquisition acquisition(camera.camera.get(), &camera.device);
    ASSERT_EQ(acquisition.start(nullptr), STATUS_OK) << acquisition.lastError();
    EXPECT_TRUE(eventually([&] {
        return acquisition.problem().find("the camera waits for TriggerSoftware")
            != std::string::npos;
    })) << acquisition.problem();
}

TEST(Acquisition, IsNotDisturbedByOtherCamerasThatComeAndGo)
{
    TestCamera streaming(TestCamera::simulated());
    ZQAcquisition acquisition(streaming.camera.get(), &streaming.device);
    Frames frames;
    ASSERT_EQ(acquisition.start(frames.handler()), STATUS_OK);

    std::atomic<int> wrong { 0 };
    std::vector<std::thread> threads;
    for (int width = 64; width < 68 * 8; width += 15 * 8) {
        threads.emplace_back([width, &wrong] {
            for (int round = 0; round < 10; ++round) {
                Frames seen;
                TestCamera other(TestCamera::simulated());
                ZQAcquisition images(other.camera.get(), &other.device);
                wrong += other.device.SetIntegerValue("Width", width, 1) == STATUS_OK ? 0 : 1;
                wrong += images.start(seen.handler()) == STATUS_OK ? 0 : 1;
                seen.waitFor(1);
                wrong += other.read("Width") == std::to_string(width) ? 0 : 1;
                // Odd ones are closed while they stream.
                wrong += round % 2 == 1 || images.stop() == STATUS_OK ? 0 : 1;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(wrong, 0);
    const int before = frames.waitFor(0);
    frames.waitFor(before + 2);
    EXPECT_EQ(acquisition.stop(), STATUS_OK);
    EXPECT_GE(frames.m_count, before + 2);
}

TEST(Acquisition, IsRefusedWithWhatIsWrongWithTheImage)
{
    const auto wide = [](const char* name, unsigned address) {
        return intReg(name, address, element("Length", "8"));
    };
    const std::string none = "no image can be acquired: ";
    const std::string accepted = "AcquisitionStart: the camera has no such feature";
    struct Case {
        const char* members;
        std::int64_t width, height, payload;
        std::string text;
    };
    const char* const size = "Width Height";
    const char* const all = "Width Height PayloadSize";
    for (const Case& test : { Case { "Height", 8, 8, 0, none + "the camera tells no Width" },
             { "Width", 8, 8, 0, none + "the camera tells no Height" },
             { size, 0, 8, 0, none + "Width is 0" }, { size, 8, -1, 0, none + "Height is -1" },
             { size, 100001, 8, 0, none + "Width is 100001" }, { size, 100000, 1, 0, accepted },
             { size, 100000, 100000, 0, none + "one image would take 10000000000 bytes" },
             { all, 8, 8, (1LL << 31) + 1, none + "one image would take 2147483649 bytes" },
             { all, 8, 8, 7, none + "PayloadSize is 7 bytes, less than one row of the image" },
             { all, 8, 8, 8, accepted }, { all, 8, 8, 0, accepted } }) {
        TestCamera camera(
            test.members, wide("Width", 0) + wide("Height", 8) + wide("PayloadSize", 16));
        camera.set("Width", test.width, 0);
        camera.set("Height", test.height, 0);
        camera.set("PayloadSize", test.payload, 0);
        ZQAcquisition acquisition(camera.camera.get(), &camera.device);
        EXPECT_NE(acquisition.start(nullptr), STATUS_OK);
        EXPECT_EQ(acquisition.lastError(), test.text);
        EXPECT_FALSE(acquisition.isRunning());
        EXPECT_EQ(acquisition.stop(), STATUS_OK);
    }
}

} // namespace
