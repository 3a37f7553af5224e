// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What saving and restoring settings costs, in process, for the built-in camera and for every
// description named after the benchmark's own options. Restoring: after every setting was given
// another legal value where there is one.
//
//   save/reads       registers read over distinct ones at each position of the selectors; to reach:
//                    at most 1.1
//   moves            selectors moved by a save
//   changed          values that differ before the restoring
//   restored         share of them that hold afterwards; to reach: 1, but for what the camera
//                    itself forbids
//   writes           registers written, selectors among them, over changed values; to reach: at
//                    most 3
//   working          accesses beyond the reading before and the reading back, over changed values;
//                    to reach: at most 3, and 4 where nearly every value has a position of its own
//   all              all accesses over changed values
//   /naive           all accesses over those of the naive way: each line in the order of the file,
//                    its selectors first, again until nothing changes any more
//   naive restored   share of the changed values that hold after that

#include "SettingsTools.h"

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQSettings.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <stdexcept>

using namespace zqcameralib;

namespace {

constexpr std::chrono::minutes longest(10);

std::unique_ptr<ZQCamera> opened(const std::string& path)
{
    std::string error;
    auto camera
        = path.empty() ? ZQCamera::OpenSimulated(error) : ZQCamera::OpenDescription(path, error);
    if (!camera) {
        throw std::runtime_error(error);
    }
    return camera;
}

ZQSettings saved(ZQCamera& camera)
{
    ZQSettingsSaving saving(camera);
    if (saving.wait(longest) != ZQCameraTask::State::Done) {
        throw std::runtime_error(saving.error());
    }
    return saving.takeSettings();
}

/// One line as it comes; what the camera holds then.
std::string writeNaively(ZQCamera::Impl& camera, const ZQSettings& settings, std::size_t line)
{
    const Result<LineTarget> target = lineTarget(camera, settings, line);
    if (!target.isOk()) {
        return {};
    }
    for (const SelectorPosition& position : target.value().path) {
        static_cast<void>(writeSetting(camera, *position.selector, position.value).isOk());
    }
    const Feature& feature = *target.value().feature;
    static_cast<void>(writeSetting(camera, feature, settings.lines()[line].value).isOk());
    return readSetting(camera, feature).value();
}

void restoreNaively(ZQCamera& camera, const ZQSettings& settings)
{
    std::vector<std::string> last;
    std::vector<std::string> now;
    do {
        last.swap(now);
        now.clear();
        for (std::size_t i = 0; i < settings.lines().size(); ++i) {
            now.push_back(writeNaively(camera.impl(), settings, i));
        }
    } while (now != last);
}

/// A camera whose settings are to be restored.
class Altered {
public:
    explicit Altered(const std::string& path)
        : camera(opened(path))
    {
        alter(*camera, saved(*camera)); // much of what starts at zero is illegal
        settings = saved(*camera);
        alter(*camera, settings);
        changed = differing();
    }

    double differing() const
    {
        return double(ZQSettings::Compare(settings, saved(*camera)).size());
    }
    double share() const { return (changed - differing()) / changed; }

    std::unique_ptr<ZQCamera> camera;
    ZQSettings settings;
    double changed = 0;
};

double accesses(const RegisterCount& count)
{
    return double(count.reads() + count.writes());
}

void run(benchmark::State& state, const std::string& path)
{
    while (state.KeepRunning()) {
        Altered ours(path);
        RegisterPort& port = ours.camera->impl().port();
        double saving = 0;
        {
            const RegisterCount count(port);
            saved(*ours.camera);
            saving = accesses(count);
            state.counters["save/reads"] = double(count.reads()) / double(count.distinct());
            state.counters["moves"] = double(count.writes());
        }
        double all = 0;
        {
            const RegisterCount count(port);
            ZQSettingsRestoring restoring(*ours.camera, ours.settings);
            restoring.wait(longest);
            all = accesses(count);
            state.counters["writes"] = double(count.writes()) / ours.changed;
        }
        Altered naive(path);
        const RegisterCount count(naive.camera->impl().port());
        restoreNaively(*naive.camera, naive.settings);
        const double naively = accesses(count);
        state.counters["changed"] = ours.changed;
        state.counters["restored"] = ours.share();
        state.counters["all"] = all / ours.changed;
        state.counters["working"] = (all - 2 * saving) / ours.changed;
        state.counters["/naive"] = all / naively;
        state.counters["naive restored"] = naive.share();
    }
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    std::vector<std::string> paths(argv + 1, argv + argc);
    paths.emplace_back(); // the built-in camera
    for (const std::string& path : paths) {
        const std::string name = path.empty() ? "simulated" : path.substr(path.rfind('/') + 1);
        benchmark::RegisterBenchmark(name.c_str(), run, path)
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
