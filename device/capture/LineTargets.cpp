// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "capture/LineTargets.h"

#include "base/StatusCodes.h"
#include "capture/SettingAccess.h"
#include "capture/SettingsPlan.h"
#include "settings/Comparison.h"
#include "settings/TextLines.h"
#include "words/Words.h"

#include <algorithm>
#include <map>
#include <utility>

namespace zqcameralib {

namespace {

using Features = std::vector<const Feature*>;

const std::string* stateIn(const ZQSettingsLine& line, const std::string& selector)
{
    const auto found = std::find_if(line.selectors.begin(), line.selectors.end(),
        [&selector](const ZQSelectorState& state) { return state.name == selector; });
    return found == line.selectors.end() ? nullptr : &found->value;
}

Result<SelectorPath> pathOf(const Features& selectors, const ZQSettingsLine& line)
{
    SelectorPath path;
    for (const Feature* selector : selectors) {
        const std::string* value = stateIn(line, selector->name);
        if (value == nullptr) {
            continue; // where it stands
        }
        if (const Status status = checkSetting(*selector, *value); !status.isOk()) {
            return Status(status.code(), selector->name + ": " + status.words());
        }
        path.push_back({ selector, *value });
    }
    return path;
}

Status checkSelectors(const Features& selectors, const ZQSettingsLine& line)
{
    for (const ZQSelectorState& state : line.selectors) {
        const bool selects = std::any_of(selectors.begin(), selectors.end(),
            [&state](const Feature* selector) { return selector->name == state.name; });
        if (!selects) {
            return { unknownFeature,
                worded("%s does not select it here", shown(state.name).c_str()) };
        }
    }
    return {};
}

Status checkValue(const ZQCamera::Impl& camera, const Feature& feature, const ZQSettingsLine& line)
{
    if (feature.access == featurebrowser::ACCESS_READ_ONLY) {
        return { notWritable, translated("is read-only") };
    }
    const std::string unit = unitOf(camera.description(), feature);
    if (!line.unit.empty() && !unit.empty() && !isSameUnit(line.unit, unit)) {
        return { invalidArgument,
            worded("its unit is %s, and %s in the camera", shown(line.unit).c_str(),
                shown(unit).c_str()) };
    }
    return checkSetting(feature, line.value);
}

} // namespace

Result<LineTarget> lineTarget(
    const ZQCamera::Impl& camera, const ZQSettings& settings, std::size_t line)
{
    const ZQSettingsLine& asked = settings.lines()[line];
    const Feature* feature = camera.feature(asked.name);
    if (feature == nullptr) {
        return Status(unknownFeature, translated("the camera has no such feature"));
    }
    if (!hasSetting(*feature)) {
        return Status(wrongKind, translated("is no feature that holds a value of one line"));
    }
    const Features selectors = selectorsOf(camera, *feature);
    if (!settings.hasAllPositions()) {
        if (Status status = checkSelectors(selectors, asked); !status.isOk()) {
            return status;
        }
    }
    const Result<SelectorPath> path = pathOf(selectors, asked);
    const Status status = path.isOk() ? checkValue(camera, *feature, asked) : path.status();
    return status.isOk() ? Result<LineTarget>(LineTarget { line, feature, path.value() }) : status;
}

void sortByPositions(std::vector<LineTarget>& targets)
{
    std::map<std::pair<const Feature*, std::string>, std::size_t> ranks;
    const auto rankOf = [&ranks](const SelectorPosition& position) {
        return ranks.emplace(std::pair(position.selector, position.value), ranks.size())
            .first->second;
    };
    using Ranked = std::pair<std::vector<std::size_t>, LineTarget>;
    std::vector<Ranked> ranked;
    for (LineTarget& target : targets) {
        std::vector<std::size_t> rank;
        for (const SelectorPosition& position : target.path) {
            rank.push_back(rankOf(position));
        }
        ranked.emplace_back(std::move(rank), std::move(target));
    }
    std::stable_sort(ranked.begin(), ranked.end(),
        [](const Ranked& a, const Ranked& b) { return a.first < b.first; });
    for (std::size_t i = 0; i < targets.size(); ++i) {
        targets[i] = std::move(ranked[i].second);
    }
}

ZQSettingsLine lineOf(const Description& description, const Feature& feature,
    const SelectorPath& path, std::string value)
{
    return { feature.name, statesOf(path), std::move(value), unitOf(description, feature), 0 };
}

} // namespace zqcameralib
