// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What the camera side costs, in process for every description named after the benchmark's own
// options, and over GigE Vision: the built-in camera's description served by a camera process on
// loopback, in a network of this program's own, everything on one processor. A round trip takes
// about 16 us there; "far" is the same camera behind 0.3 ms, as real ones are.
//
//   reads/distinct  accesses over different registers involved; to reach: at most 1.1
//   raw_reads       accesses of Aravis' own pass over the same features
//   /once           time over one bare pass that reads each of these registers once over the same
//                   connection; to reach for a load over GigE Vision: at most 1.15
//   own_us          microseconds over that pass: what does not depend on how far the camera is
//   /raw            time over Aravis' own pass; to reach for a load over GigE Vision: at most 0.65
//
// The part over GigE Vision is left out where there is no camera process or no such network.

#include "RawDevice.h"
#include "camera/Camera.h"
#include "description/DescriptionFile.h"
#include "gige/FakeCamera.h"
#include "gige/FaultProxy.h"
#include "gige/PrivateNetwork.h"
#include "session/CameraSession.h"
#include "simulation/SimulatedCamera.h"

#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <benchmark/benchmark.h>

#include <sched.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <set>
#include <stdexcept>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

using Clock = std::chrono::steady_clock;
using RegisterSet = std::set<Register>;

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
    Status read(const Register& place, std::uint8_t* buffer, AccessKind kind) override
    {
        return m_session->read(place, buffer, kind);
    }
    Status write(const Register& place, const std::uint8_t* buffer, AccessKind kind) override
    {
        return m_session->write(place, buffer, kind);
    }

private:
    std::shared_ptr<CameraSession> m_session;
};

/// An open camera, and Aravis' own node map over the same registers.
struct Rig {
    std::unique_ptr<ZQCamera> camera;
    std::unique_ptr<ZQCameraDevice> device;
    std::unique_ptr<DirectBackend> direct; ///< null in process
    std::unique_ptr<RawDevice> raw; ///< null where the camera is far

    explicit Rig(const std::string& place)
    {
        std::string error;
        const bool isAddress = place.rfind("127.", 0) == 0;
        camera = isAddress ? ZQCamera::Open(place, CameraAccess::Control, error)
                           : ZQCamera::OpenDescription(place, error);
        if (!camera) {
            throw std::runtime_error(error);
        }
        device = std::make_unique<ZQCameraDevice>(camera.get(), nullptr);
        device->GetRepository()->Load();
        if (!isAddress) {
            std::string text;
            readDescriptionFile(place, text, error);
            raw = std::make_unique<RawDevice>(backend(), text.substr(text.find('<')));
        } else if (place != FaultProxy::address) {
            // Afterwards, since one alone has the control.
            OpeningProgress progress;
            direct = std::make_unique<DirectBackend>(
                std::move(CameraSession::open({ "GigEVision", place }, progress).value()));
            raw = std::make_unique<RawDevice>(*direct, simulatedCameraDescription());
        }
    }

    RegisterBackend& backend() const { return camera->impl().port().backend(); }
    ZQCameraRepository& repository() const { return *device->GetRepository(); }

    void readOnce(const RegisterSet& registers) const
    {
        std::vector<RegisterBackend::Request> requests;
        for (const Register& place : registers) {
            requests.emplace_back(place, AccessKind::Memory);
        }
        backend().readTogether(requests);
        for (RegisterBackend::Request& request : requests) {
            const Status status = request.isDone
                ? Status()
                : backend().read(request.place, request.bytes.data(), request.kind);
            if (!status.isOk()) {
                throw std::runtime_error(status.text());
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
    std::uint64_t rawReads = 0;
    std::size_t distinct = 0;
    while (state.KeepRunning()) {
        prepare();
        port.invalidate();
        const std::uint64_t before = port.reads();
        RegisterSet registers;
        double seconds = 0.0;
        {
            const RegisterPort::Recorder recorder(port);
            seconds = secondsOf(work);
            registers.insert(recorder.read.begin(), recorder.read.end());
        }
        state.SetIterationTime(seconds);
        ours += seconds;
        reads = port.reads() - before;
        distinct = registers.size();
        once += secondsOf([&] { rig.readOnce(registers); });
        if (rig.raw) {
            const std::uint64_t rawBefore = rig.raw->accesses();
            const auto list = items();
            raw += secondsOf([&] {
                for (const auto& item : list) {
                    rig.raw->readFacts(item->name.c_str());
                }
            });
            rawReads = rig.raw->accesses() - rawBefore;
        }
    }
    state.counters["reads"] = double(reads);
    state.counters["reads/distinct"] = double(reads) / double(distinct);
    state.counters["/once"] = ours / once;
    state.counters["own_us"] = (ours - once) / double(state.iterations()) * 1e6;
    if (rig.raw) {
        state.counters["raw_reads"] = double(rawReads);
        state.counters["/raw"] = ours / raw;
    }
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
        state, rig, work, [&rig] { return rig.repository().GetFeatureList(); },
        [&] { fresh = std::make_unique<ZQCameraDevice>(rig.camera.get(), nullptr); });
}

void reload(benchmark::State& state, Rig& rig)
{
    const auto work = [&rig] {
        rig.repository().Load();
        readAll(rig.repository());
    };
    measure(state, rig, work, [&rig] { return rig.repository().GetFeatureList(); });
}

void states(benchmark::State& state, Rig& rig)
{
    measure(
        state, rig, [&rig] { rig.repository().UpdateFeatureStates(); },
        [&rig] { return rig.repository().GetFeatureList(); });
}

/// Writes a feature, and brings it and what depends on it up to date.
void edit(benchmark::State& state, Rig& rig, const std::string& name,
    const std::function<int(bool turn)>& write)
{
    const auto affected = [&rig, &name] {
        auto items = rig.repository().GetInvalidatedFeatures(name);
        items.push_front(rig.repository().GetFeature(name));
        return items;
    };
    bool turn = false;
    const auto work = [&] {
        turn = !turn;
        if (write(turn) != STATUS_OK) {
            state.SkipWithError((name + " cannot be written").c_str());
        }
        for (const auto& item : affected()) {
            rig.repository().ReadFeature(item);
        }
    };
    state.SetLabel(name);
    measure(state, rig, work, affected);
}

bool isWritable(const FeatureItem& item)
{
    return item.displayFlag == 1 && item.lockedFlag == 0 && item.accessMode == ACCESS_READ_WRITE;
}

/// The first integer that can be moved by an increment. Not the time after which the camera takes
/// the control away.
void plainEdit(benchmark::State& state, Rig& rig)
{
    for (const auto& item : rig.repository().GetFeatureList()) {
        const long step = std::max(item->intInc, 1U);
        if (item->type == FEATURE_INTEGER && isWritable(*item) && !item->isSelector
            && item->intMin <= item->intMax - step
            && item->name.find("Heartbeat") == std::string::npos) {
            const long low = item->intMin;
            return edit(state, rig, item->name, [&rig, name = item->name, low, step](bool turn) {
                return rig.device->SetIntegerValue(name.c_str(), turn ? low : low + step, 1);
            });
        }
    }
    state.SkipWithError("there is no such feature");
}

/// The enumeration that selects most.
void selectorEdit(benchmark::State& state, Rig& rig)
{
    std::shared_ptr<FeatureItem> selector;
    std::size_t most = 0;
    for (const auto& item : rig.repository().GetFeatureList()) {
        const std::size_t count = rig.repository().GetSelectedFeatures(item->name).size();
        if (item->type == FEATURE_ENUMERATION && isWritable(*item) && item->enumEntries.size() > 1
            && count > most) {
            selector = item;
            most = count;
        }
    }
    if (!selector) {
        return state.SkipWithError("there is no such feature");
    }
    const auto entries = selector->enumEntries;
    edit(state, rig, selector->name, [&rig, &entries, name = selector->name](bool turn) {
        return rig.device->SetEnumValue(
            name.c_str(), std::next(entries.begin(), turn ? 1 : 0)->c_str(), turn ? 1 : 0);
    });
}

using Run = void (*)(benchmark::State&, Rig&);

/// Registers benchmarks over one place at a time: one connection alone has the control.
class Bench {
public:
    void add(const std::string& name, const std::string& place, Run run)
    {
        const auto opened = [this, place, run](benchmark::State& state) {
            if (m_place != place) {
                m_rig.reset();
                m_rig = std::make_unique<Rig>(place);
                m_place = place;
            }
            run(state, *m_rig);
        };
        benchmark::RegisterBenchmark(name.c_str(), opened)
            ->UseManualTime()
            ->Unit(benchmark::kMicrosecond);
    }
    void addAll(const std::string& name, const std::string& place)
    {
        add(name + "/load", place, load);
        add(name + "/reload", place, reload);
        add(name + "/states", place, states);
        add(name + "/plain edit", place, plainEdit);
        add(name + "/selector edit", place, selectorEdit);
    }

private:
    std::unique_ptr<Rig> m_rig;
    std::string m_place;
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(0, &one);
    sched_setaffinity(0, sizeof one, &one);
    Bench bench;
    for (const std::string& path : std::vector<std::string>(argv + 1, argv + argc)) {
        bench.addAll(path.substr(path.rfind('/') + 1), path);
    }
    std::unique_ptr<FakeCamera> fake;
    std::unique_ptr<FaultProxy> proxy;
    if (enterPrivateNetwork() == nullptr) {
        fake = std::make_unique<FakeCamera>(ZQ_SIMULATED_CAMERA_XML);
        proxy = std::make_unique<FaultProxy>(1);
        Faults distance;
        distance.delay = std::chrono::microseconds(300);
        proxy->set(distance);
        bench.addAll("gige", "127.0.0.1");
        bench.addAll("far", FaultProxy::address);
    } else {
        std::printf("no arv-fake-gv-camera-0.8, or no network of one's own\n");
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
