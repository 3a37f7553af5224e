// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "simulation/SimulatedCamera.h"

#include "memory/RegisterMemory.h"
#include "memory/RegisterValues.h"
#include "simulation/SimulatedCameraRegisters.h"

#include <gmock/gmock.h>

#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace zqcameralib {
namespace {

using namespace simulated;
using std::chrono::seconds;
using testing::ElementsAre;

constexpr std::uint32_t mono8 = 0x01080001;
constexpr std::uint32_t mono16 = 0x01100007;
constexpr std::uint32_t bayerRg8 = 0x01080009;

TEST(RegisterMemory, KeepsBytesAcrossPagesAndPastTheHighestAddress)
{
    const std::vector<std::uint8_t> bytes { 1, 2, 3, 4 };
    for (const std::uint64_t address :
        { std::uint64_t { 0x1ffe }, std::numeric_limits<std::uint64_t>::max() - 1 }) {
        RegisterMemory memory;
        memory.write(address, bytes.data(), bytes.size());
        const RegisterMemory snapshot = memory;
        memory.write(address + 1, bytes.data(), 1);

        std::vector<std::uint8_t> read(6, 0xff);
        snapshot.read(address - 1, read.data(), read.size());
        EXPECT_THAT(read, ElementsAre(0, 1, 2, 3, 4, 0));
        memory.read(address, read.data(), 4);
        EXPECT_EQ(read[1], 1);
    }
}

TEST(SimulatedCamera, EmbeddedDescriptionIsTheFileByteForByte)
{
    std::ostringstream content;
    content << std::ifstream(ZQ_SIMULATED_CAMERA_XML, std::ios::binary).rdbuf();
    ASSERT_FALSE(content.str().empty());
    EXPECT_EQ(simulatedCameraDescription(), content.str());
}

// The camera as its register port sees it.
class SimulatedCameraTest : public testing::Test {
protected:
    SimulatedCameraTest() { m_behaviour->start(m_memory); }

    void write(std::uint64_t address, std::uint32_t value)
    {
        writeWord(m_memory, address, value);
        m_behaviour->afterWrite(m_memory, address, 4);
    }
    std::uint32_t read(std::uint64_t address)
    {
        m_behaviour->beforeRead(m_memory, address, 4);
        return readWord(m_memory, address);
    }
    float readTemperature()
    {
        m_behaviour->beforeRead(m_memory, temperature, 4);
        return readFloat(m_memory, temperature);
    }

    std::chrono::nanoseconds m_now = seconds(1000);
    RegisterMemory m_memory;
    std::unique_ptr<CameraBehaviour> m_behaviour
        = makeSimulatedCameraBehaviour([this] { return m_now; });
};

struct Word {
    std::uint64_t address;
    std::uint32_t value;
};

struct Settling {
    const char* name;
    std::vector<Word> writes;
    std::vector<Word> expected;
};

TEST_F(SimulatedCameraTest, ValuesFollowWhatLimitsThem)
{
    const std::vector<Settling> cases = {
        { "off-grid width", { { width, 515 } }, { { width, 512 } } },
        { "binning shrinks the image",
            { { width, 2048 }, { height, 2048 }, { binningHorizontal, 3 }, { binningVertical, 4 } },
            { { width, 680 }, { height, 512 } } },
        { "binning outside", { { binningHorizontal, 0 }, { binningVertical, 9 } },
            { { binningHorizontal, 1 }, { binningVertical, 4 } } },
        { "decimation shrinks it further",
            { { width, 2048 }, { height, 2048 }, { decimationHorizontal, 2 },
                { binningVertical, 2 }, { decimationVertical, 9 } },
            { { width, 1024 }, { height, 256 }, { decimationVertical, 4 } } },
        { "width pushes the offset", { { offsetX, 1536 }, { width, 1024 } },
            { { offsetX, 1024 } } },
        { "double rate", { { width, 2048 }, { pixelFormat, mono16 }, { doubleRateEnable, 1 } },
            { { width, 1024 }, { pixelFormat, mono8 } } },
        { "binning mixes the mosaic", { { pixelFormat, bayerRg8 }, { binningVertical, 2 } },
            { { pixelFormat, mono8 } } },
        { "regions make the height", { { offsetY, 100 }, { mroiH + 8, 512 }, { mroiEnable, 1 } },
            { { height, 3 * 128 + 512 }, { offsetY, 0 } } },
        { "regions fit the sensor", { { mroiH, 512 }, { binningVertical, 2 }, { mroiY, 2000 } },
            { { mroiH, 256 }, { mroiY, 1024 - 256 } } },
        { "exposure pushes the frame period", { { exposureTime, 200000 } },
            { { framePeriod, 200000 } } },
        { "readout limits the frame period", { { exposureTime, 10 }, { framePeriod, 10 } },
            { { framePeriod, 5220 } } },
        { "automatic exposure", { { exposureAuto, 1 } },
            { { exposureTime, 20000 }, { exposureAuto, 0 } } },
        { "automatic gain", { { gainAuto, 3 } }, { { gainAll, 60 }, { gainAuto, 1 } } },
        { "exposure outside", { { exposureTime, 5 } }, { { exposureTime, 10 } } },
        { "exposure beyond", { { exposureTime, 10000001 } }, { { exposureTime, 10000000 } } },
        { "half the readout",
            { { exposureTime, 10 }, { doubleRateEnable, 1 }, { framePeriod, 10 } },
            { { framePeriod, 2660 } } },
        { "continuous exposure within the frame period",
            { { frameRateEnable, 1 }, { framePeriod, 15000 }, { exposureAuto, 2 } },
            { { exposureTime, 15000 }, { exposureAuto, 2 } } },
        { "continuous gain", { { gainAuto, 2 } }, { { gainAll, 60 }, { gainAuto, 2 } } },
        { "gain by hand", { { gainAll, 5 } }, { { gainAll, 5 } } },
        { "automatic white", { { balanceWhiteAuto, 1 } },
            { { balanceRatio, 0x3fe00000 }, { balanceRatio + 4, 0x3f800000 },
                { balanceRatio + 8, 0x40000000 }, { balanceWhiteAuto, 0 } } },
        { "continuous white", { { balanceWhiteAuto, 2 } }, { { balanceWhiteAuto, 2 } } },
        { "white by hand", { { balanceRatio, 0x3f000000 } }, { { balanceRatio, 0x3f000000 } } },
        { "other binning mixes it too", { { pixelFormat, bayerRg8 }, { binningHorizontal, 2 } },
            { { pixelFormat, mono8 } } },
        { "double rate keeps the mosaic", { { pixelFormat, bayerRg8 }, { doubleRateEnable, 1 } },
            { { pixelFormat, bayerRg8 } } },
        { "binning keeps the depth", { { pixelFormat, mono16 }, { binningVertical, 2 } },
            { { pixelFormat, mono16 } } },
        { "last region", { { mroiH + 12, 3 }, { mroiY + 12, 5000 } },
            { { mroiH + 12, 2 }, { mroiY + 12, 2046 } } },
        { "smallest image", { { width, 0 }, { height, 0 }, { offsetX, 5000 }, { offsetY, 5001 } },
            { { width, 8 }, { height, 2 }, { offsetX, 2040 }, { offsetY, 2046 } } },
        { "second output line", { { userOutput + 4, 1 } }, { { lineStatusAll, 0b1000 } } },
        { "line without an output", { { lineSource + 8, 3 }, { userOutput, 1 } },
            { { lineStatusAll, 0 } } },
        { "input line", { { lineMode + 8, 0 }, { userOutput, 1 } }, { { lineStatusAll, 0 } } },
        { "other trigger source", { { triggerMode, 1 }, { triggerSoftware, 1 } },
            { { triggerCount, 0 } } },
        { "command that is none", { { timestampLatch, 2 } }, { { timestampLatch, 0 } } },
        { "output lines", { { userOutput, 1 }, { lineInverter + 4, 1 } },
            { { lineStatusAll, 0b0110 } } },
        { "trigger not armed", { { triggerSoftware, 1 } },
            { { triggerCount, 0 }, { triggerSoftware, 0 } } },
        { "trigger armed",
            { { triggerMode + 0x20, 1 }, { triggerSource + 0x20, 1 },
                { triggerSoftware + 0x20, 1 } },
            { { triggerCount, 0 }, { triggerCount + 4, 1 } } },
        { "counter reset", { { counterReset + 4, 1 } },
            { { counterValue, 42 }, { counterValue + 4, 0 } } },
        { "right key", { { serviceKey, serviceKeyValue } },
            { { serviceUnlocked, 1 }, { serviceKey, 0 } } },
        { "wrong key", { { serviceKey, serviceKeyValue }, { serviceKey, 1 } },
            { { serviceUnlocked, 0 } } },
    };
    for (const Settling& test : cases) {
        SCOPED_TRACE(test.name);
        write(deviceReset, 1);
        for (const Word& word : test.writes) {
            write(word.address, word.value);
        }
        for (const Word& word : test.expected) {
            EXPECT_EQ(read(word.address), word.value) << std::hex << word.address;
        }
    }
}

TEST_F(SimulatedCameraTest, UserSetsBringSettingsBackAndSurviveAReset)
{
    write(width, 640);
    write(lookUpTables + 4, 77);
    write(userSetSelector, 1);
    write(userSetSave, 1);
    EXPECT_EQ(read(userSetSave), 0U);

    write(userSetSelector, 0);
    write(userSetSave, 1); // the default set cannot be changed
    write(userSetLoad, 1);
    EXPECT_EQ(read(width), 512U);
    EXPECT_EQ(read(lookUpTables + 4), 16U);

    write(userSetDefault, 1);
    write(deviceUserId, 0x41424300);
    write(serviceKey, serviceKeyValue);
    write(deviceReset, 1);
    EXPECT_EQ(read(width), 640U);
    EXPECT_EQ(read(lookUpTables + 4), 77U);
    EXPECT_EQ(read(deviceUserId), 0x41424300U);
    EXPECT_EQ(read(serviceUnlocked), 0U);

    write(userSetSelector, 7); // no such set
    write(userSetLoad, 1);
    EXPECT_EQ(read(width), 640U);
}

TEST_F(SimulatedCameraTest, RunningTimeIsLatchedAndTemperatureRises)
{
    EXPECT_EQ(readTemperature(), 38.0F);
    EXPECT_EQ(readFloat(m_memory, temperature + 4), 34.0F);
    EXPECT_EQ(readFloat(m_memory, temperature + 8), 41.0F);
    m_now += seconds(100);
    write(timestampLatch, 1);
    m_now += seconds(200);
    EXPECT_EQ(readTemperature(), 42.9375F);
    EXPECT_EQ((std::uint64_t { read(timestampLatchValue) } << 32U) + read(timestampLatchValue + 4),
        100000000000U);
    write(timestampReset, 1);
    EXPECT_EQ(read(timestampLatchValue + 4), 0U);
    m_now += seconds(1);
    writeWord(m_memory, timestampLatch, 1);
    m_behaviour->afterWrite(m_memory, timestampLatch - 4, 8); // written with its neighbour
    EXPECT_EQ(read(timestampLatchValue + 4), 1000000000U);
    writeWord(m_memory, timestampLatch, 1);
    m_behaviour->afterWrite(m_memory, timestampLatch - 4, 4);
    EXPECT_EQ(read(timestampLatch), 1U);
}

TEST_F(SimulatedCameraTest, SelfTestIsPolledUntilItIsDone)
{
    write(selfTestRun, 1);
    EXPECT_EQ(readWord(m_memory, selfTestResult), 0U);
    EXPECT_EQ(read(selfTestRun), 1U);
    EXPECT_EQ(read(selfTestRun), 0U);
    EXPECT_EQ(read(selfTestResult), 1U);
    write(selfTestRun, 1);
    EXPECT_EQ(read(selfTestRun), 1U);
    write(selfTestRun, 1); // from the start
    EXPECT_EQ(read(selfTestRun), 1U);
    EXPECT_EQ(read(selfTestResult), 1U);
    EXPECT_EQ(readWord(m_memory, selfTestRun), 0U);
}

} // namespace
} // namespace zqcameralib
