// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "TestCamera.h"
#include "base/StatusCodes.h"

#include <cfloat>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

TEST(FeatureListing, EachNameOnceInTreeOrderInsideACategory)
{
    std::string xml = TestCamera::description("A Missing Main Secret Sub A Hidden",
        intReg("A", 0) + intReg("B", 4) + intReg("Direct", 8)
            + intReg("Hidden", 12, element("Visibility", "Invisible"))
            + R"(<Category Name="Sub"><pFeature>B</pFeature><pFeature>A</pFeature>
                 <pFeature>Main</pFeature><pFeature>Empty</pFeature></Category>
                 <Category Name="Empty"><pFeature>Hidden</pFeature></Category>
                 <Category Name="Secret"><Visibility>Invisible</Visibility>
                 <pFeature>Hidden</pFeature><pFeature>InSecret</pFeature></Category>)"
            + intReg("InSecret", 16));
    xml.replace(xml.find("Main</pFeature></Category>"), 4, "Main</pFeature><pFeature>Bare");
    xml.replace(xml.find("<Port"), 0, "<Category Name=\"Bare\"/>");
    std::string direct = xml;
    direct.replace(direct.find("<pFeature>Main"), 0, "<pFeature>Direct</pFeature>");

    const std::string listed = "Main:0 A:1 Secret:1 InSecret:2 Sub:1 B:2";
    EXPECT_EQ(TestCamera(openDescription(xml)).listed(), listed);
    EXPECT_EQ(TestCamera(openDescription(direct)).listed(), "Root:0 Direct:1 " + listed);
}

TEST(FeatureListing, WhatNobodyIsToSeeIsThereForPrograms)
{
    TestCamera camera("A Hidden",
        intReg("A", 0) + intReg("Hidden", 4, element("Visibility", "Invisible"))
            + intReg("Unnamed", 8));
    EXPECT_EQ(camera.listed(), "Main:0 A:1");
    EXPECT_EQ(camera.set("Hidden", 7), STATUS_OK);
    EXPECT_EQ(camera.registerAt(4), 7);
    EXPECT_EQ(camera.set("Unnamed", 7), unknownFeature);
}

TEST(FeatureListing, NotImplementedIsLeftOutAndNotAvailableIsListedAsSuch)
{
    TestCamera camera("A E B C D",
        node("Category", "E", "<pFeature>A</pFeature>")
            + node("Category", "D", "<pIsImplemented>Never</pIsImplemented><pFeature>In</pFeature>")
            + intReg("In", 12) + intReg("A", 0, element("pIsImplemented", "Never"))
            + intReg("B", 4, element("pIsAvailable", "Never")) + intReg("C", 8)
            + knife("IntSwissKnife", "Never", {}, "0"));

    EXPECT_EQ(camera.listed(), "Main:0 B:1 C:1 D:1 In:2");
    EXPECT_EQ(camera.state("In"), FEATURE_NOT_AVAILABLE); // as what it is in
    EXPECT_EQ(camera.item("B").accessMode, ACCESS_NOT_AVAILABLE);
    EXPECT_EQ(camera.item("B").lockedFlag, 1);
    EXPECT_EQ(camera.item("B").displayFlag, 0);
    EXPECT_EQ(camera.state("B"), FEATURE_NOT_AVAILABLE);
    EXPECT_NE(camera.item("B").description.find("not available now"), std::string::npos);
}

struct ValueCase {
    const char* what;
    std::string node; ///< defines F over register R
    std::vector<std::uint8_t> bytes; ///< what R holds
    std::string expected; ///< "text flag access [limits]"
};

std::string named(const std::string& tag, const std::string& content)
{
    return node(tag, "F", content);
}

const std::string over = "<pValue>R</pValue>";

/// F over the 4-byte register R.
std::string overR(const std::string& tag, const std::string& content, const std::string& more = {})
{
    return named(tag, over + content) + intReg("R", 0, more);
}

std::string place(const std::string& tag, const std::string& more)
{
    return reg(tag, "F", 0, more);
}

const std::string zero = knife("IntSwissKnife", "Zero", {}, "0");
const std::string choice
    = overR("Enumeration", R"(<EnumEntry Name="One"><Value>1</Value></EnumEntry>
<EnumEntry Name="Gone"><Value>2</Value><pIsAvailable>Zero</pIsAvailable></EnumEntry>
<EnumEntry Name="Not"><Value>4</Value><pIsImplemented>Zero</pIsImplemented></EnumEntry>
<EnumEntry Name="None"/><EnumEntry Name="Same"><Value>1</Value></EnumEntry>
<EnumEntry Name="Three"><Value>3</Value></EnumEntry>)")
    + zero;
const std::string flag = overR("Boolean", "<OnValue>7</OnValue><OffValue>3</OffValue>");
const std::string readOnly = "<AccessMode>RO</AccessMode>";
const std::string length2 = "<Length>2</Length>";
const std::string length8 = "<Length>8</Length>";
const std::string isSigned = "<Sign>Signed</Sign>";

const std::vector<ValueCase> valueCases {
    { "unsigned", place("IntReg", length2 + "<Sign>Unsigned</Sign>"), { 0xFF, 0xFE },
        "65534 1 RW 0..65535/1" },
    { "signed", place("IntReg", length2 + isSigned), { 0xFF, 0xFE }, "-2 1 RW -32768..32767/1" },
    { "64 bits", place("IntReg", length8 + isSigned),
        { 0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF },
        "9223372036854775807 1 RW -9223372036854775808..9223372036854775807/1" },
    { "limits of its own", overR("Integer", "<Min>-5</Min><Max>40</Max><Inc>3</Inc>"),
        { 0, 0, 0, 7 }, "7 1 RW -5..40/3" },
    { "double", place("FloatReg", length8), { 0x3F, 0xB9, 0x99, 0x99, 0x99, 0x99, 0x99, 0x9A },
        "0.1 1 RW" },
    { "float", place("FloatReg", ""), { 0x3D, 0xCC, 0xCC, 0xCD }, "0.10000000149011612 1 RW" },
    { "infinity", place("FloatReg", ""), { 0x7F, 0x80, 0, 0 }, " 0 RW" },
    { "enumeration", choice, { 0, 0, 0, 3 }, "2 1 RW One Same Three" },
    { "same value twice", choice, { 0, 0, 0, 1 }, "0 1 RW One Same Three" },
    { "value without entry", choice, { 0, 0, 0, 9 }, "-1 0 RW One Same Three" },
    { "boolean", flag, { 0, 0, 0, 7 }, "1 1 RW False True" },
    { "boolean off", flag, { 0, 0, 0, 3 }, "0 1 RW False True" },
    { "text that fills its register", place("StringReg", ""), { 'a', 'b', 'c', 'd' }, "abcd 1 RW" },
    { "raw register", place("Register", "<Length>3</Length>"), { 1, 0xAB, 0 }, "01 AB 00 1 RW" },
    { "command", overR("Command", "<CommandValue>1</CommandValue><DisplayName>Do it</DisplayName>"),
        {}, "Do it 1 RW" },
    { "command without a caption", overR("Command", "<CommandValue>1</CommandValue>"), {},
        "F 1 RW" },
    { "write-only", place("IntReg", "<AccessMode>WO</AccessMode>"), { 0, 0, 0, 1 },
        " 0 WO 0..4294967295/1" },
    { "read-only behind", overR("Integer", "", readOnly), { 0, 0, 0, 1 },
        "1 1 RO 0..4294967295/1" },
    { "division in a converter's branch not taken",
        overR("IntConverter",
            "<pVariable Name=\"X\">R</pVariable><FormulaTo>FROM</FormulaTo>"
            "<FormulaFrom>(X=0) ? 4 : (TO/X)</FormulaFrom>"),
        { 0, 0, 0, 0 }, "4 1 RW 4..4/1" },
    { "limits half told", overR("Integer", "<Min>-5</Min>"), { 0, 0, 0, 7 },
        "7 1 RW -5..4294967295/1" },
    { "increments that are none", overR("Integer", "<Max>9</Max><Inc>-3</Inc>"), {},
        "0 1 RW 0..9/0" },
    { "limit without a value",
        overR("Integer", "<pMax>Q</pMax>") + knife("IntSwissKnife", "Q", { "R" }, "1/R"),
        { 0, 0, 0, 0 }, " 0 RW 0..0/0" },
    { "limit without a value behind",
        named("Integer", "<pValue>I</pValue>")
            + node("Integer", "I", "<pValue>R</pValue><pMax>Q</pMax>")
            + knife("IntSwissKnife", "Q", { "R" }, "1/R") + intReg("R", 0),
        {}, " 0 RW 0..0/0" },
    { "increment beyond 32 bits", overR("Integer", "<Inc>9000000000</Inc>"), {},
        "0 1 RW 0..4294967295/4294967295" },
    { "signed bits", place("MaskedIntReg", "<LSB>31</LSB><MSB>28</MSB>" + isSigned),
        { 0, 0, 0, 0x0F }, "-1 1 RW -8..7/1" },
    { "bits of little endian",
        place("MaskedIntReg", "<LSB>4</LSB><MSB>11</MSB><Endianess>LittleEndian</Endianess>"),
        { 0x50, 0x06, 0, 0 }, "101 1 RW 0..255/1" },
    { "one bit", place("MaskedIntReg", "<Bit>31</Bit>"), { 0, 0, 0, 3 }, "1 1 RW 0..1/1" },
    { "bit of a structure", reg("StructReg", "S", 0, named("StructEntry", "<Bit>30</Bit>")),
        { 0, 0, 0, 2 }, "1 1 RW 0..1/1" },
    { "bit of a structure with an access of its own",
        reg("StructReg", "S", 0,
            "<AccessMode>RW</AccessMode>" + named("StructEntry", "<Bit>30</Bit>" + readOnly)),
        { 0, 0, 0, 2 }, "1 1 RO 0..1/1" },
    { "little endian",
        node("IntReg", "F", "<Address>0</Address><Length>2</Length><pPort>Device</pPort>"),
        { 1, 2 }, "513 1 RO 0..65535/1" },
    { "no text", place("StringReg", ""), { 0, 'b' }, " 1 RW" },
    { "shortest text", place("StringReg", "<Length>1</Length>"), { 'x' }, "x 1 RW" },
    { "text of no length", place("StringReg", "<Length>4</Length><pLength>Zero</pLength>") + zero,
        {}, " 1 RW" },
    { "raw register of no length",
        place("Register", "<Length>4</Length><pLength>Zero</pLength>") + zero, {}, " 0 RW" },
    { "raw register beyond a row", place("Register", "<Length>65537</Length>"), {}, " 0 RW" },
    { "imposed access", overR("Integer", "<ImposedAccessMode>RO</ImposedAccessMode>"),
        { 0, 0, 0, 1 }, "1 1 RO 0..4294967295/1" },
    { "no access at all", overR("Integer", "", "<AccessMode>NA</AccessMode>"), {}, " 0 NA 0..0/0" },
    { "not implemented at all", overR("Integer", "", "<AccessMode>NI</AccessMode>"), {},
        " 0 NA 0..0/0" },
    { "accesses that exclude each other",
        overR("Integer", "<ImposedAccessMode>WO</ImposedAccessMode>", readOnly), {},
        " 0 NA 0..0/0" },
    { "chunk",
        place("IntReg", "<pPort>Chunk</pPort>")
            + "<Port Name=\"Chunk\"><ChunkID>12</ChunkID></Port>",
        {}, " 0 NA 0..0/0" },
};

TEST(ReadFeature, IsExactAndCarriesItsAccess)
{
    for (const ValueCase& test : valueCases) {
        SCOPED_TRACE(test.what);
        TestCamera camera("F", test.node);
        const Register place { 0, test.bytes.size() };
        EXPECT_TRUE(test.bytes.empty() || camera.port.write(place, test.bytes.data()).isOk());
        camera.read("F");
        EXPECT_EQ(summary(camera.item("F")), test.expected);
    }
}

TEST(Record, AddressesAreTranslatedByWhatTheDescriptionSays)
{
    for (const auto& [name, told, expected] :
        { std::tuple("GevMACAddress", "MACAddress", REPRESENTATION_ADDRESS),
            { "GevMACAddress", "HexNumber", REPRESENTATION_ADDRESS },
            { "DeviceMACAddress", "HexNumber", REPRESENTATION_ADDRESS },
            { "GevMACAddressLow", "HexNumber", REPRESENTATION_NUMBER },
            { "deviceMacAddress", "MACAddress", REPRESENTATION_ADDRESS },
            { "GevMac", "MACAddress", REPRESENTATION_NUMBER },
            { "GevMACHigh", "MACAddress", REPRESENTATION_ADDRESS },
            { "GevIP", "IPV4Address", REPRESENTATION_IPV4 },
            { "GevCurrentIPAddress", "HexNumber", REPRESENTATION_IPV4 },
            { "GevPersistentSubnetMask", "HexNumber", REPRESENTATION_IPV4 },
            { "GevCurrentDefaultGateway", "HexNumber", REPRESENTATION_IPV4 },
            { "GevSCDA", "HexNumber", REPRESENTATION_IPV4 },
            { "GevMCDA", "HexNumber", REPRESENTATION_IPV4 },
            { "GevSCSP", "HexNumber", REPRESENTATION_NUMBER },
            { "GevCurrentIPConfigurationDHCP", "HexNumber", REPRESENTATION_NUMBER },
            { "GevIEEE1588ClockId", "HexNumber", REPRESENTATION_NUMBER },
            { "MACHex", "HexNumber", REPRESENTATION_NUMBER } }) {
        TestCamera camera(name, intReg(name, 0, element("Representation", told)));
        EXPECT_EQ(camera.item(name).representation, expected) << name;
    }
}

TEST(Record, CarriesWhatAUserReads)
{
    TestCamera camera("Sel Other Gain Set Step NoStep Endless Text",
        intReg("Sel", 0, element("pSelected", "Gain"))
            + intReg("Other", 4, element("pSelected", "Gain"))
            + "<Float Name=\"Gain\"><ToolTip>Tip</ToolTip><Description>Text</Description>"
              "<Visibility>Guru</Visibility><Value>1.5</Value><Unit>dB</Unit></Float>"
              "<Integer Name=\"Set\"><Value>1</Value><ValidValueSet>1;2;4</ValidValueSet>"
              "</Integer>"
              "<Float Name=\"Step\"><ToolTip>Tip</ToolTip><Visibility>Expert</Visibility><Value>1"
              "</Value><Min>-2.5</Min><Max>4</Max><Inc>0.5</Inc></Float>"
              "<Float Name=\"NoStep\"><Value>1</Value><pInc>Gain</pInc><Max>INF</Max></Float>"
              "<Float Name=\"Endless\"><Value>1</Value><Inc>INF</Inc></Float>"
            + reg("StringReg", "Text", 8, "<Length>9</Length>" + readOnly));

    const FeatureItem& step = camera.item("Step");
    EXPECT_EQ(step.description, "Tip");
    EXPECT_EQ(step.level, LEVEL_EXPERT);
    EXPECT_EQ(step.floatMin + step.floatMax + step.floatInc, -2.5 + 4 + 0.5);
    EXPECT_EQ(camera.item("NoStep").floatInc, 1.5);
    EXPECT_EQ(camera.item("NoStep").floatMax, DBL_MAX);
    EXPECT_EQ(camera.item("Endless").floatInc, 0.0);
    EXPECT_EQ(camera.item("Text").maxLength, 9U);
    EXPECT_EQ(camera.item("Text").intWritable, 0);
    EXPECT_EQ(camera.item("Set").intWritable, 1);
    EXPECT_EQ(camera.item("Set").level, LEVEL_BEGINNER);
    const FeatureItem& gain = camera.item("Gain");
    EXPECT_EQ(gain.description, "Text\nUnit: dB");
    EXPECT_EQ(gain.selectorParent, "Sel,Other");
    EXPECT_EQ(gain.level, LEVEL_GURU);
    EXPECT_EQ(gain.floatMax, DBL_MAX);
    EXPECT_EQ(gain.floatInc, 0.0);
    EXPECT_TRUE(camera.item("Sel").isSelector);
    EXPECT_EQ(camera.item("Set").description, "Values: 1;2;4");
}

TEST(Load, ReadsEachRegisterOnceAndItsRecordsNotAgain)
{
    TestCamera camera(TestCamera::simulated());
    RegisterPort::Recorder recorder(camera.port);
    const std::uint64_t before = camera.port.reads();
    camera.repository.Load();
    for (const auto& record : camera.repository.GetFeatureList()) {
        camera.repository.ReadFeature(record);
    }
    Registers& read = recorder.read;
    const std::size_t all = read.size();
    std::sort(read.begin(), read.end());
    read.erase(std::unique(read.begin(), read.end()), read.end());

    EXPECT_GT(all, read.size());
    EXPECT_EQ(camera.port.reads() - before, read.size());
    camera.repository.UpdateFeatureStates();
    read.clear();
    camera.read("Width");
    EXPECT_FALSE(read.empty()); // asked once more
    const auto old = camera.repository.GetFeature("Width");
    camera.repository.Load();
    EXPECT_FALSE(camera.repository.ReadFeature(old));
}

TEST(ReadFeature, FailedAccessKeepsTheValueAndMarksTheState)
{
    TestCamera camera("A E",
        intReg("A", 0, "<pIsLocked>S</pIsLocked>") + intReg("S", 4)
            + node("Enumeration", "E",
                "<EnumEntry Name=\"One\"><Value>5</Value></EnumEntry><EnumEntry Name=\"Two\">"
                "<Value>2</Value><pIsAvailable>S</pIsAvailable></EnumEntry><pValue>A</pValue>"));
    camera.set("A", 5);
    ASSERT_EQ(camera.read("A"), "5");
    camera.set("A", 6);
    camera.port.setFaultHook([](auto, auto, bool) { return true; });

    EXPECT_EQ(camera.read("A"), "(read failed)");
    EXPECT_EQ(camera.item("A").valueText, "5");
    EXPECT_EQ(camera.state("A"), FEATURE_READ_FAILED);
    const std::string reason = camera.repository.GetReason("A");
    EXPECT_EQ(reason.rfind("Cannot be read: ", 0), 0U);
    EXPECT_GT(reason.size(), std::string("Cannot be read: .").size());
    EXPECT_EQ(camera.item("A").description, reason);

    EXPECT_EQ(camera.repository.UpdateFeatureStates(), injectedFault);
    camera.port.setFaultHook(nullptr);
    EXPECT_EQ(camera.repository.UpdateFeatureStates(), STATUS_OK);
    EXPECT_EQ(camera.state("A"), FEATURE_READ_FAILED); // only a fresh value tells otherwise
    EXPECT_EQ(camera.repository.GetReason("A"), reason);
    EXPECT_EQ(camera.read("A"), "6");
    EXPECT_EQ(camera.state("A"), FEATURE_AVAILABLE);
    EXPECT_EQ(camera.repository.GetReason("A"), "");

    camera.port.invalidate();
    camera.port.setFaultHook([](std::uint64_t address, auto, bool) { return address == 4; });
    EXPECT_EQ(camera.read("E"), "(read failed)"); // not one entry less
    EXPECT_EQ(camera.state("E"), FEATURE_READ_FAILED);
}

TEST(PollingTime, IsTheShortestOfWhatTheRecordIsMadeOf)
{
    const auto polled = [](const char* name, const char* time, const std::string& more = {}) {
        return intReg(name, 4, element("PollingTime", time) + more);
    };
    const auto overNode
        = [](const char* name, const std::string& content, const char* from = "Calm") {
              return node("Integer", name, element("pValue", from) + content);
          };
    TestCamera camera("Own Chain Knife Limit Locked Told Chosen Shared Run Calm Never Odd InHex "
                      "Sub Length Index",
        polled("R70", "70") + polled("R50", "50", element("pInvalidator", "Run"))
            + polled("R90", " 90 ") + intReg("Calm", 8) + intReg("Index", 12)
            + overNode("Own", element("PollingTime", "60"), "R70") + overNode("Chain", "", "R70")
            + knife("IntSwissKnife", "Knife", { "R70", "R50" }, "R70+R50")
            + overNode("Limit", element("pMax", "R90"))
            + overNode("Locked", element("pIsLocked", "R50"))
            + overNode("Told", element("pInvalidator", "Chain")) + polled("Never", "0")
            + polled("Odd", "soon") + polled("InHex", "0x10")
            + node("Integer", "Chosen",
                "<pIndex>Index</pIndex><pValueIndexed Index=\"1\">R50</pValueIndexed>"
                "<pValueDefault>R90</pValueDefault>")
            + "<StructReg><Address>16</Address><Length>4</Length><AccessMode>RW</AccessMode>"
              "<pPort>Device</pPort><PollingTime>40</PollingTime>"
              "<StructEntry Name=\"Shared\"><Bit>1</Bit></StructEntry></StructReg>"
            + node("Command", "Run",
                "<pValue>R70</pValue><CommandValue>1</CommandValue><PollingTime>5</PollingTime>")
            + node("Category", "Sub", element("pIsAvailable", "R90") + element("pFeature", "In"))
            + overNode("In", "") + intReg("Length", 20, element("pAddress", "R90")));
    const auto time
        = [&](const char* name) { return camera.repository.GetPollingTime(name).count(); };
    camera.set("Index", 1);
    for (const auto& [name, expected] : { std::pair("Own", 60), { "Chain", 70 }, { "Knife", 50 },
             { "Limit", 90 }, { "Locked", 50 }, { "Told", 70 }, { "Chosen", 50 }, { "Shared", 40 },
             { "Run", 0 }, { "In", 90 }, { "Calm", 0 }, { "Never", 0 }, { "Odd", 0 },
             { "InHex", 16 }, { "Sub", 0 }, { "Length", 90 }, { "NotThere", 0 } }) {
        EXPECT_EQ(time(name), expected) << name;
    }
    camera.set("Index", 2);
    EXPECT_EQ(time("Chosen"), 90);
    camera.port.invalidate();
    camera.port.setFaultHook([](std::uint64_t address, auto, bool) { return address == 12; });
    EXPECT_EQ(time("Chosen"), 50);
}

} // namespace
