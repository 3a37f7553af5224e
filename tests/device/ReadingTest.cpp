#include "TestCamera.h"

#include <cfloat>

using namespace featurebrowser;

namespace {

TEST(FeatureListing, EachNameOnceInTreeOrderInsideACategory)
{
    const std::string xml = TestCamera::description("A Missing Main Sub A Hidden",
        intReg("A", 0) + intReg("B", 4) + intReg("Direct", 8)
            + intReg("Hidden", 12, element("Visibility", "Invisible"))
            + R"(<Category Name="Sub"><pFeature>B</pFeature><pFeature>A</pFeature>
                 <pFeature>Main</pFeature><pFeature>Empty</pFeature></Category>
                 <Category Name="Empty"><pFeature>Hidden</pFeature></Category>)");
    std::string direct = xml;
    direct.replace(direct.find("<pFeature>Main"), 0, "<pFeature>Direct</pFeature>");

    EXPECT_EQ(TestCamera(TestCamera::openText(xml)).listed(), "Main:0 A:1 Sub:1 B:2");
    EXPECT_EQ(
        TestCamera(TestCamera::openText(direct)).listed(), "Root:0 Direct:1 Main:0 A:1 Sub:1 B:2");
}

TEST(FeatureListing, NotImplementedIsLeftOutAndNotAvailableIsListedAsSuch)
{
    TestCamera camera("A B C",
        intReg("A", 0, element("pIsImplemented", "Never"))
            + intReg("B", 4, element("pIsAvailable", "Never")) + intReg("C", 8)
            + "<IntSwissKnife Name=\"Never\"><Formula>0</Formula></IntSwissKnife>");

    EXPECT_EQ(camera.listed(), "Main:0 B:1 C:1");
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

void PrintTo(const ValueCase& test, std::ostream* stream)
{
    *stream << test.what;
}

std::string summary(const FeatureItem& item)
{
    std::string text = item.valueText + " " + std::to_string(item.displayFlag) + " "
        + char(item.accessMode >> 8U) + char(item.accessMode & 0xFFU);
    if (item.type == FEATURE_INTEGER) {
        text += " " + std::to_string(item.intMin) + ".." + std::to_string(item.intMax) + "/"
            + std::to_string(item.intInc);
    }
    for (const std::string& entry : item.enumEntries) {
        text += " " + entry;
    }
    return text;
}

std::string named(const std::string& tag, const std::string& content)
{
    return node(tag, "F", content);
}

std::string reg(const std::string& tag, int length, const std::string& content)
{
    return named(tag,
        "<Address>0</Address>" + element("Length", std::to_string(length))
            + "<AccessMode>RW</AccessMode><pPort>Device</pPort><Endianess>BigEndian</Endianess>"
            + content);
}

class ReadValue : public testing::TestWithParam<ValueCase> { };

TEST_P(ReadValue, IsExactAndCarriesItsAccess)
{
    const ValueCase& test = GetParam();
    TestCamera camera("F", test.node);
    if (!test.bytes.empty()) {
        ASSERT_TRUE(
            camera.port
                .write({ 0, test.bytes.size() }, test.bytes.data(), zqcameralib::AccessKind::Memory)
                .isOk());
    }
    camera.read("F");
    EXPECT_EQ(summary(camera.item("F")), test.expected) << test.what;
}

const std::string enumEntries = R"(<EnumEntry Name="One"><Value>1</Value></EnumEntry>
<EnumEntry Name="Gone"><Value>2</Value><pIsAvailable>Zero</pIsAvailable></EnumEntry>
<EnumEntry Name="Same"><Value>1</Value></EnumEntry>
<EnumEntry Name="Three"><Value>3</Value></EnumEntry>)";
const std::string zeroNode = "<IntSwissKnife Name=\"Zero\"><Formula>0</Formula></IntSwissKnife>";
const std::string over = "<pValue>R</pValue>";

INSTANTIATE_TEST_SUITE_P(Kinds, ReadValue,
    testing::Values(ValueCase { "unsigned", reg("IntReg", 2, "<Sign>Unsigned</Sign>"),
                        { 0xFF, 0xFE }, "65534 1 RW 0..65535/1" },
        ValueCase { "signed", reg("IntReg", 2, "<Sign>Signed</Sign>"), { 0xFF, 0xFE },
            "-2 1 RW -32768..32767/1" },
        ValueCase { "64 bits", reg("IntReg", 8, "<Sign>Signed</Sign>"),
            { 0x7F, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF },
            "9223372036854775807 1 RW -9223372036854775808..9223372036854775807/1" },
        ValueCase { "limits of its own",
            named("Integer", over + "<Min>-5</Min><Max>40</Max><Inc>3</Inc>") + intReg("R", 0),
            { 0, 0, 0, 7 }, "7 1 RW -5..40/3" },
        ValueCase { "double", reg("FloatReg", 8, ""),
            { 0x3F, 0xB9, 0x99, 0x99, 0x99, 0x99, 0x99, 0x9A }, "0.1 1 RW" },
        ValueCase { "float", reg("FloatReg", 4, ""), { 0x3D, 0xCC, 0xCC, 0xCD },
            "0.10000000149011612 1 RW" },
        ValueCase { "infinity", reg("FloatReg", 4, ""), { 0x7F, 0x80, 0, 0 }, " 0 RW" },
        ValueCase { "enumeration",
            named("Enumeration", enumEntries + over) + zeroNode + intReg("R", 0), { 0, 0, 0, 3 },
            "2 1 RW One Same Three" },
        ValueCase { "same value twice",
            named("Enumeration", enumEntries + over) + zeroNode + intReg("R", 0), { 0, 0, 0, 1 },
            "0 1 RW One Same Three" },
        ValueCase { "value without entry",
            named("Enumeration", enumEntries + over) + zeroNode + intReg("R", 0), { 0, 0, 0, 9 },
            "-1 0 RW One Same Three" },
        ValueCase { "boolean",
            named("Boolean", over + "<OnValue>7</OnValue><OffValue>3</OffValue>") + intReg("R", 0),
            { 0, 0, 0, 7 }, "1 1 RW False True" },
        ValueCase { "text that fills its register", reg("StringReg", 4, ""), { 'a', 'b', 'c', 'd' },
            "abcd 1 RW" },
        ValueCase { "raw register", reg("Register", 3, ""), { 1, 0xAB, 0 }, "01 AB 00 1 RW" },
        ValueCase { "command",
            named("Command",
                over
                    + "<CommandValue>1</CommandValue>"
                      "<DisplayName>Do it</DisplayName>")
                + intReg("R", 0),
            {}, "Do it 1 RW" },
        ValueCase { "write-only", intReg("F", 0, "<AccessMode>WO</AccessMode>"), { 0, 0, 0, 1 },
            " 0 WO 0..4294967295/1" },
        ValueCase { "read-only behind",
            named("Integer", over) + intReg("R", 0, "<AccessMode>RO</AccessMode>"), { 0, 0, 0, 1 },
            "1 1 RO 0..4294967295/1" },
        ValueCase { "formula without a value",
            named("SwissKnife",
                "<pVariable Name=\"X\">R"
                "</pVariable><Formula>1/X</Formula>")
                + intReg("R", 0),
            { 0, 0, 0, 0 }, " 0 RO" },
        ValueCase { "division that would trap",
            named("IntSwissKnife",
                "<pVariable Name=\"X\">R"
                "</pVariable><pVariable Name=\"M\">Minus</pVariable><Formula>X/M + 5%M</Formula>")
                + intReg("R", 0, "<Length>8</Length>")
                + "<Integer Name=\"Minus\"><Value>-1</Value></Integer>",
            { 0x80, 0, 0, 0, 0, 0, 0, 1 },
            "9223372036854775807 1 RO -9223372036854775808..9223372036854775807/1" },
        ValueCase { "integer formula without a value",
            named("IntSwissKnife",
                "<pVariable Name=\"X\">R</pVariable><Formula>7 % (1/X) + 1</Formula>")
                + intReg("R", 0),
            { 0, 0, 0, 0 }, " 0 RO -9223372036854775808..9223372036854775807/1" },
        ValueCase { "integer division in the branch not taken",
            named("IntSwissKnife",
                "<pVariable Name=\"X\">R</pVariable>"
                "<Formula>(X=0) ? 5 : ((X=1) ? 6 : (7/X + 8%(X-1)))</Formula>")
                + intReg("R", 0),
            { 0, 0, 0, 1 }, "6 1 RO -9223372036854775808..9223372036854775807/1" },
        ValueCase { "division in a converter's branch not taken",
            named("IntConverter",
                "<pVariable Name=\"X\">R</pVariable><FormulaTo>FROM</FormulaTo>"
                "<FormulaFrom>(X=0) ? 4 : (TO/X)</FormulaFrom><pValue>R</pValue>")
                + intReg("R", 0),
            { 0, 0, 0, 0 }, "4 1 RW 4..4/1" },
        ValueCase { "division in the branch not taken",
            named("SwissKnife",
                "<pVariable Name=\"X\">"
                "R</pVariable><Formula>(X=0) ? 2.5 : (1/X)</Formula>")
                + intReg("R", 0),
            { 0, 0, 0, 0 }, "2.5 1 RO" },
        ValueCase { "limits half told", named("Integer", over + "<Min>-5</Min>") + intReg("R", 0),
            { 0, 0, 0, 7 }, "7 1 RW -5..4294967295/1" },
        ValueCase { "increments that are none",
            named("Integer", over + "<Max>9</Max><Inc>-3</Inc>") + intReg("R", 0), {},
            "0 1 RW 0..9/0" },
        ValueCase { "limit without a value",
            named("Integer", over + "<pMax>Q</pMax><Inc>9000000000</Inc>") + intReg("R", 0)
                + node("IntSwissKnife", "Q",
                    "<pVariable Name=\"X\">R</pVariable><Formula>1/X</Formula>"),
            { 0, 0, 0, 0 }, "0 1 RW 0..4294967295/4294967295" },
        ValueCase { "signed bits",
            reg("MaskedIntReg", 4, "<LSB>31</LSB><MSB>28</MSB><Sign>Signed</Sign>"),
            { 0, 0, 0, 0x0F }, "-1 1 RW -8..7/1" },
        ValueCase {
            "one bit", reg("MaskedIntReg", 4, "<Bit>31</Bit>"), { 0, 0, 0, 3 }, "1 1 RW 0..1/1" },
        ValueCase { "bit of a structure",
            node("StructReg", "S",
                "<Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode><pPort>Device"
                "</pPort><Endianess>BigEndian</Endianess>"
                    + named("StructEntry", "<Bit>30</Bit>")),
            { 0, 0, 0, 2 }, "1 1 RW 0..1/1" },
        ValueCase { "little endian",
            node("IntReg", "F", "<Address>0</Address><Length>2</Length><pPort>Device</pPort>"),
            { 1, 2 }, "513 1 RO 0..65535/1" },
        ValueCase { "boolean off",
            named("Boolean", over + "<OnValue>7</OnValue><OffValue>3</OffValue>") + intReg("R", 0),
            { 0, 0, 0, 3 }, "0 1 RW False True" },
        ValueCase { "no text", reg("StringReg", 4, ""), { 0, 'b' }, " 1 RW" },
        ValueCase { "shortest text", reg("StringReg", 1, ""), { 'x' }, "x 1 RW" },
        ValueCase { "text of no length", reg("StringReg", 4, "<pLength>Zero</pLength>") + zeroNode,
            {}, " 1 RW" },
        ValueCase { "raw register of no length",
            reg("Register", 4, "<pLength>Zero</pLength>") + zeroNode, {}, " 0 RW" },
        ValueCase { "raw register beyond a row", reg("Register", 65537, ""), {}, " 0 RW" },
        ValueCase { "imposed access",
            named("Integer", over + "<ImposedAccessMode>RO</ImposedAccessMode>") + intReg("R", 0),
            { 0, 0, 0, 1 }, "1 1 RO 0..4294967295/1" },
        ValueCase { "no access at all",
            named("Integer", over) + intReg("R", 0, "<AccessMode>NA</AccessMode>"), {},
            " 0 NA 0..0/0" },
        ValueCase { "accesses that exclude each other",
            named("Integer", over + "<ImposedAccessMode>WO</ImposedAccessMode>")
                + intReg("R", 0, "<AccessMode>RO</AccessMode>"),
            {}, " 0 NA 0..0/0" },
        ValueCase { "chunk",
            reg("IntReg", 4, "").replace(reg("IntReg", 4, "").find("Device"), 6, "Chunk")
                + "<Port Name=\"Chunk\"><ChunkID>12</ChunkID></Port>",
            {}, " 0 NA 0..0/0" }));

TEST(Record, AddressesAreTranslatedByWhatTheDescriptionSays)
{
    TestCamera camera("GevMACAddress GevIP GevHex MACHex",
        intReg("GevMACAddress", 0, element("Representation", "MACAddress"))
            + intReg("GevIP", 4, element("Representation", "IPV4Address"))
            + intReg("GevHex", 8, element("Representation", "HexNumber"))
            + intReg("MACHex", 12, element("Representation", "HexNumber")));

    EXPECT_EQ(camera.item("GevMACAddress").representation, REPRESENTATION_ADDRESS);
    EXPECT_EQ(camera.item("GevIP").representation, REPRESENTATION_IPV4);
    EXPECT_EQ(camera.item("GevHex").representation, REPRESENTATION_NUMBER);
    EXPECT_EQ(camera.item("MACHex").representation, REPRESENTATION_NUMBER);
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
              "<StringReg Name=\"Text\"><Address>8</Address><Length>9</Length><pPort>Device</pPort>"
              "</StringReg>");

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
    zqcameralib::RegisterPort::Recorder recorder(camera.port);
    const std::uint64_t before = camera.port.reads();
    camera.repository.Load();
    for (const auto& record : camera.repository.GetFeatureList()) {
        camera.repository.ReadFeature(record);
    }
    zqcameralib::Registers& read = recorder.read;
    const std::size_t all = read.size();
    std::sort(read.begin(), read.end());
    read.erase(std::unique(read.begin(), read.end()), read.end());

    EXPECT_GT(all, read.size());
    EXPECT_EQ(camera.port.reads() - before, read.size());
}

TEST(ReadFeature, FailedAccessKeepsTheValueAndMarksTheState)
{
    TestCamera camera("A", intReg("A", 0));
    camera.device.SetIntegerValue("A", 5, 1);
    ASSERT_EQ(camera.read("A"), "5");
    camera.device.SetIntegerValue("A", 6, 1);
    camera.port.setFaultHook([](auto, auto, bool) { return true; });

    EXPECT_EQ(camera.read("A"), "(read failed)");
    EXPECT_EQ(camera.item("A").valueText, "5");
    EXPECT_EQ(camera.state("A"), FEATURE_READ_FAILED);

    camera.port.setFaultHook(nullptr);
    EXPECT_EQ(camera.read("A"), "6");
    EXPECT_EQ(camera.state("A"), FEATURE_AVAILABLE);
}

} // namespace
