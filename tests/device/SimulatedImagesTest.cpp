// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Eventually.h"
#include "TestCamera.h"
#include "memory/SimulatedFrames.h"

#include "featurebrowser/ZQAcquisition.h"

#include <cctype>
#include <limits>
#include <mutex>
#include <sstream>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

std::shared_ptr<SceneFeed> fed(SceneSettings settings)
{
    auto feed = std::make_shared<SceneFeed>();
    feed->setSettings(std::move(settings));
    return feed;
}

std::shared_ptr<SceneFeed> counting()
{
    SceneSettings settings;
    settings.pattern = TestPattern::FrameCounter;
    return fed(settings);
}

TEST(MadeUpFrames, ClaimNoMoreThanTheyHold)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const std::vector<std::pair<ImageFormat, int>> formats {
        { { 4, 480, 0x01080001, 100, 50.0, 0 }, 25 }, // payload below the height
        { { 64, 32, 0x01100003, 2048, 50.0, 0 }, 16 }, // below the image
        { { 64, 32, 0x01080001, 2560, 50.0, 0 }, 32 }, // beyond it
        { { 10, 3, 0x010C0047, 45, 50.0, 0 }, 3 }, // packed
        { { 1, 16, 0x01010037, 2, 50.0, 0 }, 16 }, // one bit
        { { 4, 4, 0, 16, nan, 0 }, 4 },
        { { 4, 4, 0, 16, infinity, 0 }, 4 },
        { { 4, 4, 0, 16, -infinity, 0 }, 4 },
        { { 4, 4, 0, 16, 1e300, 0 }, 4 },
    };
    for (const auto& [format, rows] : formats) {
        SimulatedFrames frames(format, std::make_shared<SceneFeed>());
        ZQFrame frame;
        for (int tries = 0; tries < 10 && frame.data == nullptr; ++tries) {
            frames.next(frame);
        }
        ASSERT_NE(frame.data, nullptr) << format.framesPerSecond;
        EXPECT_EQ(frame.size, format.payload);
        EXPECT_EQ(frame.height, rows) << format.payload;
        EXPECT_GE(frame.frameId, 1U);
    }
}

TEST(MadeUpFrames, LeaveOutWhatFollowsTheImageAsChunks)
{
    SceneSettings settings;
    settings.hasChunks = true;
    SimulatedFrames frames({ 64, 32, 0x01080001, 2560, 1000.0, 0 }, fed(settings));
    ZQFrame frame;
    while (frames.next(frame) != FrameSource::Outcome::Complete) { }
    EXPECT_EQ(frame.size, 64U * 32U);
}

TEST(MadeUpFrames, CountWithThoseThatWereLost)
{
    SimulatedFrames frames({ 4, 3, 0x01080001, 12, 1000.0, 0 }, counting());
    ZQFrame first;
    while (frames.next(first) != FrameSource::Outcome::Complete) { }
    EXPECT_EQ(first.frameId, frames.lost() + 1);
    EXPECT_LT(frames.lost(), 1'000'000U) << "those of a quarter of an hour";
    for (std::uint64_t i = 0; i < 3; ++i) {
        ZQFrame frame;
        std::this_thread::sleep_for(std::chrono::milliseconds(3)); // loses some
        EXPECT_EQ(frames.next(frame), FrameSource::Outcome::Complete);
        EXPECT_GT(frames.lost(), i);
        EXPECT_EQ(frame.frameId, i + 2 + frames.lost());
        EXPECT_EQ(frame.timestampNs - first.timestampNs, (frame.frameId - first.frameId) * 1000000);
        EXPECT_GE(frame.systemTimestampNs, first.systemTimestampNs);
        EXPECT_EQ(frame.pixelFormat, 0x01080001U);
        EXPECT_EQ(frame.width * 10 + frame.height, 43);
        for (std::size_t at = 0; at < frame.size; ++at) {
            EXPECT_EQ(frame.data[at], (frame.frameId - 1) % 256);
        }
    }
}

TEST(MadeUpFrames, WaitForTheTriggerThatIsAwaited)
{
    struct Case {
        bool isSoftware, isSelected;
        std::uint64_t frames, expected;
        std::string why;
    };
    const std::string waits = "TriggerMode is On: the camera waits for ";
    for (const Case& test : { Case { true, true, 1, 2, waits + "TriggerSoftware." },
             { true, false, 1, 0, waits + "TriggerSoftware." },
             { true, true, 3, 6, waits + "TriggerSoftware." },
             { false, true, 1, 0,
                 waits + "a trigger from Line0, which never comes to a simulated camera." } }) {
        SceneSettings settings;
        settings.trigger = { true, test.isSoftware, test.isSelected, test.frames, "Line0" };
        const auto feed = fed(settings);
        SimulatedFrames frames({ 4, 3, 0x01080001, 12, 10000.0, 0 }, feed);
        feed->trigger();
        feed->trigger();
        ZQFrame frame;
        for (int nothing = 0; nothing < 3;) {
            nothing += frames.next(frame) == FrameSource::Outcome::Nothing ? 1 : 0;
        }
        EXPECT_EQ(frame.frameId, test.expected);
        EXPECT_EQ(frames.whyNothing(), test.why);
    }
}

TEST(MadeUpFrames, HoldPixelsAsTheirFormatSays)
{
    struct Case {
        std::uint32_t format;
        std::vector<int> bytes; ///< of an image of 4 by 2 pixels, from the first on
    };
    const Levels levels { 0x1234, 0x5678, 0x9ABC, 0xDEF0 };
    for (const Case& test : {
             Case { 0x01080001, { 0xDE, 0xDE, 0xDE } }, // Mono8
             { 0x01100003, { 0x7B, 0x03, 0x7B, 0x03 } }, // Mono10: 0x37B
             { 0x01100005, { 0xEF, 0x0D } }, // Mono12
             { 0x01100025, { 0xBC, 0x37 } }, // Mono14: 0x37BC
             { 0x01100007, { 0xF0, 0xDE } }, // Mono16
             { 0x010C0004, { 0xDE, 0x33, 0xDE, 0xDE, 0x33, 0xDE } }, // Mono10Packed
             { 0x010C0006, { 0xDE, 0xFF, 0xDE } }, // Mono12Packed
             { 0x010A0046, { 0x7B, 0xEF, 0xBD, 0xF7, 0xDE } }, // Mono10p
             { 0x010C0047, { 0xEF, 0xFD, 0xDE } }, // Mono12p
             { 0x01010037, { 0xFF } }, // Mono1p
             { 0x01080008, { 0x56, 0x12, 0x56, 0x12, 0x9A, 0x56 } }, // BayerGR8
             { 0x01080009, { 0x12, 0x56, 0x12, 0x56, 0x56, 0x9A } }, // BayerRG8
             { 0x0110000E, { 0x59, 0x01, 0x6A, 0x02 } }, // BayerGB10
             { 0x010C002D, { 0x9A, 0x7B, 0x56 } }, // BayerBG12Packed
             { 0x010C0059, { 0x23, 0x71, 0x56 } }, // BayerRG12p
             { 0x0110002F, { 0x34, 0x12, 0x78, 0x56 } }, // BayerRG16
             { 0x02180014, { 0x12, 0x56, 0x9A, 0x12 } }, // RGB8
             { 0x02180015, { 0x9A, 0x56, 0x12, 0x9A } }, // BGR8
             { 0x02200017, { 0x9A, 0x56, 0x12, 0xFF } }, // BGRa8
             { 0x02240049, { 0xAB, 0x79, 0x56, 0x23, 0xB1, 0x9A } }, // BGR12p
             { 0x02300033, { 0x34, 0x12, 0x78, 0x56, 0xBC, 0x9A } }, // RGB16
             { 0x02100032, { 0x4A, 0xAD, 0x4A, 0x58, 0x4A, 0xAD } }, // YUV422_8
             { 0x0210001F, { 0xAD, 0x4A, 0x58, 0x4A } }, // YUV422_8_UYVY
             { 0x020C001E, { 0xAD, 0x4A, 0x4A, 0x58, 0x4A, 0x4A } }, // YUV411_8_UYYVYY
             { 0x02180040, { 0xA5, 0x52, 0x5F } }, // YCbCr709_8_CbYCr
         }) {
        const PixelWriter writer(test.format, 4);
        std::vector<std::uint8_t> image(64);
        for (int pixel = 0; pixel < 8; ++pixel) {
            writer.put(image.data(), image.size(), pixel % 4, pixel / 4, levels);
        }
        const std::vector<int> bytes(
            image.begin(), image.begin() + static_cast<long>(test.bytes.size()));
        EXPECT_EQ(bytes, test.bytes) << std::hex << test.format;
    }
}

void apply(TestCamera& camera, const std::string& settings)
{
    std::istringstream words(settings);
    for (std::string name, value; std::getline(words >> std::ws, name, '=') && words >> value;) {
        const int type = camera.item(name).type;
        const int status = type == FEATURE_BOOLEAN
            ? camera.device.SetBooleanValue(name.c_str(), value == "1" ? 1 : 0)
            : type == FEATURE_ENUMERATION
            ? camera.device.SetEnumValue(name.c_str(), value.c_str(), 0)
            : type == FEATURE_FLOAT ? camera.set(name.c_str(), std::stod(value))
                                    : camera.set(name.c_str(), std::stol(value));
        EXPECT_EQ(status, STATUS_OK) << name;
    }
}

/// The images of a camera with these settings, one byte a pixel.
class Images {
public:
    Images(TestCamera& camera, const std::string& settings)
        : m_acquisition(camera.camera.get(), &camera.device)
    {
        apply(camera, settings);
        EXPECT_EQ(m_acquisition.start([this](const ZQFrame& frame) { keep(frame); }), STATUS_OK);
    }

    /// Of an image that comes from now on; -1 when none does.
    int pixel(int x, int y)
    {
        const std::uint64_t before = count();
        if (!eventually([&] { return count() > before; })) {
            return -1;
        }
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_bytes.at(static_cast<std::size_t>(y) * m_width + static_cast<std::size_t>(x));
    }
    std::uint64_t count() const { return m_acquisition.counters().delivered; }

private:
    void keep(const ZQFrame& frame)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_bytes.assign(frame.data, frame.data + frame.size);
        m_width = static_cast<std::size_t>(frame.width);
    }

    std::mutex m_mutex;
    std::vector<std::uint8_t> m_bytes;
    std::size_t m_width = 0;
    ZQAcquisition m_acquisition;
};

TEST(SimulatedImages, ShowTheSceneAsTheSettingsSay)
{
    TestCamera usual(TestCamera::simulated());
    Images whole(usual, "BlackLevel=0 Height=256");
    const auto seen = [&whole](int x, int y) { return whole.pixel(x, y); };
    EXPECT_EQ(seen(0, 0), 79); // bench: 0.299 * 0.36 + 0.587 * 0.3 + 0.114 * 0.24 of 255
    EXPECT_EQ(seen(20, 20), 203); // paper: 0.8 * (1 - 0.25 * 40 / 2048)
    EXPECT_EQ(seen(42, 42), 10); // ink around the patches
    const int four = seen(40, 42) + seen(41, 42) + seen(40, 43) + seen(41, 43);
    struct Case {
        const char* settings;
        int x, y; ///< of the pixel
        int expected;
        int tolerance;
    };
    for (const Case& test : {
             Case { "OffsetX=36 OffsetY=30", 5, 6, seen(41, 36), 0 },
             { "OffsetX=36 OffsetY=30", 8, 15, seen(44, 45), 0 },
             { "ReverseX=1 OffsetX=1984", 15, 0, seen(48, 0), 0 },
             { "ReverseX=1 OffsetX=1984 OffsetY=40", 10, 6, seen(53, 46), 0 },
             { "ReverseY=1 OffsetY=1984 OffsetX=40", 6, 15, seen(46, 48), 0 },
             { "BinningHorizontal=2 BinningVertical=2 BinningHorizontalMode=Average "
               "BinningVerticalMode=Average OffsetX=16 OffsetY=16",
                 4, 5, four / 4, 1 },
             { "BinningHorizontal=2 BinningVertical=2", 0, 0, 255, 0 }, // 4 * 79
             { "BinningHorizontal=2", 0, 0, 2 * 79, 1 },
             { "DoubleRate_Enable=1 OffsetX=16", 5, 6, seen(42, 6), 0 },
             { "DecimationHorizontal=2 DecimationVertical=3 OffsetX=16 OffsetY=10", 5, 4,
                 seen(42, 42), 0 },
             { "MROI_Enable=1", 5, 130, 74, 0 }, // row 514: 79 in less light
             { "MROI_Enable=1 MROI_Index=1 MROI_Y=20 MROI_Index=0", 5, 130, seen(5, 22), 0 },
             { "ExposureTime=5000", 0, 0, 79 / 2, 1 },
             { "ExposureTime=20000", 0, 0, 2 * 79, 1 },
             { "ExposureTime=40000", 0, 0, 255, 0 },
             { "Gain=6.0", 0, 0, 2 * 79, 1 }, // 1.995
             { "GainSelector=Red Gain=3.0", 0, 0, 79, 0 }, // of colours only
             { "BlackLevel=20", 0, 0, 99, 1 },
             { "BlackLevel=-64", 0, 0, 15, 1 },
             { "Gamma=2.0", 0, 0, 24, 1 }, // 0.311 squared
             { "TestPattern=White ExposureTime=10", 3, 3, 255, 0 },
             { "TestPattern=Black Gain=24.0", 3, 3, 0, 0 },
             { "TestPattern=GreyHorizontalRamp", 3, 5, 51, 0 }, // 255 / 15 a step
             { "TestPattern=GreyVerticalRamp", 3, 5, 85, 0 },
             { "TestPattern=ColorBar", 2, 0, 6 * 255 / 7, 1 },
             { "PixelFormat=BayerRG8 BalanceRatioSelector=Red BalanceRatio=4.0 GainSelector=Red "
               "Gain=0.0",
                 0, 0, 183, 1 }, // 0.36 * 4 / 2 of 255
             { "PixelFormat=BayerRG8", 1, 0, 76, 1 },
         }) {
        TestCamera camera(TestCamera::simulated());
        Images images(camera, std::string("BlackLevel=0 Width=16 Height=16 ") + test.settings);
        EXPECT_NEAR(images.pixel(test.x, test.y), test.expected, test.tolerance) << test.settings;
    }
}

TEST(SimulatedImages, FollowWhatChangesWhileTheyCome)
{
    TestCamera camera(TestCamera::simulated());
    Images images(camera, "BlackLevel=0 Width=16 Height=16");
    EXPECT_EQ(images.pixel(0, 0), 79);
    apply(camera, "ExposureTime=20000");
    EXPECT_TRUE(eventually([&] { return images.pixel(0, 0) == 159; }));
    apply(camera, "TestPattern=White");
    EXPECT_TRUE(eventually([&] { return images.pixel(0, 0) == 255; }));
}

TEST(SimulatedImages, ComeOneForEachSoftwareTrigger)
{
    TestCamera camera(TestCamera::simulated());
    Images images(camera,
        "Width=16 Height=16 TriggerSelector=FrameStart TriggerMode=On TriggerSource=Software");
    const auto trigger
        = [&camera] { EXPECT_EQ(camera.device.ExecuteCommand("TriggerSoftware", 1), STATUS_OK); };
    for (std::uint64_t count = 1; count <= 3; ++count) {
        trigger();
        EXPECT_TRUE(eventually([&] { return images.count() >= count; })) << count;
    }
    // That of the frames stays what it is when the selector looks elsewhere.
    apply(camera, "TriggerSelector=AcquisitionStart TriggerMode=On TriggerSource=Software");
    trigger();
    apply(camera, "TriggerMode=Off TriggerSelector=FrameStart");
    trigger();
    EXPECT_TRUE(eventually([&] { return images.count() >= 4; }));
    EXPECT_EQ(images.count(), 4U);
    apply(camera, "TriggerMode=Off");
    EXPECT_GT(images.pixel(0, 0), 0);
}

TEST(SimulatedImages, FollowSettingsByTheirOlderNames)
{
    const auto entries = [](const char* first, const char* second) {
        return std::string("<EnumEntry Name=\"") + first
            + "\"><Value>0</Value></EnumEntry><EnumEntry Name=\"" + second
            + "\"><Value>1</Value></EnumEntry>";
    };
    const auto over = [](const char* kind, const char* name, const std::string& more) {
        return node(kind, name, element("pValue", std::string(name) + "Reg") + more);
    };
    const std::string nodes = intReg("Width", 0) + intReg("Height", 4)
        + reg("FloatReg", "ExposureTimeAbs", 12)
        + over("Integer", "GainRaw", "<Min>0</Min><Max>480</Max>") + intReg("GainRawReg", 16)
        + over("Integer", "BlackLevelRaw", "<Min>0</Min><Max>250</Max>")
        + intReg("BlackLevelRawReg", 20)
        + over("Enumeration", "TestImageSelector", entries("Off", "TestImageWhite"))
        + intReg("TestImageSelectorReg", 24) + reg("FloatReg", "AcquisitionFrameRateAbs", 28)
        + over("Enumeration", "TriggerMode", entries("Off", "On")) + intReg("TriggerModeReg", 32)
        + intReg("OffsetX", 36) + intReg("Go", 40) + command("AcquisitionStart", "Go", "1")
        + command("AcquisitionStop", "Go", "0") + command("TriggerSoftware", "Go", "2");
    struct Case {
        const char* settings;
        int expected; ///< 79 is the bench in full light
    };
    for (const Case& test : { Case { "", 79 }, { "ExposureTimeAbs=20000", 158 },
             { "ExposureTimeAbs=5000", 39 }, { "GainRaw=120", 158 }, // 6 of 24 dB
             { "BlackLevelRaw=50", 92 }, // a fifth of a quarter of 255
             { "TestImageSelector=TestImageWhite", 255 }, { "OffsetX=24", 64 } }) {
        TestCamera camera("Width Height ExposureTimeAbs GainRaw BlackLevelRaw TestImageSelector "
                          "AcquisitionFrameRateAbs TriggerMode OffsetX AcquisitionStart "
                          "AcquisitionStop TriggerSoftware",
            nodes);
        Images images(
            camera, std::string("Width=8 Height=8 AcquisitionFrameRateAbs=100 ") + test.settings);
        EXPECT_NEAR(images.pixel(0, 0), test.expected, 1) << test.settings;
        apply(camera, "TriggerMode=On");
        const std::uint64_t before = images.count() + 1; // one may be on its way
        EXPECT_EQ(camera.device.ExecuteCommand("TriggerSoftware", 1), STATUS_OK);
        EXPECT_EQ(camera.device.ExecuteCommand("TriggerSoftware", 1), STATUS_OK);
        EXPECT_TRUE(eventually([&] { return images.count() >= before + 1; }));
        EXPECT_LE(images.count(), before + 2);
    }
}

TEST(SimulatedImages, AreThereWhereADescriptionIsAllThatIsKnown)
{
    const std::string fixed = element("AccessMode", "RO");
    TestCamera camera("SensorWidth BinningHorizontal WidthMax Width Height PixelFormat",
        reg("MaskedIntReg", "SensorWidth", 0,
            fixed + element("Endianess", "LittleEndian") + element("LSB", "8")
                + element("MSB", "23"))
            + intReg("BinningHorizontal", 4)
            + knife("IntSwissKnife", "WidthMax", { "SensorWidth", "BinningHorizontal" },
                "SensorWidth/BinningHorizontal/32*32-8")
            + node("Integer", "Width", "<pValue>W</pValue><pMax>Most</pMax>") + intReg("W", 8)
            + node("Integer", "Most", "<pValue>WidthMax</pValue>") + intReg("Height", 12, fixed)
            + node("Enumeration", "PixelFormat",
                "<EnumEntry Name=\"Other\"><Value>5</Value></EnumEntry>"
                "<EnumEntry Name=\"Mono8\"><Value>0x01080001</Value></EnumEntry>"
                "<pValue>F</pValue>")
            + intReg("F", 16));
    for (const auto& [name, value] :
        { std::pair("SensorWidth", "1280"), { "BinningHorizontal", "1" }, { "WidthMax", "1272" },
            { "Width", "1272" }, { "Height", "1024" }, { "PixelFormat", "1" } }) {
        EXPECT_EQ(camera.read(name), value) << name;
    }
}

} // namespace
