// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "camera/StateReasons.h"

#include "description/ReferenceWalk.h"
#include "words/Words.h"

#include <algorithm>

namespace zqcameralib {

namespace {

/// Nodes walked, and names told.
constexpr std::size_t maxWalked = 60;
constexpr std::size_t maxNames = 3;

using Nodes = std::vector<std::size_t>;

/// The feature that a user would look at for what a condition asks: itself, or the one over the
/// register that a formula reads. TLParamsLocked counts as one.
std::size_t featureFor(ZQCamera::Impl& camera, std::size_t node)
{
    if (camera.description().node(node).name == "TLParamsLocked") {
        return node;
    }
    const Feature* feature = camera.featureOver(node);
    return feature != nullptr ? feature->index : Description::absent;
}

/// The features behind a condition, nearest first.
Nodes inputsOf(ZQCamera::Impl& camera, const DescriptionNode& node, ReferenceTag condition)
{
    const Description& description = camera.description();
    NodeWalk walk(description.nodes().size(), maxWalked);
    const auto reach = [&walk](std::size_t target) { walk.reach(target); };
    node.forEachTarget(only(condition), reach);
    Nodes inputs;
    walk.run([&](std::size_t reached) {
        const std::size_t feature = featureFor(camera, reached);
        if (feature == Description::absent) {
            description.node(reached).forEachTarget(isValueSource, reach);
        } else if (std::find(inputs.begin(), inputs.end(), feature) == inputs.end()) {
            inputs.push_back(feature);
        }
    });
    return inputs;
}

bool isTrueNow(ZQCamera::Impl& camera, std::size_t node)
{
    const Result<Number> value = camera.nodes().number(node);
    return value.isOk() && !value.value().isZero();
}

std::string namesOf(ZQCamera::Impl& camera, const Nodes& nodes)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(nodes.size(), maxNames); ++i) {
        text += (i == 0 ? "" : ", ") + std::string(camera.description().node(nodes[i]).name);
    }
    return text;
}

Nodes allInputs(
    ZQCamera::Impl& camera, const std::vector<Condition>& conditions, ReferenceTag condition)
{
    Nodes all;
    for (const Condition& asked : conditions) {
        const Nodes inputs = inputsOf(camera, camera.description().node(asked.owner), condition);
        all.insert(all.end(), inputs.begin(), inputs.end());
    }
    return all;
}

} // namespace

Words lockReason(ZQCamera::Impl& camera, const Feature& feature)
{
    if (camera.port().backend().isReadOnly()) {
        return translated("the camera is opened for reading only");
    }
    Nodes inputs = allInputs(camera, feature.conditions.lockedIf, ReferenceTag::IsLocked);
    const std::size_t acquisition = camera.description().find("TLParamsLocked");
    if (std::find(inputs.begin(), inputs.end(), acquisition) != inputs.end()
        && isTrueNow(camera, acquisition)) {
        return translated("locked by TLParamsLocked: stop the acquisition to change it");
    }
    inputs.erase(std::remove(inputs.begin(), inputs.end(), acquisition), inputs.end());
    const std::string names = namesOf(camera, inputs);
    return names.empty() ? translated("locked by the camera")
                         : worded("locked by %s", names.c_str());
}

Words unavailableReason(ZQCamera::Impl& camera, const Feature& feature)
{
    if (feature.isChunkOrEventData) {
        return translated("comes only with images or events");
    }
    Nodes inputs = allInputs(camera, feature.conditions.availableIf, ReferenceTag::IsAvailable);
    for (const std::size_t input :
        allInputs(camera, feature.conditions.implementedIf, ReferenceTag::IsImplemented)) {
        if (std::find(inputs.begin(), inputs.end(), input) == inputs.end()) {
            inputs.push_back(input);
        }
    }
    const std::string names = namesOf(camera, inputs);
    return names.empty() ? translated("not available now")
                         : worded("not available now, depends on %s", names.c_str());
}

} // namespace zqcameralib
