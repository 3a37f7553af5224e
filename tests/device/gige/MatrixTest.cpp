// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "GigeFixture.h"
#include "base/StatusCodes.h"

#include "featurebrowser/ZQAcquisition.h"

#include <algorithm>
#include <functional>
#include <map>

// Every fault in every phase of a camera's life, through the public interface over real protocol.
// A line for each tells the longest single call, how long recovery took after the fault had ended,
// and the words; times are told, not judged. Usually each fault meets reading and one other phase,
// with ZQ_ALL_FAULTS all of them.

using namespace featurebrowser;
using namespace zqcameralib;
using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;
using Values = std::map<std::string, std::string>;

enum class Phase { Opening, Loading, Editing, Streaming, Reconnecting, Reading };
constexpr std::array phases { Phase::Opening, Phase::Loading, Phase::Editing, Phase::Streaming,
    Phase::Reconnecting, Phase::Reading };
constexpr std::array phaseNames { "Opening", "Loading", "Editing", "Streaming", "Reconnecting",
    "Reading" };

/// What a fault acts upon.
struct Scene {
    FakeCamera& camera;
    FaultProxy& proxy;
    std::unique_ptr<FakeCamera> otherCamera;
    std::unique_ptr<ZQCamera> otherController;
};

struct Fault {
    const char* name;
    std::function<void(Scene&)> begin;
    std::function<void(Scene&)> end;
};

Fault onNetwork(const char* name, const std::function<void(Faults&)>& change)
{
    Faults faults;
    change(faults);
    return { name, [faults](Scene& scene) { scene.proxy.set(faults); },
        [](Scene& scene) { scene.proxy.set({}); } };
}

void takeControl(Scene& scene)
{
    scene.proxy.set(Faults::requestsLost()); // also of what keeps the control
    std::string error;
    for (int tries = 0; !scene.otherController && tries < 100; ++tries) {
        scene.otherController = ZQCamera::Open("127.0.0.1", CameraAccess::Control, error);
    }
    scene.proxy.set({});
}

void exchange(Scene& scene)
{
    scene.otherCamera
        = std::make_unique<FakeCamera>(ZQ_SIMULATED_CAMERA_XML, 0, "127.0.0.4", "GV02");
    scene.camera.kill();
    scene.proxy.switchTo("127.0.0.4");
}

const std::vector<Fault>& faults()
{
    const auto nothing = [](Scene&) {};
    static const std::vector<Fault> all {
        onNetwork("None", [](Faults&) {}),
        onNetwork("Lost1Percent", [](Faults& f) { f.loseRequests = 0.01; }),
        onNetwork("Lost5Percent", [](Faults& f) { f.loseRequests = f.loseReplies = 0.025; }),
        onNetwork("Lost20Percent", [](Faults& f) { f.loseRequests = f.loseReplies = 0.1; }),
        onNetwork("Delayed40ms", [](Faults& f) { f.requestDelay = f.delay = 20ms; }),
        onNetwork("Delayed100ms", [](Faults& f) { f.requestDelay = f.delay = 50ms; }),
        onNetwork("Jitter", [](Faults& f) { f.jitter = 100ms; }),
        onNetwork("Twice", [](Faults& f) { f.duplicate = 1; }),
        onNetwork("OutOfOrder", [](Faults& f) { f.reorderReplies = 0.02; }),
        onNetwork("Corrupt", [](Faults& f) { f.corruptReplies = 0.05; }),
        onNetwork("AllCorrupt", [](Faults& f) { f.corruptReplies = 1; }),
        onNetwork("Truncated", [](Faults& f) { f.truncateReplies = 0.05; }),
        onNetwork("AllTruncated", [](Faults& f) { f.truncateReplies = 1; }),
        onNetwork("WrongIds", [](Faults& f) { f.wrongIds = 0.05; }),
        onNetwork("AllWrongIds", [](Faults& f) { f.wrongIds = 1; }),
        onNetwork("Forged", [](Faults& f) { f.forgeReplies = 1; }),
        onNetwork("Busy", [](Faults& f) { f.status = 0x8007; }),
        onNetwork("Denied", [](Faults& f) { f.status = 0x8006; }),
        onNetwork("PendingForEver", [](Faults& f) { f.pendingForever = true; }),
        onNetwork("PendingThenAnswered", [](Faults& f) { f.pendingMs = 3; }),
        onNetwork("BlackHole", [](Faults& f) { f.loseRequests = 1; }),
        onNetwork("RepliesLost", [](Faults& f) { f.loseReplies = 1; }),
        Fault {
            "Stalled", [](Scene& s) { s.camera.stall(); }, [](Scene& s) { s.camera.resume(); } },
        Fault { "Killed", [](Scene& s) { s.camera.kill(); }, [](Scene& s) { s.camera.start(); } },
        Fault { "Restarted", [](Scene& s) { s.camera.restart(); }, nothing },
        Fault { "Exchanged", exchange, nothing },
        Fault { "TakenByAnother", takeControl, [](Scene& s) { s.otherController.reset(); } },
    };
    return all;
}

class Matrix : public GigeFixture, public testing::WithParamInterface<std::size_t> {
protected:
    void run(const Fault& fault, Phase phase);
    void beginOpening(const Fault& fault, Scene& scene);
    void beginLater(const Fault& fault, Scene& scene, Phase phase);

    void reset()
    {
        close();
        replaceCamera();
        m_proxy.set({});
        m_proxy.switchTo(directly);
        m_right.clear();
        m_longest = 0;
        m_words = "-";
    }

    template <typename Call> auto timed(Call call)
    {
        const Clock::time_point start = Clock::now();
        const auto result = call();
        m_longest = std::max(m_longest, milliseconds(start));
        return result;
    }
    static int milliseconds(Clock::time_point since)
    {
        return static_cast<int>(
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - since).count());
    }

    std::string tryToOpen()
    {
        std::string error;
        m_camera = ZQCamera::Open(FaultProxy::address, CameraAccess::Control, error);
        if (m_camera) {
            m_device = std::make_unique<ZQCameraDevice>(m_camera.get(), nullptr);
            m_repository = m_device->GetRepository();
        }
        return error;
    }

    void note(int status)
    {
        if (status != STATUS_OK) {
            m_words = errorText(status);
            EXPECT_FALSE(m_words.empty());
        }
    }

    /// What the records hold and do not mark as unread.
    Values shown()
    {
        Values all;
        for (const auto& item : m_repository->GetFeatureList()) {
            if (item->displayFlag == 1 && item->name != "GevCCP"
                && state(item->name) != FEATURE_READ_FAILED) {
                all[item->name] = item->valueText;
            }
        }
        return all;
    }

    void expectNothingWrong()
    {
        for (const auto& [name, value] : shown()) {
            const auto known = m_right.find(name);
            if (known != m_right.end() && !isChangedByTest(name)) {
                EXPECT_EQ(value, known->second) << name;
            }
        }
    }
    static bool isChangedByTest(const std::string& name)
    {
        return name == "Width" || name == "DeviceSerialNumber" || name == "GevCurrentIPAddress"
            || name.rfind("GevSC", 0) == 0 || name == "PayloadSize" || name == "OffsetX"
            || name.find("FrameRate") != std::string::npos
            || name.find("Timestamp") != std::string::npos;
    }

    void readAll()
    {
        for (const auto& item : m_repository->GetFeatureList()) {
            const bool done = timed([&] { return m_repository->ReadFeature(item); });
            if (!done) {
                EXPECT_EQ(state(item->name), FEATURE_READ_FAILED);
                note(m_device->GetLastError());
            }
        }
    }

    void meet(Phase phase)
    {
        switch (phase) {
        case Phase::Opening:
        case Phase::Reading: // follows in any case
            break;
        case Phase::Loading:
            m_repository->Clear();
            note(m_repository->Load());
            break;
        case Phase::Editing:
            edit();
            break;
        case Phase::Streaming:
            stream();
            break;
        case Phase::Reconnecting:
            for (int tries = 0; tries < 3; ++tries) {
                note(timed([&] { return m_device->Reconnect(); }));
            }
        }
    }

    /// A camera that is lost is so for every operation, in the same words.
    void expectLost()
    {
        EXPECT_EQ(get("Width"), cameraLost);
        EXPECT_EQ(set("Width", 64), cameraLost);
        EXPECT_EQ(m_repository->UpdateFeatureStates(), cameraLost);
        note(cameraLost);
        EXPECT_NE(m_words.find(FaultProxy::address), std::string::npos) << m_words;
        EXPECT_EQ(state("Width"), FEATURE_READ_FAILED);
        EXPECT_EQ(value("Width"), m_right.at("Width"));
    }

    /// Afterwards the record holds what the camera has, or is marked.
    void edit()
    {
        for (const long width : { 64L, 96L, 128L }) {
            note(timed([&] { return set("Width", width); }));
            timed([&] { return m_repository->ReadFeature(m_repository->GetFeature("Width")); });
            for (const auto& other : m_repository->GetInvalidatedFeatures("Width")) {
                timed([&] { return m_repository->ReadFeature(other); });
            }
        }
    }

    void stream()
    {
        ZQAcquisition acquisition(m_camera.get(), m_device.get());
        const int status = timed([&] { return acquisition.start([](const ZQFrame&) {}); });
        note(status);
        // A restart may show at any time.
        EXPECT_TRUE(acquisition.isRunning() == (status == STATUS_OK) || m_camera->isLost());
        timed([&] { return acquisition.stop(); });
        EXPECT_FALSE(acquisition.isRunning());
    }

    Values m_right;
    int m_longest = 0;
    std::string m_words = "-";
};

void Matrix::beginOpening(const Fault& fault, Scene& scene)
{
    fault.begin(scene);
    const std::string error = tryToOpen();
    if (!m_camera) {
        m_words = error;
        EXPECT_FALSE(error.empty());
    }
    fault.end(scene);
    if (!m_camera) {
        ASSERT_EQ(tryToOpen(), "");
    }
}

void Matrix::beginLater(const Fault& fault, Scene& scene, Phase phase)
{
    open();
    m_right = shown();
    if (phase == Phase::Reconnecting) {
        m_proxy.set(Faults::repliesLost());
        EXPECT_TRUE(eventually([this] { return m_camera->isLost(); }));
        m_proxy.set({});
    } else {
        std::this_thread::sleep_for(120ms); // what was read has to be read anew
    }
    fault.begin(scene);
    meet(phase);
    if (phase != Phase::Loading) {
        readAll();
    }
    if (phase == Phase::Reading && m_camera->isLost()) {
        expectLost();
    }
    expectNothingWrong();
    fault.end(scene);
}

void Matrix::run(const Fault& fault, Phase phase)
{
    reset();
    Scene scene { *m_fake, m_proxy, {}, {} };
    phase == Phase::Opening ? beginOpening(fault, scene) : beginLater(fault, scene, phase);
    ASSERT_TRUE(m_device);
    const Clock::time_point end = Clock::now();
    EXPECT_TRUE(eventually([this] {
        return timed([this] { return m_device->Reconnect(); }) == STATUS_OK;
    })) << errorText(m_device->GetLastError());
    const int recovery = milliseconds(end);
    readAll();
    EXPECT_FALSE(m_camera->isLost());
    expectNothingWrong();
    long width = 0;
    EXPECT_EQ(m_device->GetIntegerValue("Width", &width), STATUS_OK);
    ASSERT_TRUE(m_repository->GetFeature("Width"));
    EXPECT_EQ(value("Width"), std::to_string(width));
    std::printf("[  FAULT   ] %-20s %-12s blocked %4d ms, back after %4d ms: %s\n", fault.name,
        phaseNames[static_cast<std::size_t>(phase)], m_longest, recovery, m_words.c_str());
    close(); // before the scene
}

TEST_P(Matrix, ShowsNothingWrongAndRecovers)
{
    const bool isAll = std::getenv("ZQ_ALL_FAULTS") != nullptr;
    for (std::size_t i = 0; i < phases.size(); ++i) {
        SCOPED_TRACE(phaseNames[i]);
        const bool isTurn = (GetParam() + 2 * i + 1) % (phases.size() - 1) == 0;
        if (isAll || isTurn || phases[i] == Phase::Reading) {
            run(faults()[GetParam()], phases[i]);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Faults, Matrix, testing::Range<std::size_t>(0, faults().size()),
    [](const auto& test) { return std::string(faults()[test.param].name); });

} // namespace
