#include "TestCamera.h"
#include "base/StatusCodes.h"
#include "memory/RegisterMemory.h"
#include "opening/SimulatedOpening.h"

#include <array>
#include <cfloat>
#include <limits>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

const std::string nodes = intReg("Reg", 0)
    + R"(<Integer Name="Int"><pValue>Reg</pValue><Min>4</Min><Max>40</Max><Inc>4</Inc></Integer>
<Integer Name="Set"><Value>1</Value><ValidValueSet>1;2;4</ValidValueSet></Integer>
<Integer Name="Wide"><Value>0</Value><Min>-9223372036854775808</Min>
<Max>9223372036854775807</Max><Inc>4000000000</Inc></Integer><FloatReg Name="FReg">
<Address>4</Address><Length>8</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>
<Endianess>BigEndian</Endianess></FloatReg><Float Name="Float"><pValue>FReg</pValue>
<Min>-1.5</Min><Max>2</Max></Float><StringReg Name="Text"><Address>16</Address>
<Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort></StringReg>
<Boolean Name="Bool"><pValue>BoolReg</pValue></Boolean><Enumeration Name="Enum">
<EnumEntry Name="A"><Value>5</Value></EnumEntry><EnumEntry Name="Gone"><Value>6</Value>
<pIsAvailable>Never</pIsAvailable></EnumEntry><EnumEntry Name="B"><Value>7</Value></EnumEntry>
<pValue>EnumReg</pValue></Enumeration><IntSwissKnife Name="Never"><Formula>0</Formula>
</IntSwissKnife><Command Name="Run"><pValue>RunReg</pValue><CommandValue>1</CommandValue>
</Command><Integer Name="TLParamsLocked"><Value>0</Value></Integer>
<Command Name="AcquisitionStart"><pValue>RunReg</pValue><CommandValue>1</CommandValue></Command>
<Command Name="AcquisitionStop"><pValue>RunReg</pValue><CommandValue>2</CommandValue></Command>)"
    + intReg("BoolReg", 24) + intReg("EnumReg", 28) + intReg("RunReg", 32)
    + intReg("ReadOnly", 36, element("AccessMode", "RO"))
    + intReg("WriteOnly", 40, element("AccessMode", "WO"))
    + intReg("Streaming", 44, element("pIsLocked", "TLParamsLocked"))
    + intReg("Absent", 48, element("pIsAvailable", "Never")) + intReg("Raw", 52)
    + intReg("Narrow", 56, "<Length>1</Length>")
    + R"(<Float Name="Rate"><pValue>Period</pValue><Min>0</Min><Max>1e6</Max></Float>
<Converter Name="Period"><FormulaTo>1000000/FROM</FormulaTo>
<FormulaFrom>1000000/TO</FormulaFrom><pValue>Raw</pValue></Converter><Integer Name="Tenfold">
<pValue>Tens</pValue><Min>0</Min><Max>99</Max></Integer><IntConverter Name="Tens">
<pVariable Name="S">Step</pVariable><FormulaTo>FROM*10/S</FormulaTo>
<FormulaFrom>TO*S/10</FormulaFrom><pValue>Narrow</pValue></IntConverter><Integer Name="Step">
<Value>1</Value></Integer><Float Name="Whole"><pValue>Tens</pValue><Min>0</Min><Max>1e300</Max>
</Float><Float Name="Big"><pValue>Single</pValue><Max>1e300</Max></Float>
<FloatReg Name="Single"><Address>60</Address><Length>4</Length><AccessMode>RW</AccessMode>
<pPort>Device</pPort></FloatReg><Integer Name="Over"><pValue>Narrow</pValue><Min>-5</Min>
<Max>1000</Max></Integer><Integer Name="Broken"/><StringReg Name="Fixed"><Address>64</Address>
<Length>4</Length><pPort>Device</pPort></StringReg><StringReg Name="Nil"><Address>64</Address>
<pLength>Never</pLength><AccessMode>RW</AccessMode><pPort>Device</pPort></StringReg>
<Register Name="Bytes"><Address>64</Address><Length>4</Length><AccessMode>RW</AccessMode>
<pPort>Device</pPort></Register><IntReg Name="Chunk"><Address>0</Address><Length>4</Length>
<AccessMode>RW</AccessMode><pPort>Image</pPort></IntReg><Port Name="Image"><ChunkID>1</ChunkID>
</Port><Enumeration Name="Odd"><EnumEntry Name="O"><Value>256</Value></EnumEntry>
<pValue>Narrow</pValue></Enumeration><Enumeration Name="Twins"><EnumEntry Name="T">
<Value>1</Value></EnumEntry><EnumEntry Name="T"><Value>2</Value></EnumEntry>
<pValue>TwinReg</pValue></Enumeration><IntSwissKnife Name="Quotient">
<pVariable Name="N">Never</pVariable><Formula>1/N</Formula></IntSwissKnife>
<IntSwissKnife Name="Inputs"><pVariable Name="A">Step</pVariable>
<pVariable Name="B">Set</pVariable><pVariable Name="C">Wide</pVariable>
<pVariable Name="D">Int</pVariable><Formula>A*B</Formula></IntSwissKnife>
<IntSwissKnife Name="NoInputs"><pVariable Name="I">Inputs</pVariable><Formula>I=0</Formula>
</IntSwissKnife><IntSwissKnife Name="Always"><Formula>1</Formula></IntSwissKnife>
<IntSwissKnife Name="One"><pVariable Name="S">Step</pVariable>
<pVariable Name="T">TLParamsLocked</pVariable><Formula>S+T</Formula></IntSwissKnife>
<Enumeration Name="Mode"><EnumEntry Name="M"><Value>1</Value></EnumEntry><pValue>ReadOnly</pValue>
</Enumeration><Float Name="Level"><pValue>ReadOnly</pValue></Float><Boolean Name="Flag">
<pValue>ReadOnly</pValue></Boolean><Command Name="Stuck"><pValue>ReadOnly</pValue>
<CommandValue>1</CommandValue></Command>)"
    + intReg("TwinReg", 68) + intReg("Unset", 72, element("pIsAvailable", "NoInputs"))
    + intReg("Held", 76, element("pIsLocked", "Inputs"))
    + intReg("Sealed", 80, element("pIsLocked", "Always"))
    + intReg("Either", 84, element("pIsLocked", "One"));

const char* const members
    = "Int Set Wide Float Text Bool Enum Run AcquisitionStart "
      "AcquisitionStop ReadOnly WriteOnly Streaming Absent Rate Tenfold Step Whole Big Over Broken "
      "Fixed Nil Bytes Chunk Odd Twins Quotient Unset Held Sealed Mode Level Flag Stuck Either "
      "TLParamsLocked";

struct Refusal {
    std::function<int(ZQCameraDevice&)> call;
    int status;
    const char* text;
};

Refusal integer(const char* name, std::int64_t value, int status, const char* text)
{
    return { [=](auto& device) { return device.SetIntegerValue(name, value, 1); }, status, text };
}

Refusal real(const char* name, double value, int status, const char* text)
{
    return { [=](auto& device) { return device.SetFloatValue(name, value); }, status, text };
}

Refusal string(const char* name, const char* value, int status, const char* text)
{
    return { [=](auto& device) { return device.SetStringValue(name, value); }, status, text };
}

Refusal entry(const char* name, const char* value, int status, const char* text)
{
    return { [=](auto& device) { return device.SetEnumValue(name, value, 1); }, status, text };
}

Refusal reading(const char* name, int status, const char* text)
{
    return { [=](auto& device) {
                long value = 5;
                const int code = device.GetIntegerValue(name, &value);
                return value == 5 ? code : STATUS_OK; // left alone
            },
        status, text };
}

TEST(Writes, AreRefusedWithCodeAndSentenceBeforeAnythingIsSent)
{
    TestCamera camera(members, nodes);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Refusal> cases {
        integer("Int", 3, ERROR_VALUE_OUT_OF_RANGE, "Int: 3 is below the minimum of 4"),
        integer("Int", 44, ERROR_VALUE_OUT_OF_RANGE, "Int: 44 is above the maximum of 40"),
        integer("Int", 10, ERROR_VALUE_NOT_ON_INCREMENT, "Int: 10 is not a multiple of 4 from 4"),
        integer("Wide", INT64_MAX, ERROR_VALUE_NOT_ON_INCREMENT,
            "Wide: 9223372036854775807 is not a multiple of 4000000000 from "
            "-9223372036854775808"),
        integer("Over", 256, ERROR_VALUE_OUT_OF_RANGE, "Over: 256 is more than its register holds"),
        integer("Over", -1, ERROR_VALUE_OUT_OF_RANGE, "Over: -1 is more than its register holds"),
        integer("Set", 3, notInValueSet, "Set: 3 is not one of 1;2;4"),
        real("Float", 2.5, ERROR_FLOAT_OUT_OF_RANGE, "Float: 2.5 is above the maximum of 2"),
        real("Float", -1.6, ERROR_FLOAT_OUT_OF_RANGE, "Float: -1.6 is below the minimum of -1.5"),
        real("Float", nan, ERROR_FLOAT_OUT_OF_RANGE, "Float: the value is not a number"),
        string(
            "Text", "\xC3\xA4\xC3\xB6x", textTooLong, "Text: the text has 5 bytes, at most 4 fit"),
        string("Nil", "", textTooLong, "Nil: the text has 0 bytes, at most 0 fit"),
        string("Text", nullptr, invalidArgument, "Text: no text given"),
        string("Fixed", "a", notWritable, "Fixed: is read-only"),
        string("Bytes", "a", notReadable, "Bytes: cannot be used, it is raw data"),
        entry("Enum", "Gone", unknownEntry, "Enum: there is no entry \"Gone\" now"),
        entry("Enum", nullptr, unknownEntry, "Enum: there is no entry \"\" now"),
        entry("Odd", "O", notConvertible,
            "Odd: 256 cannot be written, it is converted into 256, which its register does not "
            "hold"),
        { [](auto& d) { return d.SetBooleanValue("Int", 1); }, wrongKind,
            "Int: holds another kind of value" },
        { [](auto& d) { return d.ExecuteCommand("Int", 1); }, wrongKind,
            "Int: holds another kind of value" },
        integer("Nothing", 1, unknownFeature, "Nothing: the camera has no such feature"),
        integer(nullptr, 1, unknownFeature, "(no name): the camera has no such feature"),
        integer("Broken", 1, notReadable, "Broken: cannot be used, it has no value"),
        integer("ReadOnly", 1, notWritable, "ReadOnly: is read-only"),
        integer("Absent", 1, notAvailable, "Absent: not available now"),
        integer("Unset", 1, notAvailable, "Unset: not available now, depends on Step, Set, Wide"),
        integer("Chunk", 1, notAvailable, "Chunk: comes only with images or events"),
        integer("Held", 1, featureLocked, "Held: locked by Step, Set, Wide"),
        integer("Sealed", 1, featureLocked, "Sealed: locked by the camera"),
        reading("Absent", notAvailable, "Absent: not available now"),
        reading("WriteOnly", notReadable, "WriteOnly: can only be written"),
        reading("Quotient", notReadable, "Quotient: its formula divides by zero now"),
        string("Int", "a", wrongKind, "Int: holds another kind of value"),
        integer("Fixed", 1, wrongKind, "Fixed: holds another kind of value"),
        entry("Mode", "M", notWritable, "Mode: is read-only"),
        real("Level", 1.0, notWritable, "Level: is read-only"),
        { [](auto& d) { return d.SetBooleanValue("Flag", 1); }, notWritable, "Flag: is read-only" },
        { [](auto& d) { return d.ExecuteCommand("Stuck", 1); }, notWritable,
            "Stuck: is read-only" },
        integer("Either", 1, featureLocked, "Either: locked by Step"),
        real("Rate", 0.0, notConvertible,
            "Rate: 0 cannot be written, the camera's formula cannot convert it into a number"),
        real("Rate", 0.0001, notConvertible,
            "Rate: 1e-04 cannot be written, it is converted into 1e+10, which its register does "
            "not hold"),
        integer("Tenfold", 26, notConvertible,
            "Tenfold: 26 cannot be written, it is converted into 260, which its register does not "
            "hold"),
        real("Whole", 1e30, notConvertible,
            "Whole: 1e+30 cannot be written, the camera's formula takes 64-bit integers only"),
        real("Big", 1e39, notConvertible,
            "Big: 1e+39 cannot be written, it is more than its register holds"),
    };
    for (const Refusal& test : cases) {
        EXPECT_EQ(test.call(camera.device), test.status) << test.text;
        EXPECT_EQ(camera.device.GetLastError(), test.status);
        EXPECT_EQ(camera.errorText(test.status), test.text);
    }
    EXPECT_EQ(camera.port.writes(), 0U);
    camera.device.SetIntegerValue("Step", 0, 1);
    EXPECT_EQ(camera.device.SetIntegerValue("Tenfold", 1, 1), notConvertible);
    EXPECT_NE(camera.errorText(notConvertible).find("division by zero"), std::string::npos);
}

TEST(Writes, ReachTheCameraAndReadBack)
{
    TestCamera camera(members, nodes);
    EXPECT_EQ(camera.device.SetIntegerValue("Int", 12, 1), STATUS_OK);
    EXPECT_EQ(camera.device.SetFloatValue("Float", -1.25), STATUS_OK);
    EXPECT_EQ(camera.device.SetStringValue("Text", "\xC3\xA4\xC3\xB6"), STATUS_OK);
    EXPECT_EQ(camera.device.SetEnumValue("Enum", "B", 1), STATUS_OK);
    EXPECT_EQ(camera.device.SetBooleanValue("Bool", 1), STATUS_OK);
    EXPECT_EQ(camera.device.SetIntegerValue("WriteOnly", 7, 1), STATUS_OK);
    EXPECT_EQ(camera.port.writes(), 6U);

    long integer = 0;
    double number = 0.0;
    bool on = false;
    EXPECT_EQ(camera.device.GetIntegerValue("Int", &integer), STATUS_OK);
    EXPECT_EQ(camera.device.GetFloatValue("Float", &number), STATUS_OK);
    EXPECT_EQ(camera.device.GetBooleanValue("Bool", &on), STATUS_OK);
    EXPECT_EQ(integer, 12);
    EXPECT_EQ(number, -1.25);
    EXPECT_TRUE(on);
    EXPECT_EQ(camera.read("Text"), "\xC3\xA4\xC3\xB6");
    EXPECT_EQ(camera.read("Enum"), "1");

    for (const auto& [name, value] : { std::pair("Int", 4), { "Int", 40 }, { "Set", 1 },
             { "Set", 4 }, { "Over", 255 }, { "Over", 0 }, { "Tenfold", 25 } }) {
        EXPECT_EQ(camera.device.SetIntegerValue(name, value, 1), STATUS_OK) << name << value;
        EXPECT_EQ(camera.read(name), std::to_string(value));
    }
    EXPECT_EQ(camera.device.SetFloatValue("Float", 2.0), STATUS_OK);
    EXPECT_EQ(camera.device.SetFloatValue("Float", -1.5), STATUS_OK);
    EXPECT_EQ(camera.device.SetFloatValue("Big", double(FLT_MAX)), STATUS_OK);
    EXPECT_EQ(camera.device.SetIntegerValue("Int", 3, 0), STATUS_OK); // not to be checked
    for (const auto& [index, value] : { std::pair(1, 2), { 0, 1 }, { 1, 2 }, { 2, 1 } }) {
        EXPECT_EQ(camera.device.SetEnumValue("Twins", "T", index), STATUS_OK);
        EXPECT_EQ(camera.registerAt(68), value) << index;
    }
}

TEST(Writes, OfBitsThatCannotBeReadKeepTheOthers)
{
    TestCamera camera("Whole Low",
        intReg("Whole", 0)
            + node("MaskedIntReg", "Low",
                "<Address>0</Address><Length>4</Length><LSB>31</LSB><MSB>28</MSB><AccessMode>WO"
                "</AccessMode><pPort>Device</pPort><Endianess>BigEndian</Endianess>"));
    EXPECT_EQ(camera.device.SetIntegerValue("Whole", 1234 * 16, 1), STATUS_OK);
    EXPECT_EQ(camera.device.SetIntegerValue("Low", 5, 1), STATUS_OK);
    EXPECT_EQ(camera.read("Whole"), std::to_string(1234 * 16 + 5));
    EXPECT_EQ(camera.read("Low"), "");
}

/// A command that is done when it has been looked at so often; 0: never.
class Busy : public CameraBehaviour {
public:
    explicit Busy(int looks)
        : m_looks(looks)
    {
    }
    void start(RegisterMemory&) override { }
    void beforeRead(RegisterMemory& memory, std::uint64_t, std::size_t size) override
    {
        if (--m_looks == 0) {
            const std::vector<std::uint8_t> zeros(size);
            memory.write(0, zeros.data(), size);
        }
    }
    void afterWrite(RegisterMemory&, std::uint64_t, std::size_t) override { }

private:
    int m_looks;
};

TEST(Commands, AreWaitedForUntilTheirRegisterSaysDone)
{
    const std::string run
        = node("Command", "AcquisitionStart", "<pValue>R</pValue><CommandValue>1</CommandValue>")
        + node("Command", "Zero", "<pValue>R</pValue><CommandValue>0</CommandValue>")
        + intReg("R", 0);
    for (const int looks : { 3, 0 }) {
        auto opened = openSimulated(
            TestCamera::description("AcquisitionStart Zero", run), std::make_unique<Busy>(looks));
        ASSERT_TRUE(opened.isOk());
        TestCamera camera(std::make_unique<ZQCamera>(std::move(opened.value())));
        EXPECT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 0), STATUS_OK);
        EXPECT_EQ(camera.device.ExecuteCommand("Zero", 1), STATUS_OK); // a zero cannot go
        EXPECT_EQ(camera.port.reads(), 0U);
        EXPECT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 1),
            looks == 0 ? commandTimeout : STATUS_OK);
        EXPECT_GE(camera.port.reads(), 3U);
        EXPECT_EQ(camera.errorText(commandTimeout),
            looks == 0 ? "AcquisitionStart: not done yet; it goes on in the camera"
                       : "The command was not done in time.");
        EXPECT_NE(camera.device.IsGrabbing(), 0); // it may still happen
    }
}

TEST(Writes, AFailedAccessIsNoSuccess)
{
    TestCamera camera(members, nodes);
    camera.port.setFaultHook([](auto, auto, bool write) { return write; });

    for (const int status :
        { camera.device.SetIntegerValue("Int", 12, 1), camera.device.SetFloatValue("Float", 1.0),
            camera.device.SetEnumValue("Enum", "B", 1), camera.device.SetBooleanValue("Bool", 1),
            camera.device.SetStringValue("Text", "a"), camera.device.ExecuteCommand("Run", 1) }) {
        EXPECT_EQ(status, injectedFault);
    }
    EXPECT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 1), injectedFault);
    EXPECT_EQ(camera.device.IsGrabbing(), 0);
    EXPECT_EQ(camera.read("Streaming"), "0");
    EXPECT_EQ(camera.item("Streaming").lockedFlag, 0);

    camera.port.setFaultHook([](auto, auto, bool write) { return !write; });
    long integer = 0;
    EXPECT_EQ(camera.device.GetIntegerValue("Int", &integer), injectedFault);
    EXPECT_EQ(camera.device.ExecuteCommand("Run", 1), injectedFault);
    EXPECT_EQ(camera.device.SetIntegerValue("Raw", 1, 1), unknownFeature);
}

TEST(Acquisition, LocksWhatTheDescriptionLocksUntilItStops)
{
    TestCamera camera(members, nodes);
    ASSERT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 1), STATUS_OK);
    EXPECT_NE(camera.device.IsGrabbing(), 0);
    EXPECT_EQ(camera.repository.UpdateFeatureStates(), STATUS_OK);
    EXPECT_EQ(camera.state("Streaming"), FEATURE_LOCKED);
    camera.read("Streaming");
    EXPECT_EQ(camera.read("TLParamsLocked"), "1");
    EXPECT_EQ(camera.item("Streaming").lockedFlag, 1);
    EXPECT_NE(camera.item("Streaming").description.find("locked by TLParamsLocked: stop the "),
        std::string::npos);
    EXPECT_EQ(camera.device.SetIntegerValue("Streaming", 1, 1), featureLocked);

    ASSERT_EQ(camera.device.ExecuteCommand("AcquisitionStop", 1), STATUS_OK);
    EXPECT_EQ(camera.device.IsGrabbing(), 0);
    EXPECT_EQ(camera.device.SetIntegerValue("Streaming", 1, 1), STATUS_OK);
}

TEST(ErrorText, EveryCodeHasANameAndASentence)
{
    TestCamera camera(members, nodes);
    for (const int code : { int(STATUS_OK), int(ERROR_VALUE_OUT_OF_RANGE), unknownFeature,
             notWritable, cameraLost, deviceErrorBase + 5, 12345 }) {
        std::array<char, errorTextSize> name { 1 };
        std::array<char, errorTextSize> text { 1 };
        camera.device.GetErrorText(code, name.data(), text.data());
        EXPECT_GT(std::string(name.data()).size(), 1U) << code;
        EXPECT_GT(std::string(text.data()).size(), 5U) << code;
    }
    // A name longer than the buffer is cut between characters.
    std::string longName;
    for (int i = 0; i < 200; ++i) {
        longName += "\xC3\xA4";
    }
    camera.device.SetIntegerValue(longName.c_str(), 1, 1);
    EXPECT_EQ(camera.errorText(unknownFeature).size(), 254U);
}

} // namespace
