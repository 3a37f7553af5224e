// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"
#include "base/BigEndian.h"
#include "base/StatusCodes.h"
#include "memory/RegisterMemory.h"
#include "opening/SimulatedOpening.h"

#include <array>
#include <cfloat>
#include <limits>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

const std::string nodes = intReg("Reg", 0) + reg("FloatReg", "FReg", 4, "<Length>8</Length>")
    + reg("StringReg", "Text", 16) + intReg("BoolReg", 24) + intReg("EnumReg", 28)
    + intReg("RunReg", 32) + intReg("ReadOnly", 36, "<AccessMode>RO</AccessMode>")
    + intReg("WriteOnly", 40, "<AccessMode>WO</AccessMode>")
    + intReg("Streaming", 44, "<pIsLocked>TLParamsLocked</pIsLocked>")
    + intReg("Absent", 48, "<pIsAvailable>Never</pIsAvailable>") + intReg("Raw", 52)
    + intReg("Narrow", 56, "<Length>1</Length>") + reg("FloatReg", "Single", 60)
    + reg("StringReg", "Fixed", 64, "<AccessMode>RO</AccessMode>")
    + reg("StringReg", "Nil", 64, "<pLength>Never</pLength>") + reg("Register", "Bytes", 64)
    + intReg("Chunk", 0, "<pPort>Image</pPort>") + intReg("TwinReg", 68)
    + intReg("Unset", 72, "<pIsAvailable>NoInputs</pIsAvailable>")
    + intReg("Held", 76, "<pIsLocked>Inputs</pIsLocked>")
    + intReg("Sealed", 80, "<pIsLocked>Always</pIsLocked>")
    + reg("StringReg", "Vague", 88, "<pLength>Quotient</pLength>")
    + intReg("Astray", 88, "<pAddress>Quotient</pAddress>")
    + intReg("Either", 84, "<pIsLocked>One</pIsLocked>") + knife("IntSwissKnife", "Never", {}, "0")
    + intReg("Under", 92, "<pIsLocked>OverTwins</pIsLocked>")
    + knife("IntSwissKnife", "OverTwins", { "TwinReg" }, "1")
    + knife("IntSwissKnife", "Always", {}, "1")
    + knife("IntSwissKnife", "Quotient", { "Never" }, "1/Never")
    + knife("IntSwissKnife", "Inputs", { "Step", "Set", "Wide", "Int" }, "Step*Set")
    + knife("IntSwissKnife", "NoInputs", { "Inputs" }, "Inputs=0")
    + knife("IntSwissKnife", "One", { "Step", "TLParamsLocked" }, "Step+TLParamsLocked")
    + command("Run", "RunReg", "1") + command("AcquisitionStart", "RunReg", "1")
    + command("AcquisitionStop", "RunReg", "2") + command("Stuck", "ReadOnly", "1") + R"(
<Integer Name="Int"><pValue>Reg</pValue><Min>4</Min><Max>40</Max><Inc>4</Inc></Integer>
<Integer Name="Set"><Value>1</Value><ValidValueSet>1;2;4</ValidValueSet></Integer>
<Integer Name="Wide"><Value>0</Value><Min>-9223372036854775808</Min>
<Max>9223372036854775807</Max><Inc>4000000000</Inc></Integer><Integer Name="Broken"/>
<Integer Name="Tenfold"><pValue>Tens</pValue><Min>0</Min><Max>99</Max></Integer>
<Integer Name="Over"><pValue>Narrow</pValue><Min>-5</Min><Max>1000</Max></Integer>
<Integer Name="Step"><Value>1</Value></Integer><Integer Name="TLParamsLocked"><Value>0</Value>
</Integer><Float Name="Float"><pValue>FReg</pValue><Min>-1.5</Min><Max>2</Max></Float>
<Float Name="Rate"><pValue>Period</pValue><Min>0</Min><Max>1e6</Max></Float>
<Float Name="Whole"><pValue>Tens</pValue><Min>0</Min><Max>1e300</Max></Float>
<Float Name="Big"><pValue>Single</pValue><Max>1e300</Max></Float>
<Float Name="Level"><pValue>ReadOnly</pValue></Float>
<Integer Name="Picked"><pIndex>Quotient</pIndex><pValueIndexed Index="0">Reg</pValueIndexed>
</Integer><Integer Name="Bound"><pValue>Reg</pValue><pMax>ReadOnly</pMax></Integer>
<Float Name="Limitless"><pValue>FReg</pValue><pMax>Quotient</pMax></Float>
<Boolean Name="Far"><pValue>Narrow</pValue><OnValue>256</OnValue></Boolean>
<Boolean Name="Bool"><pValue>BoolReg</pValue></Boolean>
<Boolean Name="Flag"><pValue>ReadOnly</pValue></Boolean>
<Enumeration Name="Enum"><EnumEntry Name="A"><Value>5</Value></EnumEntry><EnumEntry Name="Gone">
<Value>6</Value><pIsAvailable>Never</pIsAvailable></EnumEntry><EnumEntry Name="B"><Value>7</Value>
</EnumEntry><pValue>EnumReg</pValue></Enumeration>
<Enumeration Name="Odd"><EnumEntry Name="O"><Value>256</Value></EnumEntry><pValue>Narrow</pValue>
</Enumeration><Enumeration Name="Twins"><EnumEntry Name="T"><Value>1</Value></EnumEntry>
<EnumEntry Name="T"><Value>2</Value></EnumEntry><pValue>TwinReg</pValue></Enumeration>
<Enumeration Name="Mode"><EnumEntry Name="M"><Value>1</Value></EnumEntry><pValue>ReadOnly</pValue>
</Enumeration><Converter Name="Period"><FormulaTo>1000000/FROM</FormulaTo>
<FormulaFrom>1000000/TO</FormulaFrom><pValue>Raw</pValue></Converter><IntConverter Name="Tens">
<pVariable Name="S">Step</pVariable><FormulaTo>FROM*10/S</FormulaTo><FormulaFrom>TO*S/10
</FormulaFrom><pValue>Narrow</pValue></IntConverter><Port Name="Image"><ChunkID>1</ChunkID></Port>)";

const char* const members
    = "Int Set Wide Float Text Bool Enum Run AcquisitionStart "
      "AcquisitionStop ReadOnly WriteOnly Streaming Absent Rate Tenfold Step Whole Big Over Broken "
      "Fixed Nil Bytes Under Chunk Odd Twins Quotient Unset Held Sealed Mode Level Flag Stuck "
      "Either "
      "TLParamsLocked Bound Limitless Far Vague Astray Picked";

struct Refusal {
    const char* name;
    std::function<int(TestCamera&, const char*)> call;
    int status;
    const char* text;
};

template <class Value> auto set(Value value)
{
    return [=](TestCamera& camera, const char* name) { return camera.set(name, value); };
}

auto choose(const char* entry)
{
    return
        [=](auto& camera, const char* name) { return camera.device.SetEnumValue(name, entry, 1); };
}

const auto check
    = [](TestCamera& camera, const char* name) { return camera.device.SetBooleanValue(name, 1); };
const auto run
    = [](TestCamera& camera, const char* name) { return camera.device.ExecuteCommand(name, 1); };
const auto get = [](TestCamera& camera, const char* name) {
    long value = 5;
    const int code = camera.device.GetIntegerValue(name, &value);
    return value == 5 ? code : STATUS_OK; // left alone
};

const auto getReal = [](TestCamera& camera, const char* name) {
    double value = 5.0;
    const int code = camera.device.GetFloatValue(name, &value);
    return value == 5.0 ? code : STATUS_OK;
};
const auto getState = [](TestCamera& camera, const char* name) {
    bool value = false;
    return camera.device.GetBooleanValue(name, &value);
};

TEST(Writes, AreRefusedWithCodeAndSentenceBeforeAnythingIsSent)
{
    TestCamera camera(members, nodes);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Refusal> cases {
        { "Int", set(3), ERROR_VALUE_OUT_OF_RANGE, "3 is below the minimum of 4" },
        { "Int", set(44), ERROR_VALUE_OUT_OF_RANGE, "44 is above the maximum of 40" },
        { "Int", set(10), ERROR_VALUE_NOT_ON_INCREMENT, "10 is not a multiple of 4 from 4" },
        { "Wide", set(INT64_MAX), ERROR_VALUE_NOT_ON_INCREMENT,
            "9223372036854775807 is not a multiple of 4000000000 from -9223372036854775808" },
        { "Over", set(256), ERROR_VALUE_OUT_OF_RANGE, "256 is more than its register holds" },
        { "Over", set(-1), ERROR_VALUE_OUT_OF_RANGE, "-1 is more than its register holds" },
        { "Set", set(3), notInValueSet, "3 is not one of 1;2;4" },
        { "Float", set(2.5), ERROR_FLOAT_OUT_OF_RANGE, "2.5 is above the maximum of 2" },
        { "Float", set(-1.6), ERROR_FLOAT_OUT_OF_RANGE, "-1.6 is below the minimum of -1.5" },
        { "Float", set(nan), ERROR_FLOAT_OUT_OF_RANGE, "the value is not a number" },
        { "Text", set("\xC3\xA4\xC3\xB6x"), textTooLong, "the text has 5 bytes, at most 4 fit" },
        { "Nil", set(""), textTooLong, "the text has 0 bytes, at most 0 fit" },
        { "Text", set(static_cast<const char*>(nullptr)), invalidArgument, "no text given" },
        { "Fixed", set("a"), notWritable, "is read-only" },
        { "Bytes", set("a"), notReadable, "cannot be used, it is raw data" },
        { "Enum", choose("Gone"), unknownEntry, "there is no entry \"Gone\" now" },
        { "Enum", choose(nullptr), unknownEntry, "there is no entry \"\" now" },
        { "Odd", choose("O"), notConvertible,
            "256 cannot be written, it is converted into 256, which its register does not hold" },
        { "Int", check, wrongKind, "holds another kind of value" },
        { "Int", run, wrongKind, "holds another kind of value" },
        { "Int", getReal, wrongKind, "holds another kind of value" },
        { "Int", getState, wrongKind, "holds another kind of value" },
        { "Main", set(1), wrongKind, "holds another kind of value" },
        { "Vague", set("a"), notEvaluable,
            "its limits cannot be told, its formula divides by zero now" },
        { "Picked", set(1), notEvaluable,
            "its limits cannot be told, its formula divides by zero now" },
        { "Astray", get, notEvaluable, "its formula divides by zero now" },
        { "Astray", set(1), notEvaluable, "its formula divides by zero now" },
        { "Nothing", set(1), unknownFeature, "the camera has no such feature" },
        { nullptr, set(1), unknownFeature, "the camera has no such feature" },
        { "Broken", set(1), notReadable, "cannot be used, it has no value" },
        { "ReadOnly", set(1), notWritable, "is read-only" },
        { "Absent", set(1), notAvailable, "not available now" },
        { "Unset", set(1), notAvailable, "not available now, depends on Step, Set, Wide" },
        { "Chunk", set(1), notAvailable, "comes only with images or events" },
        { "Held", set(1), featureLocked, "locked by Step, Set, Wide" },
        { "Sealed", set(1), featureLocked, "locked by the camera" },
        { "Under", set(1), featureLocked, "locked by Twins" },
        { "Absent", get, notAvailable, "not available now" },
        { "WriteOnly", get, notReadable, "can only be written" },
        { "Quotient", get, notEvaluable, "its formula divides by zero now" },
        { "Int", set("a"), wrongKind, "holds another kind of value" },
        { "Fixed", set(1), wrongKind, "holds another kind of value" },
        { "Mode", choose("M"), notWritable, "is read-only" },
        { "Level", set(1.0), notWritable, "is read-only" },
        { "Flag", check, notWritable, "is read-only" },
        { "Stuck", run, notWritable, "is read-only" },
        { "Either", set(1), featureLocked, "locked by Step" },
        { "Rate", set(0.0), notConvertible,
            "0 cannot be written, the camera's formula cannot convert it: its formula divides by "
            "zero now" },
        { "Rate", set(0.0001), notConvertible,
            "1e-04 cannot be written, it is converted into 1e+10, which its register does not "
            "hold" },
        { "Tenfold", set(26), notConvertible,
            "26 cannot be written, it is converted into 260, which its register does not hold" },
        { "Far", check, notConvertible,
            "1 cannot be written, it is converted into 256, which its register does not hold" },
        { "Limitless", set(1.0), notEvaluable,
            "its limits cannot be told, its formula divides by zero now" },
        { "Whole", set(1e30), notConvertible,
            "1e+30 cannot be written, the camera's formula takes 64-bit integers only" },
        { "Big", set(1e39), notConvertible,
            "1e+39 cannot be written, it is more than its register holds" },
    };
    for (const Refusal& test : cases) {
        const std::string name = test.name == nullptr ? "(no name)" : test.name;
        EXPECT_EQ(test.call(camera, test.name), test.status) << name << test.text;
        EXPECT_EQ(camera.device.GetLastError(), test.status);
        EXPECT_EQ(camera.errorText(test.status), name + ": " + test.text);
    }
    EXPECT_EQ(camera.port.writes(), 0U);
    camera.set("Step", 0);
    EXPECT_EQ(camera.set("Tenfold", 1), notConvertible);
    EXPECT_NE(camera.errorText(notConvertible).find("divides by zero"), std::string::npos);
}

TEST(Writes, ReachTheCameraAndReadBack)
{
    TestCamera camera(members, nodes);
    ZQCameraDevice& device = camera.device;
    for (const int status : { camera.set("Int", 12), camera.set("Float", -1.25),
             camera.set("Text", "\xC3\xA4\xC3\xB6"), device.SetEnumValue("Enum", "B", 1),
             device.SetBooleanValue("Bool", 1), camera.set("WriteOnly", 7) }) {
        EXPECT_EQ(status, STATUS_OK);
    }
    EXPECT_EQ(camera.port.writes(), 6U);
    long integer = 0;
    double number = 0.0;
    bool on = false;
    EXPECT_EQ(device.GetIntegerValue("Int", &integer), STATUS_OK);
    EXPECT_EQ(device.GetFloatValue("Float", &number), STATUS_OK);
    EXPECT_EQ(device.GetBooleanValue("Bool", &on), STATUS_OK);
    EXPECT_EQ(std::tuple(integer, number, on), std::tuple(12, -1.25, true));
    EXPECT_EQ(camera.read("Text"), "\xC3\xA4\xC3\xB6");
    EXPECT_EQ(camera.read("Enum"), "1");

    for (const auto& [name, value] : { std::pair("Int", 4), { "Int", 40 }, { "Set", 1 },
             { "Set", 4 }, { "Over", 255 }, { "Over", 0 }, { "Tenfold", 25 } }) {
        EXPECT_EQ(camera.set(name, value), STATUS_OK) << name << value;
        EXPECT_EQ(camera.read(name), std::to_string(value));
    }
    for (const auto& [name, value] :
        { std::pair("Float", 2.0), { "Float", -1.5 }, { "Big", double(FLT_MAX) } }) {
        EXPECT_EQ(camera.set(name, value), STATUS_OK) << name << value;
    }
    EXPECT_EQ(camera.item("Big").floatMin, -double(FLT_MAX));
    EXPECT_EQ(camera.set("Int", 3, 0), STATUS_OK); // not to be checked
    for (const auto& [index, value] : { std::pair(1, 2), { 0, 1 }, { 1, 2 }, { 2, 1 } }) {
        EXPECT_EQ(device.SetEnumValue("Twins", "T", index), STATUS_OK);
        EXPECT_EQ(camera.registerAt(68), value) << index;
    }
}

TEST(Writes, OfATextWithoutARegisterAreKept)
{
    TestCamera camera("S", node("String", "S", "<Value>old</Value>"));
    EXPECT_EQ(camera.item("S").maxLength, 0U); // nothing limits it
    EXPECT_EQ(camera.set("S", "something new"), STATUS_OK);
    EXPECT_EQ(camera.read("S"), "something new");
}

TEST(Writes, OfBitsNeedTheOthersAndALengthThatHoldsThem)
{
    TestCamera camera("Low Size",
        reg("MaskedIntReg", "Low", 0, "<LSB>0</LSB><MSB>15</MSB><pLength>Size</pLength>")
            + node("Integer", "Size", "<Value>2</Value>"));
    camera.port.invalidate();
    camera.port.setFaultHook([](auto, auto, bool write) { return !write; });
    EXPECT_EQ(camera.set("Low", 1, 0), injectedFault);
    EXPECT_EQ(camera.port.writes(), 0U);
    camera.port.setFaultHook(nullptr);
    EXPECT_EQ(camera.set("Low", 1), STATUS_OK);
    EXPECT_EQ(camera.set("Size", 1), STATUS_OK);
    EXPECT_EQ(camera.set("Low", 2, 0), notEvaluable);
    camera.read("Low");
    EXPECT_EQ(camera.state("Low"), FEATURE_READ_FAILED);
}

TEST(Writes, OfBitsThatCannotBeReadKeepTheOthersWhereARegisterShowsThem)
{
    const std::string low = "<LSB>31</LSB><MSB>28</MSB><AccessMode>WO</AccessMode>";
    for (const auto& [whole, isKept] : { std::pair(intReg("Whole", 0), true),
             { intReg("Whole", 0, "<AccessMode>RO</AccessMode>"), true },
             { intReg("Whole", 0, "<AccessMode>WO</AccessMode>"), false },
             { intReg("Whole", 4), false }, { intReg("Whole", 0, "<Length>2</Length>"), false },
             { intReg("Whole", 2, "<Length>2</Length>"), false } }) {
        TestCamera camera("Whole Low", whole + reg("MaskedIntReg", "Low", 0, low));
        EXPECT_TRUE(camera.port.write({ 0, 4 }, toBigEndian(std::uint32_t(0x73)).data()).isOk());
        EXPECT_EQ(camera.set("Low", 5), STATUS_OK);
        EXPECT_EQ(camera.registerAt(0), isKept ? 0x75 : 5) << whole;
        EXPECT_EQ(camera.read("Low"), "");
    }
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
    for (const auto& [looks, value] : { std::pair(3, "<pCommandValue>One</pCommandValue>"),
             { 0, "<CommandValue>1</CommandValue>" } }) {
        const std::string busy = TestCamera::description("AcquisitionStart Zero Kept Blind",
            node("Command", "AcquisitionStart", std::string("<pValue>R</pValue>") + value)
                + node("Integer", "One", "<Value>1</Value>") + command("Zero", "R", "0")
                + command("Kept", "One", "1") + command("Blind", "W", "1")
                + intReg("W", 8, "<AccessMode>WO</AccessMode>") + intReg("R", 0));
        TestCamera camera(openSimulated(busy, std::make_unique<Busy>(looks)));
        EXPECT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 0), STATUS_OK);
        EXPECT_EQ(camera.device.ExecuteCommand("Zero", 1), STATUS_OK); // a zero cannot go
        EXPECT_EQ(camera.device.ExecuteCommand("Kept", 1), STATUS_OK); // nor what no camera has
        EXPECT_EQ(camera.device.ExecuteCommand("Blind", 1), STATUS_OK); // or lets nobody see
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

    for (const int status : { camera.set("Int", 12), camera.set("Float", 1.0),
             camera.device.SetEnumValue("Enum", "B", 1), camera.device.SetBooleanValue("Bool", 1),
             camera.set("Text", "a"), camera.device.ExecuteCommand("Run", 1) }) {
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
    EXPECT_EQ(camera.set("Bound", 1), injectedFault);
    EXPECT_EQ(camera.set("Raw", 1), unknownFeature);
}

TEST(Acquisition, LocksWhatTheDescriptionLocksUntilItStops)
{
    TestCamera camera(members, nodes);
    ASSERT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 1), STATUS_OK);
    EXPECT_NE(camera.device.IsGrabbing(), 0);
    EXPECT_EQ(camera.repository.UpdateFeatureStates(), STATUS_OK);
    EXPECT_EQ(camera.state("Streaming"), FEATURE_LOCKED);
    const std::string reason
        = "Cannot be changed now: locked by TLParamsLocked: stop the acquisition to change it.";
    EXPECT_EQ(camera.repository.GetReason("Streaming"), reason);
    EXPECT_EQ(camera.item("Streaming").description, reason);
    camera.read("Streaming");
    EXPECT_EQ(camera.read("TLParamsLocked"), "1");
    EXPECT_EQ(camera.item("Streaming").lockedFlag, 1);
    EXPECT_EQ(camera.item("Streaming").description, reason);
    EXPECT_EQ(camera.set("Streaming", 1), featureLocked);

    ASSERT_EQ(camera.device.ExecuteCommand("AcquisitionStop", 1), STATUS_OK);
    EXPECT_EQ(camera.repository.UpdateFeatureStates(), STATUS_OK);
    EXPECT_EQ(camera.repository.GetReason("Streaming") + camera.item("Streaming").description, "");
    EXPECT_EQ(camera.device.IsGrabbing(), 0);
    EXPECT_EQ(camera.set("Streaming", 1), STATUS_OK);
}

TEST(Acquisition, StartsWhereTheStartIsFreedByTheLockOfTheRest)
{
    for (const auto& [lock, status] : { std::pair("T=0", int(STATUS_OK)), { "T", STATUS_OK },
             { "1", featureLocked }, { "0", STATUS_OK } }) {
        TestCamera camera("AcquisitionStart",
            node("Command", "AcquisitionStart",
                "<pIsLocked>Lock</pIsLocked><pValue>R</pValue><CommandValue>1</CommandValue>")
                + node("IntSwissKnife", "Lock",
                    "<pVariable Name=\"T\">TLParamsLocked</pVariable>" + element("Formula", lock))
                + node("Integer", "TLParamsLocked", "<Value>0</Value>") + intReg("R", 0));
        EXPECT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 0), status) << lock;
        EXPECT_EQ(camera.device.IsGrabbing(), status == STATUS_OK ? 1 : 0) << lock;
    }
}

TEST(Acquisition, TakesNoTextForItsLock)
{
    TestCamera camera("AcquisitionStart TLParamsLocked",
        command("AcquisitionStart", "R", "1") + intReg("R", 8)
            + reg("StringReg", "TLParamsLocked", 0));
    EXPECT_EQ(camera.set("TLParamsLocked", "text"), STATUS_OK);
    EXPECT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 0), STATUS_OK);
    EXPECT_EQ(camera.read("TLParamsLocked"), "text");
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
        EXPECT_EQ(camera.repository.GetErrorText(code), text.data());
    }
    // A name longer than the buffer is cut between characters.
    camera.set(repeated(200, [](int) { return "\xC3\xA4"; }).c_str(), 1);
    EXPECT_EQ(camera.errorText(unknownFeature).size(), 254U);
}

} // namespace
