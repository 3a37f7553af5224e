// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "DistantCamera.h"
#include "SettingsUser.h"
#include "simulation/SimulatedCamera.h"

#include <climits>
#include <clocale>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

constexpr const char* yes = "<Streamable>Yes</Streamable>";

TEST(SettingsSaving, FindsEverySettingOfTheSimulatedCameraAndChangesNothing)
{
    TestCamera camera(TestCamera::simulated());
    camera.set("DeviceUserTag", 7);
    camera.device.SetEnumValue("LUTSelector", "Red", -1);
    camera.set("LUTIndex", 5);
    const std::string before = everything(camera);
    const ZQSettings settings = saved(camera);
    EXPECT_EQ(everything(camera), before);

    EXPECT_EQ(settings.header().model, camera.camera->model());
    EXPECT_EQ(settings.header().descriptionVersion, "1.0.0");
    EXPECT_EQ(valueIn(settings, "Width"), camera.read("Width"));
    EXPECT_EQ(valueIn(settings, "DeviceUserTag"), "7");
    EXPECT_EQ(valueIn(settings, "PixelFormat"), "Mono8");
    EXPECT_EQ(valueIn(settings, "LUTValue[LUTSelector=Blue, LUTIndex=255]"), "4095");
    EXPECT_EQ(valueIn(settings, "LUTSelector"), "Red");
    EXPECT_EQ(valueIn(settings, "TriggerMode[TriggerSelector=FrameStart]"), "Off");
    for (const char* none : { "AcquisitionStart", "UserSetLoad", "DeviceTemperature" }) {
        EXPECT_EQ(settings.find(none), nullptr) << none;
    }
    ZQSettings parsed;
    std::string error;
    ASSERT_TRUE(ZQSettings::Parse(settings.toText(), parsed, error)) << error;
    EXPECT_EQ(differences(settings, parsed), "");
    ASSERT_TRUE(ZQSettings::Parse(settings.toPersistenceText(), parsed, error)) << error;
    for (const ZQSettingsDifference& difference : ZQSettings::Compare(settings, parsed)) {
        EXPECT_EQ(difference.name(), "LUTIndex"); // only moves there
    }
}

TEST(SettingsSaving, IsTheSameInEveryLocale)
{
    TestCamera camera(TestCamera::simulated());
    camera.set("Gamma", 1.25);
    const ZQSettings lines = saved(camera).only({ "Gamma", "AcquisitionFrameRate", "Width" });
    if (std::setlocale(LC_ALL, "de_DE.utf8") == nullptr) {
        GTEST_SKIP() << "no locale with another decimal point";
    }
    alter(*camera.camera, lines);
    const ZQRestoreReport report = restored(camera, lines);
    const ZQSettings now = savedAs(camera, lines);
    std::setlocale(LC_ALL, "C");
    EXPECT_EQ(report.exitStatus(), 0) << report.toText();
    ASSERT_EQ(now.lines().size(), 3U);
    for (std::size_t i = 0; i < now.lines().size(); ++i) {
        EXPECT_EQ(now.lines()[i].value, lines.lines()[i].value);
    }
}

TEST(SettingsSaving, WithoutMarksTakesWhatCanBeWrittenAndNamesWhatItLeavesOut)
{
    TestCamera camera("Plain Only Secret SetLoad Raw Addr Run ExtraSelector Kind",
        node("Integer", "Plain", element("pValue", "R0"))
            + node("Integer", "Only", element("pValue", "R1"))
            + node("Integer", "Secret", element("pValue", "R2"))
            + node("Integer", "SetLoad", element("pValue", "R0"))
            + reg("Register", "Raw", 12, element("Length", "8"))
            + node("Integer", "Addr",
                element("pValue", "R3") + element("Representation", "IPV4Address"))
            + command("Run", "R3", "1")
            + node("Enumeration", "ExtraSelector",
                R"(<EnumEntry Name="A"><Value>0</Value></EnumEntry>)"
                R"(<EnumEntry Name="B"><Value>1</Value></EnumEntry>)"
                    + element("pValue", "R4") + element("pSelected", "Kind"))
            + node("Integer", "Kind", element("pValue", "R5")) + intReg("R0", 0)
            + intReg("R1", 4, element("AccessMode", "RO"))
            + intReg("R2", 8, element("AccessMode", "WO")) + intReg("R3", 20) + intReg("R4", 24)
            + intReg("R5", 28));
    const ZQSettings settings = saved(camera);
    EXPECT_EQ(labels(settings), "Plain Kind[ExtraSelector=A] Kind[ExtraSelector=B]");
    EXPECT_EQ(leftOut(settings),
        "Secret: can only be written\nSetLoad: writing it replaces other settings\n"
        "Raw: is raw data\n");
}

TEST(SettingsSaving, ASelectorThatIsNotThereDoesNotChoose)
{
    for (const char* condition : { "pIsAvailable", "pIsImplemented" }) {
        TestCamera camera("KindSelector Kind",
            node("Boolean", "KindSelector",
                element(condition, "No") + element("pValue", "R0") + element("pSelected", "Kind"))
                + node("Integer", "No", element("Value", "0")) + intReg("R0", 0)
                + intReg("Kind", 4));
        const ZQSettings settings = saved(camera);
        EXPECT_EQ(labels(settings) + leftOut(settings), "Kind") << condition;
    }
}

/// A table of 2 by `size` values, selected by a nested selector whose own place depends on the
/// outer one, and a width that a binning only claims to select.
std::string tables(int size)
{
    const auto place = [](const char* index, int step) {
        return R"(<pIndex Offset=")" + std::to_string(step) + R"(">)" + index + "</pIndex>";
    };
    return node("Boolean", "TableSelector",
               yes + element("pValue", "TableReg") + element("pSelected", "TableIndex"))
        + node("Integer", "TableIndex",
            element("pValue", "IndexReg") + element("Max", std::to_string(size - 1))
                + element("pSelected", "TableValue"))
        + node("Integer", "TableValue", yes + element("pValue", "ValueReg"))
        + node("Enumeration", "Binning",
            yes
                + std::string(R"(<EnumEntry Name="X1"><Value>0</Value></EnumEntry>)"
                              R"(<EnumEntry Name="X2"><Value>1</Value></EnumEntry>)")
                + element("pValue", "BinningReg") + element("pSelected", "Width"))
        + node("Integer", "Width", yes + element("pValue", "WidthReg")) + intReg("TableReg", 0)
        + intReg("IndexReg", 4, place("TableReg", 4)) + intReg("BinningReg", 16)
        + intReg("WidthReg", 20)
        + intReg("ValueReg", 64, place("IndexReg", 4) + place("TableReg", 2048));
}

TEST(SettingsSaving, MovesNestedSelectorsAndLeavesEachWhereItStoodUnderTheOuterOne)
{
    for (const char* selectors : { "TableSelector TableIndex", "TableIndex TableSelector" }) {
        TestCamera camera(std::string(selectors) + " TableValue Binning Width", tables(3));
        camera.set("TableIndex", 2);
        camera.set("TableValue", 9);
        camera.device.SetBooleanValue("TableSelector", 1);
        camera.set("TableIndex", 1);
        const ZQSettings settings = saved(camera);
        EXPECT_EQ(labels(settings),
            "TableSelector TableValue[TableSelector=False, TableIndex=0] "
            "TableValue[TableSelector=False, TableIndex=1] "
            "TableValue[TableSelector=False, TableIndex=2] "
            "TableValue[TableSelector=True, TableIndex=0] "
            "TableValue[TableSelector=True, TableIndex=1] "
            "TableValue[TableSelector=True, TableIndex=2] Binning Width");
        EXPECT_EQ(valueIn(settings, "TableValue[TableSelector=False, TableIndex=2]"), "9");
        EXPECT_EQ(valueIn(settings, "TableSelector"), "True");
        EXPECT_EQ(camera.registerAt(0), 1);
        EXPECT_EQ(camera.registerAt(4), 2);
        EXPECT_EQ(camera.registerAt(8), 1);
    }
}

TEST(SettingsSaving, NamesWhatHasTooManyPositions)
{
    TestCamera camera("TableSelector TableIndex TableValue", tables(257));
    const ZQSettings settings = saved(camera);
    EXPECT_EQ(labels(settings), "TableSelector");
    EXPECT_EQ(leftOut(settings),
        "Binning: is not shown by the description\nWidth: is not shown by the description\n"
        "TableValue[TableSelector=False]: TableIndex: has 257 positions, at most 256 are saved\n"
        "TableValue[TableSelector=True]: TableIndex: has 257 positions, at most 256 are saved\n");
}

TEST(SettingsSaving, PutsSelectorsBackWhicheverAccessFailsAndNeverTellsAWrongValue)
{
    TestCamera camera("TableSelector TableIndex TableValue Binning Width", tables(3));
    const ZQSettings right = saved(camera);
    ASSERT_GT(alter(*camera.camera, right), 6U);
    const ZQSettings settings = saved(camera);
    const std::string before = everything(camera);
    const std::uint64_t accesses = withFault(camera, 0, [&camera] { saved(camera); });
    for (std::uint64_t failing = 1; failing <= accesses; ++failing) {
        ZQSettingsSaving saving(*camera.camera);
        withFault(camera, failing, [&saving] { saving.wait(settingsLimit); });
        ASSERT_EQ(everything(camera), before) << failing;
        EXPECT_EQ(differences(saving.takeSettings(), settings), "") << failing << saving.error();
    }
}

TEST(SettingsSaving, PutsSelectorsBackWhenItIsCancelledOrDestroyed)
{
    TestCamera camera(TestCamera::simulated());
    const std::string before = everything(camera);
    for (int polls = 1; polls < 8; ++polls) {
        auto saving = std::make_unique<ZQSettingsSaving>(*camera.camera);
        for (int i = 0; i < polls; ++i) {
            saving->poll();
        }
        if (polls % 2 == 0) {
            saving->cancel();
            EXPECT_NE(saving->poll(), ZQCameraTask::State::Running);
        }
        saving.reset();
        EXPECT_EQ(everything(camera), before) << polls;
    }
}

TEST(SettingsSaving, SaysSoWhenASelectorCannotBePutBack)
{
    for (const bool areReadsLost : { false, true }) {
        TestCamera camera("TableSelector TableIndex TableValue", tables(2));
        camera.port.setFaultHook(
            [areReadsLost, writes = 0](std::uint64_t address, auto, bool isWrite) mutable {
                writes += address == 0 && isWrite ? 1 : 0;
                return address == 0 && isWrite != areReadsLost && writes > (areReadsLost ? 0 : 1);
            });
        ZQSettingsSaving saving(*camera.camera);
        EXPECT_EQ(saving.wait(settingsLimit), ZQCameraTask::State::Failed);
        EXPECT_EQ(saving.error(),
            "TableSelector could not be put back to False: TableSelector: injected fault");
        camera.port.setFaultHook(nullptr);
    }
}

/// Counts what is read beside the caller.
class FarCamera : public DistantCamera {
public:
    using DistantCamera::DistantCamera;

    struct Answers : Reading {
        explicit Answers(Requests answered)
            : requests(std::move(answered))
        {
        }
        Requests takeFinished() override { return std::exchange(requests, {}); }

        Requests requests;
    };

    std::unique_ptr<Reading> readBeside(Requests requests) override
    {
        beside += requests.size();
        for (Request& request : requests) {
            request.status = read(request.place, request.bytes.data(), request.kind);
            request.isDone = request.status.isOk();
        }
        return std::make_unique<Answers>(std::move(requests));
    }

    std::size_t beside = 0;
};

TEST(SettingsSaving, ReadsBesideTheCallerWhatNoSelectorChoosesOfACameraThatIsFar)
{
    auto owned = std::make_unique<FarCamera>(makeSimulatedCameraBehaviour());
    FarCamera& distant = *owned;
    TestCamera far(openOver(std::string(simulatedCameraDescription()), std::move(owned)));
    TestCamera near(TestCamera::simulated());
    const ZQSettings settings = saved(far);
    EXPECT_EQ(differences(settings, saved(near)), "");
    EXPECT_GT(distant.beside, 40U);

    alter(*far.camera, settings.only({ "Width", "Gamma", "PixelFormat", "DeviceUserTag" }));
    const ZQRestoreReport report = restored(far, settings);
    EXPECT_EQ(report.exitStatus(), 0) << report.toText();
    EXPECT_EQ(report.count(ZQRestoredLine::Outcome::Restored), 4U);
    EXPECT_EQ(differences(settings, saved(far)), "");
}

/// A camera that is lost from an access on.
class Losable : public MemoryBackend {
public:
    using MemoryBackend::MemoryBackend;

    Status read(const Register& place, std::uint8_t* buffer, AccessKind kind) override
    {
        return --accessesLeft < 0 ? loss() : MemoryBackend::read(place, buffer, kind);
    }
    Status write(const Register& place, const std::uint8_t* buffer, AccessKind kind) override
    {
        return --accessesLeft < 0 ? loss() : MemoryBackend::write(place, buffer, kind);
    }
    bool isLost() override
    {
        accessesLeft += accessesLeft < 0 && --pause == 0 ? INT_MAX : 0;
        return accessesLeft < 0;
    }
    bool isGivenUp() override { return accessesLeft < 0 && pause < 0; }
    Status loss() const override { return { cameraLost, "the camera does not answer" }; }

    int accessesLeft = INT_MAX;
    int pause = -1; ///< how often one finds it lost until it is there again; below 0: for ever
};

TEST(SettingsSaving, WaitsForACameraThatPauses)
{
    auto owned = std::make_unique<Losable>(makeSimulatedCameraBehaviour());
    Losable& backend = *owned;
    TestCamera camera(openOver(std::string(simulatedCameraDescription()), std::move(owned)));
    const ZQSettings settings = saved(camera);
    for (int accesses = 1; accesses < 300; accesses += 23) {
        backend.accessesLeft = accesses;
        backend.pause = 40;
        EXPECT_EQ(ZQSettings::Compare(saved(camera), settings).size(), 0U) << accesses;
        EXPECT_EQ(backend.pause, 0);
    }
}

TEST(SettingsSaving, EndsWhenTheCameraIsLostAndSoDoesARestoring)
{
    TestCamera pattern(TestCamera::simulated());
    const ZQSettings settings
        = saved(pattern).only({ "Width", "Gamma", "TriggerMode[TriggerSelector=FrameStart]" });
    for (int accesses = 0; accesses < 60; accesses += 3) {
        auto owned = std::make_unique<Losable>(makeSimulatedCameraBehaviour());
        Losable& backend = *owned;
        TestCamera camera(openOver(std::string(simulatedCameraDescription()), std::move(owned)));
        alter(*camera.camera, settings);
        camera.port.invalidate();

        backend.accessesLeft = accesses;
        ZQSettingsRestoring restoring(*camera.camera, settings);
        restoring.wait(settingsLimit);
        const bool isLost = backend.isLost();
        EXPECT_TRUE(isLost || accesses > 30);
        backend.accessesLeft = INT_MAX;
        camera.port.invalidate();
        EXPECT_EQ(restoring.report().exitStatus(), isLost ? 2 : 0) << accesses;
        EXPECT_EQ(restoring.error().substr(0, 26), isLost ? "the camera does not answer" : "");
        const ZQSettings now = savedAs(camera, settings);
        for (const ZQRestoredLine& line : restoring.report().lines) {
            if (line.outcome == ZQRestoredLine::Outcome::Restored) {
                EXPECT_EQ(valueIn(now, line.line.label()), line.line.value) << accesses;
            }
        }
        backend.accessesLeft = accesses;
        ZQSettingsSaving saving(*camera.camera);
        EXPECT_EQ(saving.wait(settingsLimit), ZQCameraTask::State::Failed);
        EXPECT_TRUE(saving.takeSettings().lines().empty());
    }
}

TEST_F(RealDescriptions, SaveReadsEachRegisterOnceAtEachPositionOfTheSelectors)
{
    for (const std::string& path : m_files) {
        TestCamera camera(TestCamera::ofFile(path));
        const std::string before = everything(camera);
        const RegisterCount count(camera.port);
        const ZQSettings settings = saved(camera);
        EXPECT_LE(count.reads() * 10, count.distinct() * 11) << path;
        EXPECT_EQ(everything(camera), before) << path;
        EXPECT_FALSE(settings.lines().empty()) << path;
    }
}

} // namespace
