// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "SettingsUser.h"
#include "base/StatusCodes.h"
#include "memory/MemoryBackend.h"
#include "memory/RegisterMemory.h"
#include "memory/RegisterValues.h"

#include <map>
#include <thread>
#include <tuple>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

using Outcome = ZQRestoredLine::Outcome;
using State = ZQCameraTask::State;

TEST(SettingsRestoring, FindsTheOrderInWhichTheCameraTakesThem)
{
    using Edits = std::vector<std::pair<const char*, const char*>>;
    const std::vector<std::pair<Edits, Edits>> cases {
        { { { "Width", "64" }, { "OffsetX", "1000" } },
            { { "OffsetX", "0" }, { "Width", "1936" } } },
        { { { "BinningHorizontal", "2" }, { "Width", "640" }, { "PixelFormat", "Mono8" } },
            { { "BinningHorizontal", "1" }, { "Width", "1936" }, { "PixelFormat", "BayerRG8" } } },
        { { { "ExposureAuto", "Continuous" }, { "ExposureAutoTarget", "20" } },
            { { "ExposureAuto", "Off" }, { "ExposureTime", "1234" } } },
        { { { "AcquisitionMode", "MultiFrame" }, { "AcquisitionFrameCount", "9" } },
            { { "AcquisitionMode", "Continuous" } } },
        { { { "TriggerMode", "On" }, { "TriggerSource", "Line1" }, { "TriggerDelay", "50" } },
            { { "TriggerMode", "Off" } } },
        { { { "AcquisitionFrameRateEnable", "True" }, { "AcquisitionFrameRate", "5" },
              { "ExposureTime", "150000" } },
            { { "ExposureTime", "1000" }, { "AcquisitionFrameRate", "60" },
                { "AcquisitionFrameRateEnable", "False" } } },
    };
    TestCamera pattern(TestCamera::simulated());
    const ZQSettings plain = withoutTables(pattern);
    for (const auto& [first, second] : cases) {
        TestCamera camera(TestCamera::simulated());
        const auto apply = [&camera, &plain](const Edits& edits) {
            for (const auto& [name, value] : edits) {
                ZQCamera::Impl& impl = camera.camera->impl();
                const Status status = writeSetting(impl, *impl.feature(name), value);
                EXPECT_TRUE(status.isOk()) << name << ": " << status.text();
            }
            return savedAs(camera, plain);
        };
        const ZQSettings a = apply(first);
        const ZQSettings b = apply(second);
        ASSERT_NE(differences(a, b), "");
        for (const ZQSettings* settings : { &a, &b, &a }) {
            const ZQRestoreReport report = restored(camera, *settings);
            EXPECT_EQ(report.exitStatus(), 0) << report.toText();
            EXPECT_EQ(differences(*settings, savedAs(camera, plain)), "") << first.front().first;
        }
    }
}

/// Whatever is locked by a mode: written before the mode locks it, and after it has unlocked it.
TEST(SettingsRestoring, WritesWhatAModeLocksWhileItIsOpen)
{
    TestCamera camera("Mode Value",
        node("Boolean", "Mode", element("pValue", "ModeReg"))
            + node("Integer", "Value", element("pValue", "ValueReg") + element("pIsLocked", "Mode"))
            + intReg("ModeReg", 0) + intReg("ValueReg", 4));
    for (const auto& [mode, value, outcome] :
        { std::tuple("True", "5", Outcome::Restored), { "False", "6", Outcome::Restored },
            { "True", "7", Outcome::Restored }, { "True", "8", Outcome::Refused } }) {
        const ZQRestoreReport report = restored(
            camera, settingsOf(std::string("Mode = ") + mode + "\nValue = " + value + "\n"));
        EXPECT_EQ(report.lines[1].outcome, outcome) << report.toText(true);
    }
    const ZQRestoreReport report = restored(camera, settingsOf("Value = 9\n"));
    EXPECT_EQ(details(report), "Value = 9: refused: locked by Mode\n");
}

/// Rounds what is written to the value, moves another value with it, and takes no 13.
class Rounding : public CameraBehaviour {
public:
    void start(RegisterMemory& memory) override { writeWord(memory, 0, 100); }
    void beforeRead(RegisterMemory&, std::uint64_t, std::size_t) override { }
    void afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t) override
    {
        if (address == 0) {
            writeWord(memory, 0, readWord(memory, 0) / 10 * 10);
            writeWord(memory, 4, readWord(memory, 0) * 2);
        }
    }
};

TEST(SettingsRestoring, SaysWhatBecameOfEveryLine)
{
    const auto choice = node("Enumeration", "Choice",
        R"(<EnumEntry Name="A"><Value>0</Value></EnumEntry>)"
        R"(<EnumEntry Name="B"><Value>1</Value></EnumEntry>)"
            + element("pValue", "R3"));
    TestCamera camera(openSimulated(
        TestCamera::description("Value Follower Fixed Choice Real Text Never Run",
            node("Integer", "Value",
                element("pValue", "R0") + element("Max", "1000") + element("Unit", "us"))
                + node("Integer", "Follower", element("pValue", "R1"))
                + node("Integer", "Fixed", element("pValue", "R2")) + choice
                + reg("FloatReg", "Real", 16) + reg("StringReg", "Text", 20)
                + node(
                    "Integer", "Never", element("pValue", "R0") + element("pIsImplemented", "No"))
                + node("Integer", "No", element("Value", "0")) + command("Run", "R3", "1")
                + intReg("R0", 0) + intReg("R1", 4) + intReg("R2", 8, element("AccessMode", "RO"))
                + intReg("R3", 12)),
        std::make_unique<Rounding>()));
    struct Case {
        const char* lines;
        const char* report;
    };
    const std::vector<Case> cases {
        { "Value = 55 [us]\n", "Value: adjusted by the camera: 55 -> 50 [us]\n" },
        { "Value = 50\nFollower = 7\n", "Value: already so: 50\nFollower: restored: 100 -> 7\n" },
        { "Value = 60\nFollower = 7\n", "Value: restored: 50 -> 60\nFollower: already so: 7\n" },
        { "Value = 2000\n", "Value = 2000: refused: 2000 is above the maximum of 1000\n" },
        { "Value = 5 [ms]\n",
            "Value = 5 [ms]: refused: its unit is \"ms\", and \"us\" in the camera\n" },
        { "Value = 1.5\n", "Value = 1.5: refused: \"1.5\" is no integer\n" },
        { "Value = 99999999999999999999\n",
            "Value = 99999999999999999999: refused: "
            "\"99999999999999999999\" is no integer\n" },
        { "Fixed = 1\n", "Fixed = 1: refused: is read-only\n" },
        { "Choice = B\n", "Choice: restored: A -> B\n" },
        { "Choice = C\n", "Choice = C: unknown here: \"C\" is none of its entries here\n" },
        { "Real = \"1,5\"\n", "Real = 1,5: refused: \"1,5\" is no number\n" },
        { "Real = 1.1\n", "Real: adjusted by the camera: 1.1 -> 1.100000023841858\n" },
        { "Text = \"a b\"\n", "Text: restored:  -> a b\n" },
        { "Text = abcde\n", "Text = abcde: refused: the text has 5 bytes, at most 4 fit\n" },
        { "Never = 1\n", "Never = 1: unknown here: the camera does not implement it\n" },
        { "Other = 1\n", "Other = 1: unknown here: the camera has no such feature\n" },
        { "Run = 1\n", "Run = 1: refused: is no feature that holds a value of one line\n" },
        { "Value[Choice=A] = 1\n",
            "Value[Choice=A] = 1: unknown here: \"Choice\" does not select it here\n" },
    };
    for (const auto& [lines, text] : cases) {
        const ZQSettings settings = settingsOf(lines);
        const ZQRestoreReport report = restored(camera, settings);
        EXPECT_EQ(details(report), text);
        expectTrue(camera, settings, report, lines);
    }
}

TEST(SettingsRestoring, WritesNothingThatAlreadyHoldsAndMovesEachSelectorFewTimes)
{
    TestCamera camera(TestCamera::simulated());
    const ZQSettings settings = saved(camera);
    std::map<std::uint64_t, int> writes;
    const auto count = [&writes](std::uint64_t address, auto, bool isWrite) {
        writes[address] += isWrite ? 1 : 0;
        return false;
    };
    camera.port.setFaultHook(count);
    EXPECT_EQ(restored(camera, settings).count(Outcome::AlreadySo), settings.lines().size());
    camera.port.setFaultHook(nullptr);
    EXPECT_EQ(writes[0x100], 0);
    EXPECT_EQ(writes[0x4000], 0);
    const ZQSettings here = settings.only({ "Gain[GainSelector=All]" }); // where it stands
    const RegisterCount none(camera.port);
    EXPECT_EQ(savedAs(camera, here).lines().at(0).unit, "dB");
    EXPECT_EQ(none.writes(), 0U);
}

/// Whatever the order of the tree.
TEST(SettingsRestoring, WritesFirstWhatOthersWaitFor)
{
    const std::string limited = element("pMax", "B");
    for (const auto& [ofA, ofB, order] :
        { std::tuple(element("pInvalidator", "B"), std::string(), "BA"),
            { limited, element("pInvalidator", "A"), "BA" }, // the limit counts more
            { std::string(), element("pInvalidator", "A"), "AB" } }) {
        TestCamera camera("A B",
            node("Integer", "A", element("pValue", "R0") + ofA)
                + node("Integer", "B", element("pValue", "R1") + ofB) + intReg("R0", 0)
                + intReg("R1", 4));
        camera.set("B", 10);
        std::string written;
        camera.port.setFaultHook([&written](std::uint64_t address, auto, bool isWrite) {
            written += !isWrite ? "" : address == 0 ? "A" : "B";
            return false;
        });
        EXPECT_EQ(restored(camera, settingsOf("A = 5\nB = 20\n")).exitStatus(), 0);
        camera.port.setFaultHook(nullptr);
        EXPECT_EQ(written, order) << ofA << ofB;
    }
}

/// Takes what it is told and says that it does not.
class Unconfirming : public MemoryBackend {
public:
    using MemoryBackend::MemoryBackend;
    Status write(const Register& place, const std::uint8_t* buffer, AccessKind kind) override
    {
        (void)MemoryBackend::write(place, buffer, kind);
        return { cameraSlow, "no answer" };
    }
};

TEST(SettingsRestoring, CanTakeBackWhatArrivedUnconfirmed)
{
    TestCamera camera(openOver(
        TestCamera::description("A", intReg("A", 0)), std::make_unique<Unconfirming>(nullptr)));
    ZQSettingsRestoring restoring(*camera.camera, settingsOf("A = 5\n"));
    EXPECT_EQ(restoring.wait(settingsLimit), State::Done);
    EXPECT_EQ(details(restoring.report()), "A: restored: 0 -> 5\n");
    EXPECT_EQ(valueIn(restoring.before(), "A"), "0");
}

TEST(SettingsRestoring, SaysWhetherWhatCannotBeReadWasWritten)
{
    TestCamera camera("A", intReg("A", 0));
    for (const auto& [areWritesLost, text] :
        { std::pair(false, "was written, and "), { true, "" } }) {
        camera.port.setFaultHook([lost = areWritesLost](std::uint64_t address, auto, bool isWrite) {
            return address == 0 && (!isWrite || lost);
        });
        EXPECT_EQ(details(restored(camera, settingsOf("A = 5\n"))),
            std::string("A = 5: not known: ") + text + "cannot be read: injected fault\n");
    }
    camera.port.setFaultHook(nullptr);
}

TEST(SettingsRestoring, ADryRunWritesNoValueAndSaysWhatWouldBeWritten)
{
    TestCamera camera(TestCamera::simulated());
    ZQSettings settings = saved(camera);
    camera.set("Width", 640);
    camera.set("TriggerDelay", 5.0);
    const std::string before = everything(camera);
    ZQSettingsRestoring::Options options;
    options.isDryRun = true;
    const ZQRestoreReport report = restored(camera, settings.only({ "Width", "Height" }), options);
    EXPECT_EQ(details(report, false), "Width: would be written: 640 -> 512 [px]\n");
    EXPECT_EQ(report.exitStatus(), 0);
    EXPECT_EQ(everything(camera), before);

    camera.port.setFaultHook([](auto, auto, bool) {
        std::this_thread::sleep_for(std::chrono::milliseconds(6)); // more than a poll takes
        return false;
    });
    ZQSettingsRestoring cut(*camera.camera, settings, options);
    cut.poll();
    cut.cancel();
    camera.port.setFaultHook(nullptr);
    EXPECT_EQ(cut.report().lines.back().reason, "not reached");
    EXPECT_EQ(cut.report().exitStatus(), 2);
}

TEST(SettingsRestoring, IsTakenBackAsOneStep)
{
    TestCamera camera(TestCamera::simulated());
    const ZQSettings settings = withoutTables(camera);
    alter(*camera.camera, settings);
    const ZQSettings other = savedAs(camera, settings);
    ZQSettingsRestoring restoring(*camera.camera, settings);
    ASSERT_EQ(restoring.wait(settingsLimit), State::Done);
    restoring.cancel(); // too late
    EXPECT_EQ(restoring.poll(), State::Done);
    EXPECT_EQ(differences(settings, savedAs(camera, settings)), "");
    restored(camera, restoring.before());
    EXPECT_EQ(differences(other, savedAs(camera, settings)), "");
}

TEST(SettingsRestoring, TakesFilesOfOtherToolsAndOfOtherCameras)
{
    TestCamera camera(TestCamera::simulated());
    const ZQSettings settings = withoutTables(camera);
    alter(*camera.camera, settings);
    ZQSettings read;
    std::string error;
    ASSERT_TRUE(ZQSettings::Parse(settings.toPersistenceText(), read, error)) << error;
    const ZQRestoreReport report = restored(camera, read);
    EXPECT_EQ(report.exitStatus(), 0) << report.toText();
    for (const auto& difference : ZQSettings::Compare(settings, savedAs(camera, settings))) {
        EXPECT_EQ(difference.name(), "LUTIndex") << difference.text(); // only moves there
    }

    const ZQRestoreReport foreign
        = restored(camera, settingsOf("Width = 640\n", "vendor = V\nmodel = M\n"));
    EXPECT_EQ(foreign.warnings.size(), 1U);
    EXPECT_EQ(foreign.count(Outcome::Restored), 1U);
    for (const auto& [header, warning] :
        { std::pair("firmware = 0\n", "firmware: 0, here " + settings.header().firmware),
            { "description version = 0\ndescription checksum = 0\n",
                "description: version 0, here version 1.0.0" } }) {
        EXPECT_EQ(restored(camera, settingsOf("Width = 640\n", header)).warnings,
            std::vector { "the settings are of another " + warning });
    }
    EXPECT_EQ(details(restored(camera, settingsOf("Gain[GainSelector=X] = 1\n"))),
        "Gain[GainSelector=X] = 1: unknown here: GainSelector: \"X\" is none of its entries "
        "here\n");
}

TEST_F(RealDescriptions, SettingsThatWereAlteredAreRestored)
{
    m_files.emplace_back(); // the simulated camera
    for (const std::string& path : m_files) {
        TestCamera camera(path.empty() ? TestCamera::simulated() : TestCamera::ofFile(path));
        alter(*camera.camera, saved(camera)); // much of what starts at zero is illegal
        const ZQSettings settings = saved(camera);
        EXPECT_GT(alter(*camera.camera, settings), 0U) << path;
        const ZQSettings other = saved(camera);
        const std::size_t differing = ZQSettings::Compare(settings, other).size();
        ZQSettingsRestoring restoring(*camera.camera, settings);
        {
            const RegisterCount count(camera.port);
            ASSERT_EQ(restoring.wait(settingsLimit), State::Done) << path << restoring.error();
            EXPECT_LE(count.writes(), 3 * differing) << path;
        }
        EXPECT_EQ(restoring.report().exitStatus(), 0) << path << restoring.report().toText();
        EXPECT_EQ(differences(settings, saved(camera)), "") << path;

        const ZQRestoreReport back = restored(camera, restoring.before());
        const auto remaining = ZQSettings::Compare(other, saved(camera));
        EXPECT_EQ(remaining.size(), back.count(Outcome::Refused)) << path << back.toText();
        EXPECT_LE(remaining.size(), 1U); // an entry that came only with a mode that ended since
    }
}

} // namespace
