// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What a load costs: opening the camera, its repository, and the browser with its hidden widget.
// For the built-in camera, and for every description named after the benchmark's own options.
//
//   reads/distinct  register reads over different registers read; to reach: at most 1.05
//   load/raw        time over one raw pass of Aravis that opens the same description and reads the
//                   same facts of the same features; to reach: at most 1.4

#include "RawDevice.h"
#include "camera/Camera.h"
#include "description/DescriptionFile.h"
#include "simulation/SimulatedCamera.h"

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraRepository.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <benchmark/benchmark.h>

#include <QApplication>

#include <chrono>
#include <cstdio>
#include <set>

using namespace featurebrowser;
using namespace zqcameralib;

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

std::unique_ptr<ZQCamera> open(const std::string& path)
{
    std::string error;
    auto camera
        = path.empty() ? ZQCamera::OpenSimulated(error) : ZQCamera::OpenDescription(path, error);
    if (!camera) {
        throw std::runtime_error(error);
    }
    return camera;
}

std::string descriptionText(const std::string& path)
{
    if (path.empty()) {
        return std::string(simulatedCameraDescription());
    }
    std::string text;
    std::string error;
    if (!readDescriptionFile(path, text, error)) {
        throw std::runtime_error(error);
    }
    return text.substr(text.find('<')); // some files begin with a line of text
}

double rawPass(ZQCamera& camera, const std::string& path, std::uint64_t& accesses)
{
    std::vector<std::string> names;
    for (const Feature& feature : camera.impl().features()) {
        names.push_back(feature.name);
    }
    const auto start = Clock::now();
    const std::string xml = descriptionText(path);
    const RawDevice raw(camera.impl().port().backend(), xml);
    for (const std::string& name : names) {
        raw.readFacts(name.c_str());
    }
    accesses = raw.accesses();
    return secondsSince(start);
}

void load(benchmark::State& state, const std::string& path)
{
    double loadSeconds = 0;
    double rawSeconds = 0;
    std::uint64_t reads = 0;
    std::uint64_t rawReads = 0;
    std::size_t distinct = 0;
    while (state.KeepRunning()) {
        const auto start = Clock::now();
        const auto camera = open(path);
        ZQFeatureBrowser browser(camera.get(), nullptr);
        RegisterPort& port = camera->impl().port();
        const std::uint64_t before = port.reads();
        browser.GetCameraRepository()->Load();
        browser.LoadFeatureBrowser();
        loadSeconds += secondsSince(start);
        reads = port.reads() - before;
        state.SetIterationTime(secondsSince(start));

        {
            const RegisterPort::Recorder recorder(port);
            browser.ReloadFeatureBrowser();
            distinct = std::set(recorder.read.begin(), recorder.read.end()).size();
        }
        rawSeconds += rawPass(*camera, path, rawReads);
    }
    state.counters["distinct"] = double(distinct);
    state.counters["reads"] = double(reads);
    state.counters["raw_reads"] = double(rawReads);
    state.counters["reads/distinct"] = double(reads) / double(distinct);
    state.counters["load/raw"] = loadSeconds / rawSeconds;
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    // The trace of the browser is not what is read here.
    if (!std::freopen("/dev/null", "w", stderr)) {
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    std::vector<std::string> paths(argv + 1, argv + argc);
    paths.insert(paths.begin(), std::string());
    for (const std::string& path : paths) {
        const std::string name = path.empty() ? "simulated" : path.substr(path.rfind('/') + 1);
        benchmark::RegisterBenchmark(("load/" + name).c_str(), load, path)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
