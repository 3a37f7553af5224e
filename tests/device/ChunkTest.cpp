// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Eventually.h"
#include "TestCamera.h"

#include "featurebrowser/ZQChunkDecoder.h"

#include <mutex>

using namespace featurebrowser;

namespace {

/// "Name=value unit" of all that came with the next image.
std::string chunksOf(TestCamera& camera, ZQFrame& frame)
{
    const ZQChunkDecoder decoder(camera.camera.get());
    ZQAcquisition acquisition(camera.camera.get(), &camera.device);
    std::mutex mutex;
    std::string text = "no image";
    EXPECT_EQ(acquisition.start([&](const ZQFrame& taken) {
        const std::lock_guard<std::mutex> lock(mutex);
        text.clear();
        for (const ZQChunkValue& value : decoder.values(taken)) {
            text += value.name + "=" + value.text + value.unit + " ";
        }
        frame = taken;
    }),
        STATUS_OK);
    EXPECT_TRUE(eventually([&] { return acquisition.counters().delivered > 0; }));
    EXPECT_EQ(acquisition.stop(), STATUS_OK);
    return text;
}

TEST(Chunks, OfTheSimulatedCameraHoldWhatIsTrueOfTheirImage)
{
    TestCamera camera(TestCamera::simulated());
    ASSERT_EQ(camera.set("Width", 64), STATUS_OK);
    ASSERT_EQ(camera.set("Height", 32), STATUS_OK);
    ASSERT_EQ(camera.set("ExposureTime", 2500.0), STATUS_OK);
    ASSERT_EQ(camera.set("Gain", 3.5), STATUS_OK);
    ASSERT_EQ(camera.set("BlackLevel", -2.0), STATUS_OK);
    ASSERT_EQ(camera.device.SetEnumValue("GainSelector", "Red", 1), STATUS_OK);
    ASSERT_EQ(camera.set("Gain", 1.5), STATUS_OK);
    ZQFrame frame;
    EXPECT_EQ(chunksOf(camera, frame), "");

    ASSERT_EQ(camera.device.SetBooleanValue("ChunkModeActive", 1), STATUS_OK);
    const std::string usual = chunksOf(camera, frame);
    const std::string count = "ChunkFrameID=" + std::to_string(frame.frameId)
        + " ChunkTimestamp=" + std::to_string(frame.timestampNs) + "ns ";
    EXPECT_EQ(usual, count + "ChunkExposureTime=2500us ChunkGain=3.5dB ");
    EXPECT_EQ(frame.size, 64U * 32U);
    EXPECT_EQ(camera.read("PayloadSize"), std::to_string(64 * 32 + 8 + 4 * 16));
    EXPECT_EQ(camera.state("ChunkGain"), FEATURE_NOT_AVAILABLE); // there is no image to read it of

    for (const std::string& entry :
        std::list<std::string>(camera.item("ChunkSelector").enumEntries)) {
        ASSERT_EQ(camera.device.SetEnumValue("ChunkSelector", entry.c_str(), 0), STATUS_OK);
        const bool isUsual = usual.find("Chunk" + entry + "=") != std::string::npos;
        ASSERT_EQ(camera.device.SetBooleanValue("ChunkEnable", isUsual ? 0 : 1), STATUS_OK);
    }
    EXPECT_EQ(chunksOf(camera, frame),
        "ChunkOffsetX=0px ChunkOffsetY=0px ChunkWidth=64px ChunkHeight=32px "
        "ChunkPixelFormat=Mono8 ChunkBlackLevel=-2DN ChunkLineStatusAll="
            + camera.read("LineStatusAll") + " ");
}

/// Ports of chunks, and registers on them.
std::string chunkReg(const std::string& name, const std::string& port, unsigned address)
{
    return reg("IntReg", name, address, element("pPort", port) + element("AccessMode", "RO"));
}

TEST(Chunks, OfADescriptionLieWhereItSays)
{
    const std::string nodes = intReg("Width", 0) + intReg("Height", 4) + intReg("Go", 8)
        + intReg("ChunkModeActive", 12) + intReg("Gain", 16) + intReg("Scale", 20)
        + command("AcquisitionStart", "Go", "1") + command("AcquisitionStop", "Go", "0")
        + node("Port", "First", element("ChunkID", "0a1B"))
        + node("Port", "Second", element("pChunkID", "IdOfSecond"))
        + node("Integer", "IdOfSecond", element("Value", "3"))
        + node("Port", "Pictures", element("ChunkID", "1")) + chunkReg("ChunkGain", "First", 4)
        + chunkReg("ChunkFrameCounter", "First", 8) + chunkReg("ChunkHeight", "Second", 0)
        + chunkReg("ChunkImage", "Pictures", 0)
        + knife("SwissKnife", "ChunkScaled", { "ChunkGain", "Scale" }, "ChunkGain/Scale");
    TestCamera camera("Width Height ChunkModeActive Gain Scale AcquisitionStart AcquisitionStop "
                      "ChunkGain ChunkFrameCounter ChunkHeight ChunkImage ChunkScaled",
        nodes);
    for (const auto& [name, value] : { std::pair("Width", 8L), { "Height", 6 },
             { "ChunkModeActive", 1 }, { "Gain", 7 }, { "Scale", 2 } }) {
        ASSERT_EQ(camera.set(name, value), STATUS_OK);
    }
    ZQFrame frame;
    const std::string values = chunksOf(camera, frame);
    EXPECT_EQ(values,
        "ChunkGain=7 ChunkFrameCounter=" + std::to_string(frame.frameId)
            + " ChunkHeight=6 ChunkScaled=3.5 ");

    const std::uint8_t few[] { 0, 0, 0, 0, 0, 0, 0, 9 };
    const ZQFrameChunk came { 0x0A1B, few, sizeof few };
    frame.chunks = &came;
    frame.chunkCount = 1;
    const auto first = ZQChunkDecoder(camera.camera.get()).values(frame);
    ASSERT_EQ(first.size(), 2U); // beyond the end of the chunk is nothing
    EXPECT_EQ(first[0].name + first[0].text, "ChunkGain9");
    EXPECT_EQ(first[1].name + first[1].text, "ChunkScaled4.5");
}

} // namespace
