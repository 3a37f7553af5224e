// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What descriptions mean by the GenApi standard (schema 1.1) and by SFNC, construct by construct.
#include "TestCamera.h"

#include "base/BigEndian.h"
#include "base/StatusCodes.h"

#include <cfloat>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

std::string ofR(const std::string& kind, const std::string& content, const std::string& r = {})
{
    return node(kind, "F", content) + intReg("R", 0, r);
}

std::string overR(const std::string& kind, const std::string& content, const std::string& r = {})
{
    return ofR(kind, "<pValue>R</pValue>" + content, r);
}

/// A formula of X, which is the node.
std::string ofX(const std::string& kind, const std::string& formula, const std::string& of)
{
    return ofR(kind, node("pVariable", "X", of) + "<Formula><![CDATA[" + formula + "]]></Formula>");
}

std::string entry(const std::string& name, int value, const std::string& more = {})
{
    return node("EnumEntry", name, element("Value", std::to_string(value)) + more);
}

std::string converter(const std::string& kind, const std::string& to, const std::string& from)
{
    return node(
        kind, "F", "<pValue>R</pValue>" + element("FormulaTo", to) + element("FormulaFrom", from));
}

const std::string modes = entry("Off", 0) + entry("On", 5, "<NumericValue>2.5</NumericValue>");
const std::string mode = node("Enumeration", "Mode", "<pValue>R</pValue>" + modes);
const std::string check
    = node("Boolean", "Check", "<pValue>R</pValue><OnValue>5</OnValue><OffValue>0</OffValue>");
const std::string run = node("Command", "Run", "<pValue>R</pValue><CommandValue>5</CommandValue>");
const std::string limited
    = node("Integer", "I", "<pValue>R</pValue><Min>-2</Min><Max>90</Max><Inc>3</Inc>");
const std::string constant = "<Constant Name=\"C\">";
const std::string free64 = " RO -9223372036854775808..9223372036854775807/1";
const std::string unread = " 0";
const std::string zero = knife("IntSwissKnife", "Zero", {}, "0");

const std::string oneIsReadOnly = "<AccessMode>RO</AccessMode>";

/// Over R, or over another register while R holds 1.
std::string indexed(const std::string& one, const std::string& more = {})
{
    return node("Integer", "F",
               "<pIndex>R</pIndex><pValueIndexed Index=\" 1\">One</pValueIndexed>"
               "<pValueDefault>R</pValueDefault>"
                   + more)
        + intReg("R", 0) + intReg("One", 8, one);
}

/// A register somewhere.
std::string placed(const std::string& place)
{
    return node("IntReg", "F",
               place
                   + "<Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>"
                     "<Endianess>BigEndian</Endianess>")
        + node("Integer", "Two", "<Value>2</Value>") + knife("IntSwissKnife", "None", {}, "1/0");
}

const std::string hundredth = converter("Converter", "FROM * 100", "TO / 100") + intReg("R", 0);

struct Meaning {
    const char* what;
    std::string nodes; ///< with F, and mostly R: 4 bytes at 0
    int r; ///< what R holds
    std::string expected; ///< as the summary begins
};

const std::vector<Meaning> meanings {
    { "Boolean in a formula", ofX("IntSwissKnife", "X + 1", "Check") + check, 5, "2 1 RO" },
    { "Boolean that is neither in a formula", ofX("IntSwissKnife", "X", "Check") + check, 4,
        unread },
    { "Enumeration in a formula", ofX("IntSwissKnife", "X * 2", "Mode") + mode, 5, "10 1 RO" },
    { "state of a command, running", ofX("IntSwissKnife", "X", "Run") + run, 5, "0 1 RO" },
    { "state of a command, done", ofX("IntSwissKnife", "X", "Run") + run, 0, "1 1 RO" },
    { "value and limits of a variable",
        ofX("IntSwissKnife", "X.Value + 10*X.Min + 100*X.Max + 10000*X.Inc", "I") + limited, 7,
        "38987 1 RO" },
    { "limit named by the variable",
        ofR("IntSwissKnife", node("pVariable", "X.Max", "I") + "<Formula>X.Max</Formula>")
            + limited,
        7, "90 1 RO" },
    { "limit that a variable has not",
        ofX("IntSwissKnife", "X.Max", "N") + node("Integer", "N", "<Value>4</Value>"), 0, unread },
    { "increment that a variable has not",
        ofX("IntSwissKnife", "X.Inc", "N") + node("Integer", "N", "<Value>4</Value>"), 0,
        "1 1 RO" },
    { "limit by an entry", overR("Integer", "<pMax>Mode</pMax>") + mode, 5, "5 1 RW 0..5/1" },
    { "entry of a variable", ofX("IntSwissKnife", "(X = X.Enum.On) + 10*X.Entry.On", "Mode") + mode,
        5, "51 1 RO" },
    { "entry that there is not", ofX("IntSwissKnife", "X.Enum.No", "Mode") + mode, 5, unread },
    { "number of an entry where a float is needed", ofX("SwissKnife", "X * 2", "Mode") + mode, 5,
        "5 1 RO" },
    { "float over an enumeration",
        node("Float", "F", "<pValue>Mode</pValue>") + mode + intReg("R", 0), 5, "2.5 1 RW" },
    { "expression of an expression",
        ofR("SwissKnife",
            node("pVariable", "X", "R") + node("Expression", "A", "B * 2")
                + node("Expression", "B", "X + 1") + "<Formula>A + B</Formula>"),
        3, "12 1 RO" },
    { "expressions that need each other",
        ofR("SwissKnife",
            node("Expression", "A", "B") + node("Expression", "B", "A") + "<Formula>A</Formula>"),
        3, unread },
    { "negative constant", ofR("IntSwissKnife", constant + "-7</Constant><Formula>C * 2</Formula>"),
        0, "-14 1 RO" },
    { "variable named like a function",
        ofR("SwissKnife", node("pVariable", "EXP", "R") + "<Formula>EXP + ABS(-1)</Formula>"), 3,
        "4 1 RO" },
    { "constants with names", ofX("SwissKnife", "LN(E) + SIN(PI / 2) + LG(100)", "R"), 0,
        "4 1 RO" },
    { "undefined variable", ofX("IntSwissKnife", "X + Y", "R"), 1, unread },
    { "64 bits of a constant",
        ofR("IntSwissKnife", constant + "0x0123456789abcdef</Constant><Formula>C</Formula>"), 0,
        "81985529216486895 1" + free64 },
    { "the smallest integer is a value",
        node("Integer", "F", "<Value>-9223372036854775808</Value>"), 0,
        "-9223372036854775808 1 RW" },
    { "decimal with a leading zero", node("Integer", "F", "<Value>010</Value>"), 0, "10 1 RW" },
    { "text after a comment and in CDATA",
        node("Integer", "F", "<Value>1<!-- and -->2<![CDATA[3]]></Value>"), 0, "123 1 RW" },
    { "a zero without a sign", ofX("SwissKnife", "X * -1", "R"), 0, "0 1 RO" },
    { "entry with a decimal point",
        overR("Enumeration", entry("A", 0) + node("EnumEntry", "B", "<Value>1.0</Value>")), 1,
        "1 1 RW A B" },
    { "all bits are on", overR("Boolean", "<OnValue>0xFFFFFFFF</OnValue>"), -1, "1 1 RW" },
    { "neither on nor off", overR("Boolean", "<OnValue>1</OnValue>"), 2, " 0 RW" },
    { "state of a command that writes a zero",
        ofX("IntSwissKnife", "X", "Zeroing") + command("Zeroing", "R", "0"), 5, "1 1 RO" },
    { "between two integers", hundredth, 29, "0.29 1 RW" },
    { "limits of a converter that falls, of which one is known",
        converter("IntConverter", "10000 / FROM", "10000 / TO")
            + node("Integer", "R", "<pValue>Reg</pValue><Min>0</Min><Max>50</Max>")
            + intReg("Reg", 0),
        20, "500 1 RW 200..9223372036854775807/1" },
    { "limits of a converter of what has none",
        node("IntConverter", "F",
            "<pValue>N</pValue><FormulaTo>FROM</FormulaTo><FormulaFrom>TO * 2</FormulaFrom>")
            + node("Integer", "N", "<Value>4</Value>"),
        0, "8 1 RW -9223372036854775808..9223372036854775807/1" },
    { "text at no address",
        reg("StringReg", "F", 0, "<pAddress>None</pAddress>")
            + knife("IntSwissKnife", "None", {}, "1/0"),
        0, unread },
    { "raw data beyond a row", reg("Register", "F", 0, "<Length>65537</Length>"), 0, unread },
    { "locked by what has no value",
        overR("Integer", "<pIsLocked>None</pIsLocked>") + knife("IntSwissKnife", "None", {}, "1/0"),
        1, unread },
    { "entries that nobody shall see",
        overR("Enumeration", entry("A", 0) + entry("B", 1, "<Visibility>Invisible</Visibility>")),
        0, "0 1 RW A" },
    { "the present entry is seen",
        overR("Enumeration", entry("A", 0) + entry("B", 1, "<Visibility>Invisible</Visibility>")),
        1, "1 1 RW A B" },
    { "source that an index chooses can only be read", indexed(oneIsReadOnly), 1, "0 1 RO" },
    { "source that another index chooses", indexed(oneIsReadOnly), 2, "2 1 RW" },
    { "what can only be read, from a source that can only be read",
        indexed(oneIsReadOnly, "<ImposedAccessMode>RO</ImposedAccessMode>"), 1, "0 1 RO" },
    { "one source of two indices can only be read",
        indexed(oneIsReadOnly, "<pValueIndexed Index=\"2\">One</pValueIndexed>"), 2, "0 1 RO" },
    { "what can only be read, from a source that can be written",
        indexed("", "<ImposedAccessMode>RO</ImposedAccessMode>"), 1, "0 1 RO" },
    { "source that an index chooses is not there",
        indexed("<pIsAvailable>Zero</pIsAvailable>") + zero, 1, " 0 NA" },
    { "a formula can be read as what it reads",
        ofX("IntSwissKnife", "X", "W") + intReg("W", 8, "<AccessMode>WO</AccessMode>"), 0,
        " 0 NA" },
    { "a formula is there as what it reads",
        ofX("IntSwissKnife", "X", "W") + intReg("W", 8, "<pIsAvailable>R</pIsAvailable>"), 0,
        " 0 NA" },
    { "the camera reports an error",
        overR("Integer", "<pError>Fault</pError>")
            + node("Enumeration", "Fault", "<pValue>R</pValue>" + entry("Overflow", 9)),
        9, unread },
    { "and none",
        overR("Integer", "<pError>Fault</pError>") + node("Integer", "Fault", "<Value>0</Value>"),
        9, "9 1 RW" },
    { "the camera reports an error of what is behind",
        node("Integer", "F", "<pValue>I</pValue>")
            + node("Integer", "I", "<pValue>R</pValue><pError>R</pError>") + intReg("R", 0),
        1, unread },
    { "no number in a float's register", reg("FloatReg", "F", 0), 0x7FC00000, unread },
    { "limit of its own before one that is not there",
        node("Integer", "F", "<pValue>I</pValue><Max>9</Max>")
            + node("Integer", "I", "<pValue>R</pValue><pMax>M</pMax>") + intReg("R", 0)
            + intReg("M", 8, "<pIsAvailable>Zero</pIsAvailable>") + zero,
        1, "1 1 RW 0..9/1" },
    { "limit behind a formula that is not there",
        node("Integer", "F", "<pValue>K</pValue><Max>9</Max>")
            + node("IntConverter", "K",
                "<pValue>I</pValue><FormulaTo>FROM</FormulaTo><FormulaFrom>TO</FormulaFrom>")
            + node("Integer", "I", "<pValue>R</pValue><pMax>M</pMax>") + intReg("R", 0)
            + intReg("M", 8, "<pIsAvailable>Zero</pIsAvailable>") + zero,
        1, unread },
    { "limit that is not there",
        overR("Integer", "<pMax>M</pMax>") + intReg("M", 8, "<pIsAvailable>Zero</pIsAvailable>")
            + zero,
        1, unread },
    { "available by what is not there",
        overR("Integer", "<pIsAvailable>N</pIsAvailable>")
            + knife("IntSwissKnife", "N", { "M" }, "1")
            + intReg("M", 8, "<pIsImplemented>Zero</pIsImplemented>") + zero,
        1, " 0 NA" },
    { "available by what can only be written",
        overR("Integer", "<pIsAvailable>W</pIsAvailable>")
            + intReg("W", 8, "<AccessMode>WO</AccessMode>"),
        1, unread },
    { "bits are there as their register",
        reg("StructReg", "S", 0,
            "<pIsAvailable>Zero</pIsAvailable>" + node("StructEntry", "F", "<Bit>31</Bit>"))
            + zero,
        1, " 0 NA" },
    { "a register is there as its port",
        reg("IntReg", "F", 0, "<pPort>P</pPort>")
            + node("Port", "P", "<pIsAvailable>Zero</pIsAvailable>") + zero,
        1, " 0 NA" },
    { "available by the first that there is",
        overR("Integer",
            "<pIsAvailable>No</pIsAvailable><pIsAvailable>Zero</pIsAvailable>"
            "<pIsAvailable>R</pIsAvailable>")
            + zero,
        1, " 0 NA" },
    { "available by each other",
        overR("Integer", "<pIsAvailable>G</pIsAvailable>")
            + node("Integer", "G", "<pValue>R</pValue><pIsAvailable>F</pIsAvailable>"),
        1, "1 1 RW" },
    { "limits by entries in any order",
        node("Integer", "F", "<pValue>E</pValue>")
            + node("Enumeration", "E", "<pValue>R</pValue>" + entry("A", -2) + entry("B", -7))
            + intReg("R", 0, "<Sign>Signed</Sign>"),
        -2, "-2 1 RW -7..-2/1" },
    { "limits by entries", node("Integer", "F", "<pValue>Mode</pValue>") + mode + intReg("R", 0), 5,
        "5 1 RW 0..5/1" },
    { "addresses add up",
        placed("<Address>9</Address><pAddress>Two</pAddress><pAddress>Two</pAddress>"
               "<Address>-1</Address><IntSwissKnife Name=\"K\"><Formula>0 - 12</Formula>"
               "</IntSwissKnife>"),
        5, "5 1 RW" },
    { "steps are as long as the register", placed("<Address>-8</Address><pIndex>Two</pIndex>"), 5,
        "5 1 RW" },
    { "steps of a length",
        placed("<Address>-14</Address><pIndex Offset=\" 5\">Two</pIndex>"
               "<pIndex pOffset=\"Two \">Two</pIndex>"),
        5, "5 1 RW" },
    { "address that has no value", placed("<Address>0</Address><pAddress>None</pAddress>"), 5,
        unread },
    { "step that has no value", placed("<Address>0</Address><pIndex>None</pIndex>"), 5, unread },
    { "length of steps that has no value",
        placed("<Address>0</Address><pIndex pOffset=\"None\">Two</pIndex>"), 5, unread },
    { "bytes that the port swaps",
        node("IntReg", "F",
            "<Address>0</Address><Length>4</Length><AccessMode>RW</AccessMode>"
            "<pPort>Swapped</pPort><Endianess>LittleEndian</Endianess>")
            + node("Port", "Swapped", "<SwapEndianess>Yes</SwapEndianess>"),
        5, "5 1 RW" },
};

TEST(Standard, SaysWhatEachConstructMeans)
{
    for (const Meaning& test : meanings) {
        SCOPED_TRACE(test.what);
        TestCamera camera("F", test.nodes);
        const std::array<std::uint8_t, 4> bytes = toBigEndian(static_cast<std::uint32_t>(test.r));
        EXPECT_TRUE(camera.port.write({ 0, 4 }, bytes.data()).isOk());
        camera.read("F");
        const std::string shown = summary(camera.item("F"));
        EXPECT_EQ(shown.substr(0, test.expected.size()), test.expected) << shown;
        if (test.expected == unread) {
            EXPECT_EQ(camera.state("F"), FEATURE_READ_FAILED);
            const std::string& why = camera.item("F").description;
            EXPECT_GT(why.size(), why.find("Cannot be read: ") + sizeof "Cannot be read: .");
        }
    }
}

struct Write {
    const char* what;
    std::string nodes; ///< with F over R
    int before;
    double value;
    int status;
    int after;
};

const std::string inverse = converter("Converter", "1000000 / FROM", "1000000 / TO");
const std::string raw
    = node("Integer", "R", "<pValue>Reg</pValue><Min>10</Min><Max>90</Max><Inc>8</Inc>")
    + intReg("Reg", 0);
const std::string stepped = overR("Float", "<Min>1</Min><Max>9</Max><Inc>0.1</Inc>");
const std::string fine = node("Float", "F", "<pValue>D</pValue><Min>0</Min><Inc>0.1</Inc>")
    + reg("FloatReg", "D", 0, "<Length>8</Length>");
const std::string overCheck = node("Float", "F", "<pValue>Check</pValue>") + check + intReg("R", 0);

std::string inEights(const std::string& access)
{
    return overR("Integer", "<Min>10</Min><Inc>8</Inc>", access);
}

const std::vector<Write> writes {
    { "rounds to the nearest", hundredth, 0, 0.29, STATUS_OK, 29 },
    { "keeps what is written back", inverse + intReg("R", 0), 7, 1000000.0 / 7, STATUS_OK, 7 },
    { "goes onto the raw grid", converter("Converter", "FROM", "TO") + raw, 10, 21, STATUS_OK, 18 },
    { "not beyond the raw maximum", converter("Converter", "FROM", "TO") + raw, 10, 89.6, STATUS_OK,
        90 },
    { "keeps what lies beside the raw grid", converter("Converter", "FROM", "TO") + raw, 13, 13,
        STATUS_OK, 13 },
    { "keeps it however much is rounded",
        converter("Converter", "FROM * 10", "ROUND(TO / 10, 0)") + intReg("R", 0), 18, 2, STATUS_OK,
        18 },
    { "every integer where no grid is told",
        converter("Converter", "FROM", "TO") + node("Integer", "R", "<pValue>Reg</pValue>")
            + intReg("Reg", 0),
        10, 21, STATUS_OK, 21 },
    { "nothing beyond what is behind", node("Float", "F", "<pValue>R</pValue><Max>99</Max>") + raw,
        10, 98, notConvertible, 10 },
    { "a Boolean for one", overCheck, 0, 1, STATUS_OK, 5 },
    { "and no half", overCheck, 5, 0.5, notConvertible, 5 },
    { "takes a value of the float's grid", stepped, 0, 1.7, STATUS_OK, 2 },
    { "and no other", stepped, 5, 1.75, ERROR_VALUE_NOT_ON_INCREMENT, 5 },
    { "between two values of a grid, however far", fine, 0, 500000.05, ERROR_VALUE_NOT_ON_INCREMENT,
        0 },
    { "on it as far as doubles can tell", fine, 0, 100000000000.1, STATUS_OK, 0x76 },
    { "writes back what lies beside the grid", inEights(""), 13, 13, STATUS_OK, 13 },
    { "and nothing else beside it", inEights(""), 13, 14, ERROR_VALUE_NOT_ON_INCREMENT, 13 },
    { "nor what cannot be read", inEights("<AccessMode>WO</AccessMode>"), 13, 13,
        ERROR_VALUE_NOT_ON_INCREMENT, 13 },
    { "what only a double holds", reg("FloatReg", "F", 0, "<Length>8</Length>"), 0, 1e300,
        STATUS_OK, 0x3C },
};

TEST(Standard, SaysWhatReachesTheRegister)
{
    for (const Write& test : writes) {
        SCOPED_TRACE(test.what);
        TestCamera camera("F", test.nodes);
        const std::array<std::uint8_t, 4> bytes
            = toBigEndian(static_cast<std::uint32_t>(test.before));
        EXPECT_TRUE(camera.port.write({ 0, 4 }, bytes.data()).isOk());
        const bool isInteger = camera.item("F").type == FEATURE_INTEGER;
        EXPECT_EQ(isInteger ? camera.set("F", static_cast<long>(test.value))
                            : camera.set("F", test.value),
            test.status);
        EXPECT_EQ(camera.registerAt(0), test.after);
    }
}

TEST(Standard, LimitsOfConvertersFollowTheirSlope)
{
    const std::string range = "<pValue>R</pValue><Min>0</Min><Max>50</Max>";
    const auto limits = [&](const std::string& more, const std::string& from,
                            const std::string& behind = {}) {
        TestCamera camera("F",
            node("Converter", "F",
                "<pValue>I</pValue><FormulaTo>FROM</FormulaTo>" + element("FormulaFrom", from)
                    + more)
                + (behind.empty() ? node("Integer", "I", range) + intReg("R", 0)
                                  : node("Float", "I", "<pValue>R</pValue>" + behind)
                            + reg("FloatReg", "R", 0)));
        EXPECT_TRUE(camera.port.write({ 0, 4 }, toBigEndian(std::uint32_t(20)).data()).isOk());
        camera.read("F");
        return std::pair(camera.item("F").floatMin, camera.item("F").floatMax);
    };
    EXPECT_EQ(limits("", "TO * 2"), std::pair(0.0, 100.0));
    EXPECT_EQ(limits("<Slope>Automatic</Slope>", "10 - TO"), std::pair(-40.0, 10.0));
    EXPECT_EQ(limits("<Slope>Decreasing</Slope>", "10 - TO"), std::pair(-40.0, 10.0));
    EXPECT_EQ(limits("<Slope>Varying</Slope>", "TO * TO"), std::pair(-DBL_MAX, DBL_MAX));
    EXPECT_EQ(limits("", "TO > 20 ? TO - 51 : TO"), std::pair(-DBL_MAX, DBL_MAX)); // a sign
    EXPECT_EQ(limits("", "1 / TO"), std::pair(0.02, DBL_MAX)); // the raw 0 has no value
    EXPECT_EQ(limits("", "0 - 1 / TO"), std::pair(-DBL_MAX, -0.02));
    EXPECT_EQ(limits("<Slope>Increasing</Slope>", "100 / (50 - TO)"), std::pair(2.0, DBL_MAX));
    EXPECT_EQ(limits("", "100 / (50 - TO)"), std::pair(2.0, DBL_MAX));
    EXPECT_EQ(limits("", "100 / (TO - 50)"), std::pair(-DBL_MAX, -2.0));
    // What any float fits into limits nothing.
    EXPECT_EQ(limits("", "TO * 2", "<Min>1</Min>"), std::pair(2.0, DBL_MAX));
    EXPECT_EQ(limits("", "10 - TO", "<Min>1</Min>"), std::pair(-DBL_MAX, 9.0));
    EXPECT_EQ(limits("", "10 - TO", "<Max>4</Max>"), std::pair(6.0, DBL_MAX));
    EXPECT_EQ(limits("", "TO * 2", "<Max>4</Max>"), std::pair(-DBL_MAX, 8.0));
}

TEST(Standard, CopiesAndBooleansAreWrittenThrough)
{
    TestCamera camera("I E",
        node("Integer", "I", "<pValue>R</pValue><pValueCopy>S</pValueCopy>")
            + node("Enumeration", "E", "<pValue>B</pValue>" + entry("No", 0) + entry("Yes", 1))
            + node("Boolean", "B", "<pValue>T</pValue><OnValue>7</OnValue>") + intReg("R", 0)
            + intReg("S", 4) + intReg("T", 8));
    EXPECT_EQ(camera.set("I", 9), STATUS_OK);
    EXPECT_EQ(camera.registerAt(0) + camera.registerAt(4), 18);
    EXPECT_EQ(camera.device.SetEnumValue("E", "Yes", 1), STATUS_OK);
    EXPECT_EQ(camera.registerAt(8), 7);
    EXPECT_EQ(camera.read("E"), "1");
}

TEST(Standard, AnErrorThatTheCameraReportsRefusesTheValue)
{
    TestCamera camera("I",
        node("Integer", "I", "<pValue>R</pValue><pError>Fault</pError>") + intReg("R", 0)
            + node("Enumeration", "Fault", "<pValue>High</pValue>" + entry("TooHigh", 1))
            + knife("IntSwissKnife", "High", { "R" }, "R > 5"));
    EXPECT_EQ(camera.set("I", 5), STATUS_OK);
    EXPECT_EQ(camera.set("I", 6), refused);
    EXPECT_EQ(camera.errorText(refused), "I: the camera reports TooHigh");
}

TEST(Standard, ExtensionsHoldNoNodes)
{
    TestCamera camera("I",
        node("Integer", "I",
            "<Extension><Integer Name=\"I\"><Value>9</Value></Integer>"
            "<Integer Name=\"X\"/><pValue>No</pValue></Extension><pValue>R</pValue>")
            + intReg("R", 0) + node("IntSwissKnife", "K", node("Expression", "X", "1"))
            + "<Extension><Category Name=\"Root\"/><IntReg Name=\"R\"/></Extension>");
    EXPECT_EQ(camera.listed(), "Main:0 I:1");
    EXPECT_EQ(camera.set("I", 4), STATUS_OK);
    EXPECT_EQ(camera.read("I"), "4");
    EXPECT_EQ(camera.camera->impl().description().find("X"), Description::absent);
}

TEST(Standard, WhatCanComeIsListedFromTheStart)
{
    // With all registers zero.
    TestCamera camera(openSimulated(
        TestCamera::description("Mode Comes Never Deep Kept Later Polled Told Unwritten ByTwin",
            node("Integer", "Mode", "<pValue>R</pValue>") + intReg("R", 0)
                + intReg("Comes", 4, "<pIsImplemented>Mode</pIsImplemented>")
                + intReg("Never", 8, "<pIsImplemented>Fixed</pIsImplemented>")
                + intReg("Fixed", 12, "<AccessMode>RO</AccessMode>")
                + intReg("ByTwin", 44, "<pIsImplemented>Twin</pIsImplemented>")
                + intReg("Twin", 0, oneIsReadOnly)
                + node("Category", "Deep",
                    "<pIsAvailable>Mode</pIsAvailable><Visibility>Guru</Visibility><pFeature>In</"
                    "pFeature>")
                + node("Integer", "Kept", "<pValue>Constant</pValue>")
                + node("Integer", "Constant", "<Value>0</Value>")
                + intReg("Later", 20, "<pIsImplemented>Constant</pIsImplemented>")
                + intReg("Polled", 24, "<pIsImplemented>Poll</pIsImplemented>")
                + intReg("Poll", 28, oneIsReadOnly + "<PollingTime>9</PollingTime>")
                + intReg("Told", 32, "<pIsImplemented>Tell</pIsImplemented>")
                + intReg("Tell", 36, oneIsReadOnly + "<pInvalidator>Mode</pInvalidator>")
                + intReg("Unwritten", 40, "<pIsImplemented>Zero</pIsImplemented>")
                + node("Integer", "Zero", "<Value>0</Value>")
                + intReg("In", 16, "<Visibility>Expert</Visibility>")),
        nullptr));
    EXPECT_EQ(camera.listed(),
        "Main:0 Mode:1 Comes:1 Deep:1 In:2 Kept:1 Later:1 Polled:1 Told:1 ByTwin:1");
    EXPECT_EQ(camera.item("Deep").level, LEVEL_EXPERT);
    EXPECT_EQ(camera.state("Comes") + camera.state("In"), 2 * FEATURE_NOT_AVAILABLE);
    EXPECT_EQ(camera.set("Comes", 1), notAvailable);
    EXPECT_EQ(camera.errorText(notAvailable), "Comes: not available now, depends on Mode");
    EXPECT_EQ(camera.repository.GetInvalidatedFeatures("Mode").size(), 4U);
    EXPECT_EQ(camera.set("Mode", 1), STATUS_OK);
    EXPECT_EQ(camera.set("Comes", 1) + camera.set("In", 2), STATUS_OK);
    EXPECT_EQ(camera.read("Comes") + camera.read("In"), "12");
    EXPECT_EQ(camera.set("Later", 1), notAvailable);
    EXPECT_EQ(camera.set("Kept", 1), STATUS_OK); // no register is written
    EXPECT_EQ(camera.set("Later", 1), STATUS_OK);
}

TEST(Standard, ALockTakesNothingFromWhatIsReadOnly)
{
    TestCamera camera("A B",
        intReg("A", 0, "<pIsLocked>One</pIsLocked><AccessMode>RO</AccessMode>")
            + intReg("B", 4, "<pIsLocked>Gone</pIsLocked>") + knife("IntSwissKnife", "One", {}, "1")
            + intReg("Gone", 8, "<pIsAvailable>Zero</pIsAvailable>") + zero);
    EXPECT_EQ(camera.state("A"), FEATURE_AVAILABLE);
    EXPECT_EQ(camera.state("B"), FEATURE_LOCKED); // nobody can tell that it is not
}

TEST(Standard, UnitAndRepresentationComeFromWhereTheValueComes)
{
    TestCamera camera(
        "F", overR("Integer", "", "<Unit>ms</Unit><Representation>IPV4Address</Representation>"));
    EXPECT_EQ(camera.item("F").description, "Unit: ms");
    EXPECT_EQ(camera.item("F").representation, REPRESENTATION_IPV4);
}

TEST(Standard, CommandsThatLoadOrResetRefreshAllThatTheyDoNotName)
{
    for (const auto& [name, refreshed] :
        { std::pair("SequencerSetLoad", "Device"), { "SequenceSetLoad", "Device" },
            { "SensorSetDefaults", "Device" }, { "StageReset", "Device" },
            { "CameraHeadReset", "Device" }, { "CounterReset", "" }, { "TimestampReset", "" },
            { "Download", "" }, { "SequencerSetLoadable", "" }, { "Trigger", "" } }) {
        const std::string command
            = node("Command", name, "<pValue>R</pValue><CommandValue>1</CommandValue>");
        TestCamera lone(name, command + intReg("R", 0));
        const auto affected = lone.repository.GetInvalidatedFeatures(name);
        EXPECT_EQ(affected.empty() ? "" : affected.front()->name, refreshed) << name;
        TestCamera telling(std::string(name) + " I",
            command + intReg("R", 0) + intReg("I", 4, element("pInvalidator", name)));
        EXPECT_EQ(telling.repository.GetInvalidatedFeatures(name).front()->name, "I") << name;
    }
}

TEST(Standard, ADescribedCamerasCommandLeavesTheBitsBesideIt)
{
    TestCamera camera("Size Fire Save Sel",
        reg("MaskedIntReg", "Size", 0, "<LSB>31</LSB><MSB>16</MSB>")
            + reg("MaskedIntReg", "FireBit", 0, "<Bit>0</Bit>")
            + node("Command", "Fire", "<pValue>FireBit</pValue><CommandValue>1</CommandValue>")
            + intReg("Sel", 4) + intReg("SaveReg", 4)
            + node("Command", "Save", "<pValue>SaveReg</pValue><CommandValue>9</CommandValue>"));
    EXPECT_EQ(camera.set("Size", 1500), STATUS_OK);
    EXPECT_EQ(camera.device.ExecuteCommand("Fire", 1), STATUS_OK);
    EXPECT_EQ(camera.read("Size"), "1500");
    EXPECT_EQ(camera.set("Sel", 3), STATUS_OK);
    EXPECT_EQ(camera.read("Sel"), "3");
    EXPECT_EQ(camera.device.ExecuteCommand("Save", 1), STATUS_OK);
    EXPECT_EQ(camera.read("Sel"), "0"); // the command had the whole register
}

TEST(Standard, ADescribedCamerasCommandIsDoneWhereverItIsWritten)
{
    TestCamera camera("Sel Fire",
        node("Integer", "Sel", "<Value>0</Value>") + node("Integer", "Code", "<Value>9</Value>")
            + node("Command", "Fire", "<pValue>R</pValue><pCommandValue>Code</pCommandValue>")
            + intReg("R", 0, "<pIndex Offset=\"4\">Sel</pIndex>"));
    EXPECT_EQ(camera.set("Sel", 1), STATUS_OK);
    EXPECT_EQ(camera.device.ExecuteCommand("Fire", 1), STATUS_OK);
}

} // namespace
