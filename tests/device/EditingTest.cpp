#include "TestCamera.h"
#include "base/StatusCodes.h"

#include <array>
#include <cmath>
#include <limits>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

const std::string nodes = intReg("Reg", 0)
    + "<Integer Name=\"Int\"><pValue>Reg</pValue><Min>4</Min><Max>40</Max><Inc>4</Inc></Integer>"
      "<Integer Name=\"Set\"><Value>1</Value><ValidValueSet>1;2;4</ValidValueSet></Integer>"
      "<Integer Name=\"Wide\"><Value>0</Value><Min>-9223372036854775808</Min>"
      "<Max>9223372036854775807</Max><Inc>4000000000</Inc></Integer>"
      "<FloatReg Name=\"FReg\"><Address>4</Address><Length>8</Length><AccessMode>RW</AccessMode>"
      "<pPort>Device</pPort><Endianess>BigEndian</Endianess></FloatReg>"
      "<Float Name=\"Float\"><pValue>FReg</pValue><Min>-1.5</Min><Max>2</Max></Float>"
      "<StringReg Name=\"Text\"><Address>16</Address><Length>4</Length><AccessMode>RW</AccessMode>"
      "<pPort>Device</pPort></StringReg>"
      "<Boolean Name=\"Bool\"><pValue>BoolReg</pValue></Boolean>"
      "<Enumeration Name=\"Enum\"><EnumEntry Name=\"A\"><Value>5</Value></EnumEntry>"
      "<EnumEntry Name=\"Gone\"><Value>6</Value><pIsAvailable>Never</pIsAvailable></EnumEntry>"
      "<EnumEntry Name=\"B\"><Value>7</Value></EnumEntry><pValue>EnumReg</pValue></Enumeration>"
      "<IntSwissKnife Name=\"Never\"><Formula>0</Formula></IntSwissKnife>"
      "<Command Name=\"Run\"><pValue>RunReg</pValue><CommandValue>1</CommandValue></Command>"
      "<Integer Name=\"TLParamsLocked\"><Value>0</Value></Integer>"
      "<Command Name=\"AcquisitionStart\"><pValue>RunReg</pValue><CommandValue>1</CommandValue>"
      "</Command><Command Name=\"AcquisitionStop\"><pValue>RunReg</pValue>"
      "<CommandValue>2</CommandValue></Command>"
    + intReg("BoolReg", 24) + intReg("EnumReg", 28) + intReg("RunReg", 32)
    + intReg("ReadOnly", 36, element("AccessMode", "RO"))
    + intReg("WriteOnly", 40, element("AccessMode", "WO"))
    + intReg("Streaming", 44, element("pIsLocked", "TLParamsLocked"))
    + intReg("Absent", 48, element("pIsAvailable", "Never")) + intReg("Raw", 52)
    + intReg("Narrow", 56, "<Length>1</Length>")
    + "<Float Name=\"Rate\"><pValue>Period</pValue><Min>0</Min><Max>1e6</Max></Float>"
      "<Converter Name=\"Period\"><FormulaTo>1000000/FROM</FormulaTo><FormulaFrom>1000000/TO"
      "</FormulaFrom><pValue>Raw</pValue></Converter>"
      "<Integer Name=\"Tenfold\"><pValue>Tens</pValue><Min>0</Min><Max>99</Max></Integer>"
      "<IntConverter Name=\"Tens\"><pVariable Name=\"S\">Step</pVariable><FormulaTo>FROM*10/S"
      "</FormulaTo><FormulaFrom>TO*S/10</FormulaFrom><pValue>Narrow</pValue></IntConverter>"
      "<Integer Name=\"Step\"><Value>1</Value></Integer>"
      "<Float Name=\"Whole\"><pValue>Tens</pValue><Min>0</Min><Max>1e300</Max></Float>"
      "<Float Name=\"Big\"><pValue>Single</pValue><Max>1e300</Max></Float>"
      "<FloatReg Name=\"Single\"><Address>60</Address><Length>4</Length><AccessMode>RW"
      "</AccessMode><pPort>Device</pPort></FloatReg>";

const char* const members
    = "Int Set Wide Float Text Bool Enum Run AcquisitionStart "
      "AcquisitionStop ReadOnly WriteOnly Streaming Absent Rate Tenfold Step Whole Big";

struct Refusal {
    std::function<int(ZQCameraDevice&)> call;
    int status;
    const char* text;
};

TEST(Writes, AreRefusedWithCodeAndTextBeforeAnythingIsSent)
{
    TestCamera camera(members, nodes);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Refusal> cases {
        { [](auto& d) { return d.SetIntegerValue("Int", 3, 1); }, ERROR_VALUE_OUT_OF_RANGE,
            "Int: 3 is below the minimum of 4" },
        { [](auto& d) { return d.SetIntegerValue("Int", 44, 1); }, ERROR_VALUE_OUT_OF_RANGE,
            "Int: 44 is above the maximum of 40" },
        { [](auto& d) { return d.SetIntegerValue("Int", 10, 1); }, ERROR_VALUE_NOT_ON_INCREMENT,
            "Int: 10 is not a multiple of 4 from 4" },
        { [](auto& d) { return d.SetIntegerValue("Wide", INT64_MAX, 1); },
            ERROR_VALUE_NOT_ON_INCREMENT, "Wide: 9223372036854775807 is not a multiple" },
        { [](auto& d) { return d.SetIntegerValue("Set", 3, 1); }, notInValueSet,
            "Set: 3 is not one of 1;2;4" },
        { [](auto& d) { return d.SetFloatValue("Float", 2.5); }, ERROR_FLOAT_OUT_OF_RANGE,
            "Float: 2.5 is above the maximum of 2" },
        { [](auto& d) { return d.SetFloatValue("Float", -1.6); }, ERROR_FLOAT_OUT_OF_RANGE,
            "below the minimum of -1.5" },
        { [nan](auto& d) { return d.SetFloatValue("Float", nan); }, ERROR_FLOAT_OUT_OF_RANGE,
            "not a number" },
        { [](auto& d) { return d.SetStringValue("Text", "\xC3\xA4\xC3\xB6x"); }, textTooLong,
            "Text: the text has 5 bytes, at most 4 fit" },
        { [](auto& d) { return d.SetStringValue("Text", nullptr); }, invalidArgument, "no text" },
        { [](auto& d) { return d.SetEnumValue("Enum", "Gone", 1); }, unknownEntry,
            "Enum: there is no entry \"Gone\" now" },
        { [](auto& d) { return d.SetBooleanValue("Int", 1); }, wrongKind, "another kind" },
        { [](auto& d) { return d.SetIntegerValue("Nothing", 1, 1); }, unknownFeature,
            "Nothing: the camera has no such feature" },
        { [](auto& d) { return d.SetIntegerValue(nullptr, 1, 1); }, unknownFeature, "(no name)" },
        { [](auto& d) { return d.SetIntegerValue("ReadOnly", 1, 1); }, notWritable,
            "ReadOnly: is read-only" },
        { [](auto& d) { return d.SetIntegerValue("Absent", 1, 1); }, notAvailable,
            "not available now" },
        { [](auto& d) {
             long v = 0;
             return d.GetIntegerValue("WriteOnly", &v);
         },
            notReadable, "can only be written" },
        { [](auto& d) { return d.ExecuteCommand("Int", 1); }, wrongKind, "another kind" },
        { [](auto& d) { return d.SetFloatValue("Rate", 0.0); }, notConvertible,
            "Rate: 0 cannot be written, the camera's formula cannot convert it" },
        { [](auto& d) { return d.SetFloatValue("Rate", 0.0001); }, notConvertible,
            "converted into 1e+10, which its register does not hold" },
        { [](auto& d) { return d.SetIntegerValue("Tenfold", 26, 1); }, notConvertible,
            "converted into 260, which its register does not hold" },
        { [](auto& d) {
             return d.SetIntegerValue("Step", 0, 1) + d.SetIntegerValue("Tenfold", 1, 1);
         },
            notConvertible, "division by zero" },
        { [](auto& d) { return d.SetFloatValue("Whole", 1e30); }, notConvertible,
            "takes 64-bit integers only" },
        { [](auto& d) { return d.SetFloatValue("Big", 1e39); }, notConvertible,
            "more than its register holds" },
    };
    for (const Refusal& test : cases) {
        EXPECT_EQ(test.call(camera.device), test.status) << test.text;
        EXPECT_EQ(camera.device.GetLastError(), test.status);
        EXPECT_NE(camera.errorText(test.status).find(test.text), std::string::npos)
            << camera.errorText(test.status);
    }
    EXPECT_EQ(camera.port.writes(), 0U);
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
}

TEST(Acquisition, LocksWhatTheDescriptionLocksUntilItStops)
{
    TestCamera camera(members, nodes);
    ASSERT_EQ(camera.device.ExecuteCommand("AcquisitionStart", 1), STATUS_OK);
    EXPECT_NE(camera.device.IsGrabbing(), 0);
    EXPECT_EQ(camera.repository.UpdateFeatureStates(), STATUS_OK);
    EXPECT_EQ(camera.state("Streaming"), FEATURE_LOCKED);
    camera.read("Streaming");
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
