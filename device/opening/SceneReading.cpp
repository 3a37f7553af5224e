// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "opening/SceneReading.h"

#include "opening/FeatureValues.h"
#include "opening/SimulatedChunks.h"
#include "scene/TestPattern.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace zqcameralib {

namespace {

constexpr double usualExposure = 10000.0; ///< us; fills white paper well at gain 1
constexpr double rawGainRange = 24.0; ///< dB between the limits of a gain without a unit
constexpr std::int64_t largestSide = 100000;
constexpr std::int64_t largestStep = 64;

/// What features are called of which there is one for each direction.
struct AxisNames {
    const char *sensor, *sizeMax, *size, *offset, *binning, *binningMode, *decimation, *reverse;
};
constexpr AxisNames horizontal { "SensorWidth", "WidthMax", "Width", "OffsetX", "BinningHorizontal",
    "BinningHorizontalMode", "DecimationHorizontal", "ReverseX" };
constexpr AxisNames vertical { "SensorHeight", "HeightMax", "Height", "OffsetY", "BinningVertical",
    "BinningVerticalMode", "DecimationVertical", "ReverseY" };

bool isSide(std::int64_t pixels)
{
    return pixels > 0 && pixels <= largestSide;
}

std::string_view unitOf(const Feature& feature)
{
    return childText(feature.node->element, "Unit");
}

/// The value's place between its limits, 0 to 1; nothing where they say nothing.
std::optional<double> shareOf(FeatureValues& values, const FeatureValues::Value& value)
{
    constexpr double largestRange = 65536.0;
    const Limits limits = values.limits(*value.feature);
    if (!limits.minimum || !limits.maximum) {
        return std::nullopt;
    }
    const double minimum = limits.minimum->asReal();
    const double range = limits.maximum->asReal() - minimum;
    const bool isRange = range > 0.0 && range <= largestRange;
    return isRange ? std::optional((value.number - minimum) / range) : std::nullopt;
}

/// More of them make one pixel of the image than binning and decimation say where the camera has
/// other modes of that kind.
SceneAxis readAxis(FeatureValues& values, const AxisNames& names)
{
    SceneAxis axis;
    const auto factor = [&values](const char* name) {
        return std::clamp<std::int64_t>(values.integer({ name }, 1), 1, largestStep);
    };
    axis.binning = factor(names.binning);
    axis.step = axis.binning * factor(names.decimation);
    const std::int64_t sizeMax = values.integer({ names.sizeMax }, 0);
    axis.sensor = values.integer({ names.sensor }, 0);
    if (isSide(axis.sensor) && isSide(sizeMax)) {
        axis.step = std::max(axis.step, axis.sensor / sizeMax);
    } else if (!isSide(axis.sensor)) {
        const auto size = values.find({ names.size });
        const Limits limits = size ? values.limits(*size->feature) : Limits();
        const std::int64_t largest = isSide(sizeMax) ? sizeMax
            : limits.maximum                         ? limits.maximum->rounded().value_or(0)
                                                     : 0;
        axis.sensor = isSide(largest) ? largest * axis.step : 0;
    }
    axis.offset = std::clamp<std::int64_t>(values.integer({ names.offset }, 0), 0, largestSide);
    axis.isSummed = values.entry({ names.binningMode }) == "Sum";
    axis.isReversed = values.isOn({ names.reverse });
    return axis;
}

/// Cameras that send several bands of rows as one image name them so.
void readBands(FeatureValues& values, SceneSettings& settings)
{
    constexpr std::int64_t most = 16;
    const auto index = values.find({ "MROI_Index" });
    if (!index || !values.isOn({ "MROI_Enable" })) {
        return;
    }
    const Limits limits = values.limits(*index->feature);
    const std::int64_t last
        = std::min(limits.maximum ? limits.maximum->rounded().value_or(0) : 0, most);
    for (std::int64_t i = 0; i <= last; ++i) {
        const AsIfSelected selected(values.camera(), *index->feature, i);
        settings.bands.push_back(
            { std::clamp<std::int64_t>(values.integer({ "MROI_Y" }, 0), 0, largestSide),
                std::clamp<std::int64_t>(values.integer({ "MROI_H" }, 0), 0, largestSide) });
    }
}

double exposureOf(FeatureValues& values)
{
    struct Unit {
        std::string_view name;
        double microseconds;
    };
    static constexpr std::array<Unit, 3> units { { { "ms", 1e3 }, { "s", 1e6 }, { "ns", 1e-3 } } };
    const auto time = values.find({ "ExposureTime", "ExposureTimeAbs" });
    double microseconds = 0.0;
    if (time) {
        const auto* const unit = std::find_if(units.begin(), units.end(),
            [&](const Unit& one) { return one.name == unitOf(*time->feature); });
        microseconds = time->number * (unit == units.end() ? 1.0 : unit->microseconds);
    } else {
        const double base = values.number({ "ExposureTimeBaseAbs" }, 1.0);
        microseconds = values.number({ "ExposureTimeRaw" }, 0.0) * (base > 0.0 ? base : 1.0);
    }
    return microseconds;
}

/// As a factor.
double presentGain(FeatureValues& values)
{
    constexpr double most = 60.0; // dB
    const auto gain = values.find({ "Gain", "GainAbs", "GainRaw" });
    if (!gain) {
        return 1.0;
    }
    const bool isReal = gain->feature->type == featurebrowser::FEATURE_FLOAT;
    const bool isDecibels = isReal || unitOf(*gain->feature) == "dB";
    const std::optional<double> share = isDecibels ? std::nullopt : shareOf(values, *gain);
    const double decibels = share ? *share * rawGainRange
        : isDecibels              ? gain->number
                                  : gain->number / 10.0;
    return std::pow(10.0, std::clamp(decibels, -most, most) / 20.0);
}

/// As a share of the brightest value.
double presentBlack(FeatureValues& values)
{
    constexpr double countsOfByte = 255.0;
    constexpr double rawRange = 0.25;
    const auto black = values.find({ "BlackLevel", "BlackLevelAbs", "BlackLevelRaw" });
    if (!black) {
        return 0.0;
    }
    if (unitOf(*black->feature) == "%") {
        return black->number / 100.0;
    }
    const bool isReal = black->feature->type == featurebrowser::FEATURE_FLOAT;
    const std::optional<double> share = isReal ? std::nullopt : shareOf(values, *black);
    return share ? *share * rawRange : std::clamp(black->number / countsOfByte, -1.0, 1.0);
}

/// Calls use(entry) for each entry of the selector whose name ends in `word`, as if it stood there.
template <typename Use>
void forEntries(ZQCamera::Impl& camera, const char* selector, std::string_view word, Use use)
{
    const Feature* feature = camera.feature(selector);
    if (feature == nullptr) {
        return;
    }
    for (const EnumEntry& entry : feature->entries) {
        const std::string_view name = entry.name;
        const bool ends
            = name.size() >= word.size() && name.substr(name.size() - word.size()) == word;
        if (!ends) {
            continue;
        }
        const AsIfSelected selected(camera, selector, entry.name);
        if (selected.isPossible()) {
            use();
        }
    }
}

constexpr std::array<const char*, 3> colours { "Red", "Green", "Blue" };

bool hasEntry(ZQCamera::Impl& camera, const char* selector, const char* word)
{
    bool has = false;
    forEntries(camera, selector, word, [&has] { has = true; });
    return has;
}

/// Of a selector that does not speak of all and of colours, the present entry counts.
void readGains(FeatureValues& values, SceneSettings& settings)
{
    ZQCamera::Impl& camera = values.camera();
    const auto gain = [&](const char* word, double& factor) {
        forEntries(camera, "GainSelector", word, [&] { factor *= presentGain(values); });
    };
    gain("All", settings.gain);
    const bool isOne
        = !hasEntry(camera, "GainSelector", "All") && !hasEntry(camera, "GainSelector", colours[0]);
    settings.gain *= isOne ? presentGain(values) : 1.0;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        gain(colours.at(i), settings.colourGain.at(i));
    }
}

void readBlacks(FeatureValues& values, SceneSettings& settings)
{
    ZQCamera::Impl& camera = values.camera();
    const auto black = [&](const char* word, double& level) {
        forEntries(camera, "BlackLevelSelector", word, [&] { level += presentBlack(values); });
    };
    black("All", settings.black);
    const bool isOne = !hasEntry(camera, "BlackLevelSelector", "All")
        && !hasEntry(camera, "BlackLevelSelector", colours[0]);
    settings.black += isOne ? presentBlack(values) : 0.0;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        black(colours.at(i), settings.colourBlack.at(i));
    }
}

/// The sensor sees less red and blue than green; the white balance makes up for it. With the gains
/// of colours that the built-in camera begins with, its automatic white is white.
void readBalance(FeatureValues& values, SceneSettings& settings)
{
    constexpr std::array<double, 3> white { 2.0, 1.0, 2.4 };
    for (std::size_t i = 0; i < colours.size(); ++i) {
        forEntries(values.camera(), "BalanceRatioSelector", colours.at(i), [&] {
            const auto ratio = values.find({ "BalanceRatio", "BalanceRatioAbs" });
            if (ratio && ratio->number > 0.0) {
                settings.colourGain.at(i) *= ratio->number / white.at(i);
            }
        });
    }
}

void readResponse(FeatureValues& values, SceneSettings& settings)
{
    const double exposure = exposureOf(values);
    // A register that nobody has set yet says 0.
    settings.gain = exposure > 0.0 ? exposure / usualExposure : 1.0;
    readGains(values, settings);
    readBlacks(values, settings);
    readBalance(values, settings);
    const double gamma = values.number({ "Gamma" }, 1.0);
    const bool isOn
        = values.camera().feature("GammaEnable") == nullptr || values.isOn({ "GammaEnable" });
    settings.gamma = isOn && gamma > 0.0 ? gamma : 1.0;
}

void readPattern(FeatureValues& values, SceneSettings& settings)
{
    const std::string entry
        = values.entry({ "TestPattern", "TestImageSelector", "TestImage", "TestImageMode" });
    settings.pattern = entry.empty() ? TestPattern::Off : testPattern(entry);
    settings.isPatternMoving = isMovingPattern(entry);
}

/// No faster than the exposure allows.
double frameRateOf(FeatureValues& values)
{
    constexpr double freeRunning = 30.0;
    const auto resulting = values.find(
        { "AcquisitionResultingFrameRate", "ResultingFrameRate", "ResultingFrameRateAbs" });
    if (resulting && resulting->number > 0.0) {
        return resulting->number;
    }
    const auto enabled
        = values.find({ "AcquisitionFrameRateEnable", "AcquisitionFrameRateEnabled" });
    const bool isFree = enabled && enabled->number == 0.0;
    const double wanted = isFree
        ? freeRunning
        : values.number({ "AcquisitionFrameRate", "AcquisitionFrameRateAbs" }, 0.0);
    const double exposure = exposureOf(values);
    return exposure > 0.0 && wanted > 0.0 ? std::min(wanted, 1e6 / exposure) : wanted;
}

/// Nothing where the trigger of that name is not On.
std::optional<SceneTrigger> readTrigger(FeatureValues& values, const char* name)
{
    const AsIfSelected selected(values.camera(), "TriggerSelector", name);
    if (!selected.isPossible() || values.entry({ "TriggerMode" }) != "On") {
        return std::nullopt;
    }
    SceneTrigger trigger;
    trigger.isAwaited = true;
    trigger.source = values.entry({ "TriggerSource" });
    trigger.isSoftware = trigger.source.empty() || trigger.source == "Software";
    trigger.isSelected = selected.isPresent();
    return trigger;
}

/// That of single frames comes before those of several.
void readTriggers(FeatureValues& values, SceneSettings& settings)
{
    const std::int64_t burst = std::max<std::int64_t>(
        values.integer({ "AcquisitionBurstFrameCount", "TriggerFrameCount" }, 1), 1);
    const std::array<std::pair<const char*, std::int64_t>, 4> triggers { { { "FrameStart", 1 },
        { "ExposureStart", 1 }, { "FrameBurstStart", burst }, { "AcquisitionStart", 0 } } };
    for (const auto& [name, frames] : triggers) {
        if (const auto trigger = readTrigger(values, name)) {
            settings.trigger = *trigger;
            settings.trigger.frames = static_cast<std::uint64_t>(frames);
            return;
        }
    }
}

} // namespace

SceneSettings readScene(ZQCamera::Impl& camera)
{
    FeatureValues values(camera);
    SceneSettings settings;
    settings.x = readAxis(values, horizontal);
    settings.y = readAxis(values, vertical);
    readBands(values, settings);
    readResponse(values, settings);
    readPattern(values, settings);
    settings.hasChunks = values.isOn({ "ChunkModeActive" });
    settings.chunks = readChunks(camera);
    settings.framesPerSecond = frameRateOf(values);
    readTriggers(values, settings);
    return settings;
}

} // namespace zqcameralib
