// What the camera side costs over GigE Vision: the built-in camera's description served by a camera
// process on loopback, in a network of this program's own, everything on one processor.
//
//   reads/distinct  accesses over different registers involved
//   /once           time over one pass that reads each of these registers once, unpacked from any
//                   node map, over a connection of the same kind; to reach for a load: at most 1.15
//   own_us          microseconds over that pass: what does not depend on how far the camera is
//   /raw            time over Aravis' own pass over the same features; to reach: at most 0.65
//
// Prints nothing but a reason where there is no camera process or no such network.

#include "Camera.h"
#include "CameraSession.h"
#include "RawDevice.h"
#include "SimulatedCamera.h"
#include "gige/FakeCamera.h"

#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <benchmark/benchmark.h>

#include <sched.h>

#include <chrono>
#include <functional>
#include <set>
#include <stdexcept>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

using Clock = std::chrono::steady_clock;
using Registers = std::set<RegisterPort::Register>;

double secondsOf(const std::function<void()>& work)
{
    const Clock::time_point start = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// A connection used on the caller's thread, for the yardsticks.
class DirectBackend : public RegisterBackend {
public:
    explicit DirectBackend(std::shared_ptr<CameraSession> session)
        : m_session(std::move(session))
    {
    }
    bool read(std::uint64_t address, std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error) override
    {
        return m_session->read(address, buffer, size, kind, error);
    }
    bool write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error) override
    {
        return m_session->write(address, buffer, size, kind, error);
    }

private:
    std::shared_ptr<CameraSession> m_session;
};

struct Rig {
    std::unique_ptr<ZQCamera> camera;
    std::unique_ptr<ZQCameraDevice> device;
    std::unique_ptr<DirectBackend> direct;
    std::unique_ptr<RawDevice> raw;

    Rig()
    {
        std::string error;
        camera = ZQCamera::Open("127.0.0.1", CameraAccess::Control, error);
        if (!camera) {
            throw std::runtime_error(error);
        }
        device = std::make_unique<ZQCameraDevice>(camera.get(), nullptr);
        direct = std::make_unique<DirectBackend>(
            CameraSession::open({ "GigEVision", "127.0.0.1" }, error));
        raw = std::make_unique<RawDevice>(*direct, simulatedCameraDescription());
        device->GetRepository()->Load();
    }

    void readOnce(const Registers& registers) const
    {
        AccessError error;
        std::vector<std::uint8_t> bytes(65536);
        for (const auto& [address, size] : registers) {
            direct->read(address, bytes.data(), size, AccessKind::Memory, error);
        }
    }
    void readRaw(const std::list<std::shared_ptr<FeatureItem>>& items) const
    {
        for (const auto& item : items) {
            raw->readFacts(item->name.c_str());
        }
    }
};

/// Measures `work`, after which `items` have been brought up to date, against both yardsticks.
void measure(
    benchmark::State& state, Rig& rig, const std::function<void()>& work,
    const std::function<std::list<std::shared_ptr<FeatureItem>>()>& items,
    const std::function<void()>& prepare = [] {})
{
    RegisterPort& port = rig.camera->impl().port();
    double ours = 0.0;
    double once = 0.0;
    double raw = 0.0;
    std::uint64_t reads = 0;
    std::size_t distinct = 0;
    for (auto _ : state) {
        std::vector<RegisterPort::Register> trace;
        prepare();
        port.invalidate();
        const std::uint64_t before = port.reads();
        port.setTrace(&trace);
        const double seconds = secondsOf(work);
        port.setTrace(nullptr);
        const Registers registers(trace.begin(), trace.end());
        state.SetIterationTime(seconds);
        ours += seconds;
        reads = port.reads() - before;
        distinct = registers.size();
        once += secondsOf([&] { rig.readOnce(registers); });
        raw += secondsOf([&] { rig.readRaw(items()); });
    }
    state.counters["reads"] = double(reads);
    state.counters["reads/distinct"] = double(reads) / double(distinct);
    state.counters["/once"] = ours / once;
    state.counters["own_us"] = (ours - once) / double(state.iterations()) * 1e6;
    state.counters["/raw"] = ours / raw;
}

void registerAll(Rig& rig)
{
    ZQCameraRepository& repository = *rig.device->GetRepository();
    const auto everything = [&repository] { return repository.GetFeatureList(); };
    const auto add = [](const char* name, std::function<void(benchmark::State&)> run) {
        benchmark::RegisterBenchmark(name, run)->UseManualTime()->Unit(benchmark::kMicrosecond);
    };
    const auto loadAll = [](ZQCameraRepository& loaded) {
        loaded.Load();
        for (const auto& item : loaded.GetFeatureList()) {
            loaded.ReadFeature(item);
        }
    };
    add("gige/load", [&rig, everything, loadAll](benchmark::State& state) {
        std::unique_ptr<ZQCameraDevice> fresh;
        measure(
            state, rig, [&] { loadAll(*fresh->GetRepository()); }, everything,
            [&] { fresh = std::make_unique<ZQCameraDevice>(rig.camera.get(), nullptr); });
    });
    add("gige/reload", [&rig, &repository, everything, loadAll](benchmark::State& state) {
        measure(
            state, rig, [&] { loadAll(repository); }, everything);
    });
    add("gige/states", [&rig, &repository, everything](benchmark::State& state) {
        measure(
            state, rig, [&] { repository.UpdateFeatureStates(); }, everything);
    });
    add("gige/plain edit", [&rig, &repository](benchmark::State& state) {
        const auto affected = [&] { return repository.GetInvalidatedFeatures("Gamma"); };
        double value = 1.0;
        measure(
            state, rig,
            [&] {
                value = 3.0 - value;
                rig.device->SetFloatValue("Gamma", value);
                repository.ReadFeature(repository.GetFeature("Gamma"));
                for (const auto& item : affected()) {
                    repository.ReadFeature(item);
                }
            },
            [&] {
                auto items = affected();
                items.push_front(repository.GetFeature("Gamma"));
                return items;
            });
    });
    add("gige/selector edit", [&rig, &repository](benchmark::State& state) {
        const auto selected = [&] { return repository.GetSelectedFeatures("GainSelector"); };
        int index = 0;
        measure(
            state, rig,
            [&] {
                const auto selector = repository.GetFeature("GainSelector");
                index = 1 - index;
                rig.device->SetEnumValue("GainSelector",
                    std::next(selector->enumEntries.begin(), index)->c_str(), index);
                repository.ReadFeature(selector);
                for (const auto& item : selected()) {
                    repository.ReadFeature(item);
                }
            },
            [&] {
                auto items = selected();
                items.push_front(repository.GetFeature("GainSelector"));
                return items;
            });
    });
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(0, &one);
    if (!FakeCamera::isInstalled() || !enterPrivateNetwork()
        || sched_setaffinity(0, sizeof one, &one) != 0) {
        std::printf("no arv-fake-gv-camera-0.8, or no network of one's own\n");
        return 0;
    }
    const FakeCamera fake(ZQ_SIMULATED_CAMERA_XML);
    Rig rig;
    registerAll(rig);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
