// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// The core's own share of a load, per record and pass over the records: a load adds every record
// (first pass) and updates it (second pass), over collaborators that do nothing.

#include "featurebrowser/FeatureItem.h"
#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"
#include "featurebrowser/ZQFeatureBrowser.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <vector>

namespace {

using namespace featurebrowser;

constexpr int records = 1000;

/// A record with names and texts as long as a real camera's.
std::shared_ptr<FeatureItem> makeItem(FEATURE_TYPE type, int number)
{
    auto item = std::make_shared<FeatureItem>();
    item->name = "SensorTimingControl" + std::to_string(number);
    item->type = type;
    item->depth = type == FEATURE_CATEGORY ? 0 : 1;
    item->valueText = "2";
    item->accessMode = ACCESS_READ_WRITE;
    item->intWritable = 1;
    if (type == FEATURE_STRING) {
        item->valueText = "Device user identification";
    }
    if (type == FEATURE_ENUMERATION) {
        item->enumEntries = { "Off", "Once", "Continuous", "ExternalTriggerInput" };
    }
    if (type == FEATURE_BOOLEAN) {
        item->enumEntries = { "Off", "On" };
    }
    return item;
}

/// Loads a tree whose records take the given kinds in turn.
void loadTree(benchmark::State& state, const std::vector<FEATURE_TYPE>& kinds)
{
    ZQCameraDevice device(nullptr, nullptr);
    auto& items = device.GetRepository()->GetFeatureList();
    for (int i = 0; i < records; ++i) {
        items.push_back(makeItem(kinds[static_cast<std::size_t>(i) % kinds.size()], i));
    }
    ZQFeatureBrowser browser(&device, nullptr);
    std::FILE* const original = std::exchange(stderr, std::fopen("/dev/null", "w"));
    for ([[maybe_unused]] auto _ : state) {
        browser.LoadFeatureBrowser();
    }
    std::fclose(std::exchange(stderr, original));
    constexpr int passes = 2;
    state.counters["perRecordAndPass"] = benchmark::Counter(records * passes,
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// Integers and enumerations are the most frequent kinds of a camera's description.
const std::vector<FEATURE_TYPE> mixed { FEATURE_CATEGORY, FEATURE_INTEGER, FEATURE_ENUMERATION,
    FEATURE_INTEGER, FEATURE_BOOLEAN, FEATURE_INTEGER, FEATURE_ENUMERATION, FEATURE_COMMAND,
    FEATURE_STRING, FEATURE_READ_ONLY_STRING };

BENCHMARK_CAPTURE(loadTree, mixedWithoutFloats, mixed);
BENCHMARK_CAPTURE(loadTree, integers, { FEATURE_CATEGORY, FEATURE_INTEGER, FEATURE_INTEGER });
BENCHMARK_CAPTURE(loadTree, enumerations, { FEATURE_CATEGORY, FEATURE_ENUMERATION });
BENCHMARK_CAPTURE(loadTree, floats, { FEATURE_CATEGORY, FEATURE_FLOAT, FEATURE_FLOAT });

} // namespace

BENCHMARK_MAIN();
