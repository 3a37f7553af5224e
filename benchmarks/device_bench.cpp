// What the camera side costs over GigE Vision: the built-in camera's description served by a camera
// process on loopback, in a network of this program's own, everything on one processor. A round
// trip takes about 16 us there; "far" is the same camera behind 0.3 ms, as real ones are.
//
//   reads/distinct  accesses over different registers involved
//   /once           time over one bare pass that reads each of these registers once over the same
//                   connection; to reach for a load: at most 1.15
//   own_us          microseconds over that pass: what does not depend on how far the camera is
//   /raw            time over Aravis' own pass over the same features; to reach: at most 0.65
//
// Prints nothing but a reason where there is no camera process or no such network.

#include "Camera.h"
#include "CameraSession.h"
#include "RawDevice.h"
#include "SimulatedCamera.h"
#include "gige/FakeCamera.h"
#include "gige/FaultProxy.h"

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

/// The library's own pass, over a connection of its own.
struct RawRig {
    std::unique_ptr<DirectBackend> direct;
    std::unique_ptr<RawDevice> raw;

    RawRig()
    {
        std::string error;
        direct = std::make_unique<DirectBackend>(
            CameraSession::open({ "GigEVision", "127.0.0.1" }, error));
        raw = std::make_unique<RawDevice>(*direct, simulatedCameraDescription());
    }
    void read(const std::list<std::shared_ptr<FeatureItem>>& items) const
    {
        for (const auto& item : items) {
            raw->readFacts(item->name.c_str());
        }
    }
};

struct Rig {
    std::unique_ptr<ZQCamera> camera;
    std::unique_ptr<ZQCameraDevice> device;
    std::unique_ptr<RawRig> library; ///< null where the camera is far

    explicit Rig(const char* address)
    {
        std::string error;
        camera = ZQCamera::Open(address, CameraAccess::Control, error);
        if (!camera) {
            throw std::runtime_error(error);
        }
        device = std::make_unique<ZQCameraDevice>(camera.get(), nullptr);
        device->GetRepository()->Load();
        if (address != std::string(FaultProxy::address)) {
            library = std::make_unique<RawRig>(); // afterwards, since one alone has the control
        }
    }

    void readOnce(const Registers& registers) const
    {
        std::vector<RegisterBackend::Request> requests;
        for (const auto& [address, size] : registers) {
            requests.push_back(
                { address, AccessKind::Memory, std::vector<std::uint8_t>(size), false });
        }
        camera->impl().port().backend().readTogether(requests);
        for (const RegisterBackend::Request& request : requests) {
            if (!request.done) {
                throw std::runtime_error("a register could not be read");
            }
        }
    }
};

/// Measures `work`, after which `items` have been brought up to date, against the yardsticks.
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
    while (state.KeepRunning()) {
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
        if (rig.library) {
            raw += secondsOf([&] { rig.library->read(items()); });
        }
    }
    state.counters["reads"] = double(reads);
    state.counters["reads/distinct"] = double(reads) / double(distinct);
    state.counters["/once"] = ours / once;
    state.counters["own_us"] = (ours - once) / double(state.iterations()) * 1e6;
    if (rig.library) {
        state.counters["/raw"] = ours / raw;
    }
}

std::list<std::shared_ptr<FeatureItem>> allOf(Rig& rig)
{
    return rig.device->GetRepository()->GetFeatureList();
}

void readAll(ZQCameraRepository& repository)
{
    for (const auto& item : repository.GetFeatureList()) {
        repository.ReadFeature(item);
    }
}

void load(benchmark::State& state, Rig& rig)
{
    std::unique_ptr<ZQCameraDevice> fresh;
    const auto work = [&fresh] {
        fresh->GetRepository()->Load();
        readAll(*fresh->GetRepository());
    };
    measure(
        state, rig, work, [&rig] { return allOf(rig); },
        [&] { fresh = std::make_unique<ZQCameraDevice>(rig.camera.get(), nullptr); });
}

void reload(benchmark::State& state, Rig& rig)
{
    const auto work = [&rig] {
        rig.device->GetRepository()->Load();
        readAll(*rig.device->GetRepository());
    };
    measure(state, rig, work, [&rig] { return allOf(rig); });
}

void states(benchmark::State& state, Rig& rig)
{
    measure(
        state, rig, [&rig] { rig.device->GetRepository()->UpdateFeatureStates(); },
        [&rig] { return allOf(rig); });
}

/// Writes a feature, and brings it and what depends on it up to date.
void edit(benchmark::State& state, Rig& rig, const char* name, const std::function<void()>& write)
{
    ZQCameraRepository& repository = *rig.device->GetRepository();
    const auto affected = [&repository, name] {
        auto items = repository.GetInvalidatedFeatures(name);
        items.push_front(repository.GetFeature(name));
        return items;
    };
    const auto work = [&] {
        write();
        for (const auto& item : affected()) {
            repository.ReadFeature(item);
        }
    };
    measure(state, rig, work, affected);
}

void plainEdit(benchmark::State& state, Rig& rig)
{
    double value = 1.0;
    edit(state, rig, "Gamma", [&] {
        value = 3.0 - value;
        rig.device->SetFloatValue("Gamma", value);
    });
}

void selectorEdit(benchmark::State& state, Rig& rig)
{
    const char* name = "GainSelector";
    const auto entries = rig.device->GetRepository()->GetFeature(name)->enumEntries;
    int index = 0;
    edit(state, rig, name, [&] {
        index = 1 - index;
        rig.device->SetEnumValue(name, std::next(entries.begin(), index)->c_str(), index);
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
    FaultProxy proxy(1);
    Faults distance;
    distance.delay = std::chrono::microseconds(300);
    proxy.set(distance);

    std::unique_ptr<Rig> rig;
    std::string open; // one at a time: one alone has the control
    const auto add = [&](const char* name, const char* address, auto run) {
        benchmark::RegisterBenchmark(name,
            [&rig, &open, address, run](benchmark::State& state) {
                if (open != address) {
                    rig.reset();
                    rig = std::make_unique<Rig>(address);
                    open = address;
                }
                run(state, *rig);
            })
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    };
    const char* near = "127.0.0.1";
    add("gige/load", near, load);
    add("gige/reload", near, reload);
    add("gige/states", near, states);
    add("gige/plain edit", near, plainEdit);
    add("gige/selector edit", near, selectorEdit);
    add("far/load", FaultProxy::address, load);
    add("far/reload", FaultProxy::address, reload);
    add("far/selector edit", FaultProxy::address, selectorEdit);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
