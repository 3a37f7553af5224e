// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQSettings.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <vector>

using namespace zqcameralib;

namespace {

std::string whole(const std::string& lines, const std::string& header = "")
{
    return "[camera settings 1]\n" + header + "[lines]\n" + lines + "[end]\n";
}

ZQSettings parsed(const std::string& text)
{
    std::string error;
    ZQSettings settings;
    EXPECT_TRUE(ZQSettings::Parse(text, settings, error)) << error << "\n" << text;
    return settings;
}

std::string errorOf(const std::string& text)
{
    std::string error;
    ZQSettings settings;
    EXPECT_FALSE(ZQSettings::Parse(text, settings, error)) << text.substr(0, 200);
    EXPECT_TRUE(settings.lines().empty());
    EXPECT_EQ(error.find('\n'), std::string::npos);
    EXPECT_LT(error.size(), 300U);
    return error;
}

std::string labelsOf(const ZQSettings& settings)
{
    std::string text;
    for (const ZQSettingsLine& line : settings.lines()) {
        text += (text.empty() ? "" : "; ") + line.label() + "=" + line.value;
    }
    return text;
}

std::string differencesOf(const ZQSettings& a, const ZQSettings& b)
{
    std::string text;
    for (const ZQSettingsDifference& difference : ZQSettings::Compare(a, b)) {
        text += difference.text() + "\n";
    }
    return text;
}

TEST(SettingsText, ReadsBackWhateverAValueHolds)
{
    ZQSettings settings;
    settings.setHeader({ "V", "M \"quoted\"", "#7", "1.0 [b]", "1.2.3", "ab12", "2026-01-02" });
    const std::vector<std::string> values { "640", "-9223372036854775808", "5e-324", "", " a ",
        "a # b", "a\tb\nc\\\"d\"", "\xC3\xA4\xE2\x82\xAC", "\xFF\xFE raw", std::string("x\0y", 3),
        "[x]=," };
    for (const std::string& value : values) {
        settings.put({ "F", { { "S", value }, { "I", "3" } }, value, value, 0 });
    }
    const ZQSettings read = parsed(settings.toText());
    EXPECT_EQ(read.toText(), settings.toText());
    ASSERT_EQ(read.lines().size(), values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_EQ(read.lines()[i].value, values[i]);
        EXPECT_EQ(read.lines()[i].unit, values[i]);
        EXPECT_EQ(read.lines()[i].selectors[0].value, values[i]);
    }
    EXPECT_EQ(read.header().model, "M \"quoted\"");
    EXPECT_NE(settings.toText().find(R"("\xFF\xFE raw")"), std::string::npos);
}

TEST(SettingsText, TakesWhatEditorsAndPeopleMakeOfIt)
{
    const std::string text
        = whole("  Width=640\n\n# why\n Gain [ GainSelector = Red ,I=2]= 1.5[dB]# comment\n"
                "DeviceUserID = left camera\nTag = \"# [x]\"\nTime = 5 [\xC2\xB5s]\n");
    const char* labels = "Width=640; Gain[GainSelector=Red, I=2]=1.5; "
                         "DeviceUserID=left camera; Tag=# [x]; Time=5";
    EXPECT_EQ(labelsOf(parsed(text)), labels);
    std::string windows = "\xEF\xBB\xBF";
    for (const char c : text) {
        windows += c == '\n' ? "\r\n" : std::string(1, c);
    }
    EXPECT_EQ(labelsOf(parsed(windows)), labels);
    EXPECT_EQ(parsed(windows).find("Width")->number, 3U);
    EXPECT_EQ(parsed(text.substr(0, text.size() - 1)).lines().size(), 5U); // no last line end
}

TEST(SettingsText, RefusesADamagedTextAsAWholeAndNamesTheLine)
{
    struct Case {
        std::string text, error;
    };
    const std::vector<Case> cases {
        { "", "line 1: the text is empty" },
        { "# nothing\n", "line 1: there is no setting in the text" },
        { "[camera settings 2]\n", "line 1: the layout \"[camera settings 2]\" is not known here" },
        { "[x]\n", "line 1: is not [camera settings 1]" },
        { "[camera settings 1]\nvendor = V\n", "line 2: the text ends here, without [lines]" },
        { whole("", "colour = red\n"), "line 2: is no line of the header: \"colour = red\"" },
        { whole("", "date = 1\ndate = 1\n"), "line 3: date stands there twice" },
        { whole("Wid\n"), "line 3: has no \"=\" behind the name: \"Wid\"" },
        { whole("= 3\n"), "line 3: does not begin with the name of a feature: \"= 3\"" },
        { whole("A[S] = 3\n"),
            "line 3: the selectors are not told as [Name=value, Name=value]: \"A[S] = 3\"" },
        { whole("A =\n"),
            "line 3: has no value, or one with other characters that is not in "
            "quotes: \"A =\"" },
        { whole("A = \"x\n"),
            "line 3: has no value, or one with other characters that is not in "
            "quotes: \"A = \\\"x\"" },
        { whole("A = 3 [us\n"), "line 3: the unit is not told as [unit]: \"A = 3 [us\"" },
        { whole("A = \"x\" y\n"), "line 3: goes on behind the value: \"A = \\\"x\\\" y\"" },
        { whole("A = 1\nB = 2\nA = 1\n"), "line 5: \"A\" stands in line 3 already" },
        { whole("A[S=1, T=2] = 1\nA[T=2, S=1] = 2\n"),
            "line 4: \"A[T=2, S=1]\" stands in line 3 already, with another value" },
        { whole("A = 1\n") + "B = 2\n", "line 5: stands behind [end]" },
        { whole(std::string(59, 'A') + "\xC3\xA4\n"), // cut between characters
            "line 3: has no \"=\" behind the name: \"" + std::string(59, 'A') + "...\"" },
        { whole("A = \xC3\n"), "line 3: is not UTF-8 text" },
        { whole(std::string("A = 1\0\n", 7)), "line 3: holds a control character, 0x00" },
        { whole("A = 1\x7F\n"), "line 3: holds a control character, 0x7F" },
        { "\xFF\xFE[", "line 1: the text is UTF-16; it has to be UTF-8" },
        { whole("A = " + std::string(10U << 20U, 'x') + "\n"), "line 3: longer than 65536 bytes" },
        { "A\t1\nB 2\n", "line 2: is not a name and a value with a tab between them: \"B 2\"" },
        { "A\t1\nB\t{S}\t2\n",
            "line 2: the selectors are not told as {Name=value}: \"B\\x09{S}\\x092\"" },
        { "A\t1\nB\t{S=x\t2\n",
            "line 2: the selectors are not told as {Name=value}: \"B\\x09{S=x\\x092\"" },
        { "A\t1\nA b\t2\n", "line 2: does not begin with the name of a feature: \"A b\\x092\"" },
        { "A\t1\nB\t2", "line 2: the text ends within this line: \"B\\x092\"" },
        { "A\t1\nB\t2\nA\t3\n", "line 3: \"A\" stands in line 1 already, with another value" },
    };
    for (const auto& each : cases) {
        EXPECT_EQ(errorOf(each.text), each.error);
    }
}

TEST(SettingsText, IsRefusedWhereverItIsCutOff)
{
    const std::string text = whole("A = 1\nB[S=x] = \"y\" [us]\n", "vendor = V\n");
    for (std::size_t length = 0; length + 1 < text.size(); ++length) {
        EXPECT_EQ(errorOf(text.substr(0, length)).substr(0, 5), "line ") << length;
    }
}

TEST(SettingsText, ReadsAndWritesThePersistenceLayoutOfOtherTools)
{
    const ZQSettings sequence
        = parsed("# {X}\n# GenApi persistence file (version 3.1.0)\n"
                 "# Device = Maker::Model -- text -- Device version = 1.0.2 -- more\n"
                 "Width\t640\nGainSelector\tRed\nGain\t1.5\nGainSelector\tBlue\nGain\t2\n"
                 "LUTSelector\tA\nLUTIndex\t0\nLUTValue\t5\nLUTIndex\t1\nLUTValue\t6\n"
                 "DeviceUserID\t\nReverseX\t1\n");
    EXPECT_EQ(sequence.header().model, "Model");
    EXPECT_EQ(sequence.header().descriptionVersion, "1.0.2");
    EXPECT_TRUE(sequence.hasAllPositions());
    EXPECT_EQ(parsed(sequence.toText()).toText(), sequence.toText());

    const ZQSettings exact
        = parsed(whole("Width = 640.0\nGain[GainSelector=Red] = 1.5 [dB]\nGain[GainSelector=Blue] "
                       "= 3\nLUTValue[LUTSelector=A, LUTIndex=0] = 5\n"
                       "LUTValue[LUTSelector=A, LUTIndex=1] = 6\nDeviceUserID = \"\"\n"
                       "ReverseX = True\nLUTSelector = A\n"));
    EXPECT_EQ(differencesOf(sequence, exact), "Gain[GainSelector=Blue]: 2 | 3\n");

    const ZQSettings torn = parsed(whole(R"(A = "a\x09b\nc\x0D")"
                                         "\n"));
    EXPECT_EQ(labelsOf(parsed(torn.toPersistenceText())), "A=a b c ");

    const ZQSettings again = parsed(exact.toPersistenceText());
    EXPECT_EQ(differencesOf(again, exact), "");
    EXPECT_EQ(labelsOf(parsed("A\t{S=x}\t1\nA\t{S=y}{T=z w}\t2\nB\t{S=1,T=2}\t3\nS\tx\n")),
        "A[S=x]=1; A[S=y, T=\"z w\"]=2; B[S=1, T=2]=3; S=x");
}

TEST(SettingsText, ComparesValuesAndUnits)
{
    const ZQSettings a
        = parsed(whole("A = 1.0 [us]\nB = 9007199254740993\nC = 5 [ms]\nD = x\nE = 0x10\n"
                       "G = 0xFFFFFFFFFFFFFFFF\n"));
    const ZQSettings b = parsed(whole(
        "A = 1 [\xC2\xB5s]\nB = 9007199254740992\nC = 5 [us]\nE = 16\nF[S=q] = \"\"\nG = -1\n"));
    EXPECT_EQ(differencesOf(a, b),
        "B: 9007199254740993 | 9007199254740992\nC: 5 [ms] | 5 [us]\nD: x | (none)\n"
        "F[S=q]: (none) | \n");
    const ZQSettings unplaced = parsed("Gain\t1\nGainSelector\tBlue\nGain\t2\n");
    EXPECT_EQ(differencesOf(unplaced, unplaced), "");
    ZQSettings merged = b;
    for (const ZQSettingsLine& line : a.only({ "B", "C", "D" }).lines()) {
        merged.put(line);
    }
    EXPECT_EQ(differencesOf(a, merged), "F[S=q]: (none) | \n");
}

TEST(SettingsText, IsWrittenAsAWholeFileOrNotAtAll)
{
    const std::string path = testing::TempDir() + "zq-settings-test.txt";
    std::string error;
    ASSERT_TRUE(ZQSettings::WriteFile(path, whole("A = 1\n"), error)) << error;
    ZQSettings file;
    ASSERT_TRUE(ZQSettings::ReadFile(path, file, error)) << error;
    EXPECT_EQ(labelsOf(file), "A=1");
    std::ofstream(path, std::ios::app) << "B = 2\n";
    EXPECT_FALSE(ZQSettings::ReadFile(path, file, error));
    EXPECT_EQ(error, path + ": line 5: stands behind [end]");
    std::remove(path.c_str());
    EXPECT_FALSE(ZQSettings::ReadFile(path, file, error));
    EXPECT_EQ(error, path + ": No such file or directory");
    EXPECT_FALSE(ZQSettings::WriteFile(testing::TempDir() + "no/such/file", "", error));
    EXPECT_NE(error, "");
}

} // namespace
