// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "capture/SettingsPlan.h"

#include "capture/SettingAccess.h"
#include "description/ReferenceWalk.h"

#include <glib.h>

#include <algorithm>
#include <memory>
#include <sstream>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

/// Deeper ones are not followed.
constexpr std::size_t mostSelectors = 8;

constexpr ReferenceTags decidesWhere { ReferenceTag::Address, ReferenceTag::Index,
    ReferenceTag::Offset };

using Features = std::vector<const Feature*>;

bool endsWithAny(std::string_view text, std::initializer_list<std::string_view> ends)
{
    return std::any_of(ends.begin(), ends.end(), [text](std::string_view end) {
        return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
    });
}

bool isStreamable(const DescriptionNode& node)
{
    return childText(node.element, "Streamable") == "Yes";
}

/// Where images and messages go, and who has the control: of this connection, not of the camera.
bool isOfTransportLayer(const Feature& feature)
{
    return feature.representation != REPRESENTATION_NUMBER
        || endsWithAny(
            feature.name, { "HostPort", "GevCCP", "HeartbeatTimeout", "TLParamsLocked" });
}

/// By the rules of names.
bool isNamedSelector(const Feature& feature)
{
    return feature.isSelector && endsWithAny(feature.name, { "Selector", "Index" });
}

/// Writing it replaces other settings.
bool actsLikeCommand(const Feature& feature)
{
    return endsWithAny(feature.name, { "Load", "Save", "Reset", "Restore" });
}

bool isCandidate(const Feature& feature, bool isMarked)
{
    if (feature.type == FEATURE_CATEGORY || feature.type == FEATURE_COMMAND) {
        return false;
    }
    if (isMarked) {
        return isStreamable(*feature.node);
    }
    const bool isWritable
        = feature.access == ACCESS_READ_WRITE || feature.access == ACCESS_WRITE_ONLY;
    return isWritable && !isOfTransportLayer(feature) && !isNamedSelector(feature);
}

/// Why it cannot be saved, whatever the camera holds; empty when it can. In English, like all of a
/// settings file.
std::string obstacle(const Feature& feature)
{
    if (feature.node->isBroken()) {
        return "cannot be used, " + feature.node->broken.english();
    }
    if (feature.isChunkOrEventData) {
        return "comes only with images or events";
    }
    if (feature.node->kind == NodeKind::Register) {
        return "is raw data";
    }
    if (actsLikeCommand(feature)) {
        return "writing it replaces other settings";
    }
    switch (feature.access) {
    case ACCESS_READ_WRITE:
        return {};
    case ACCESS_WRITE_ONLY:
        return "can only be written";
    case ACCESS_READ_ONLY:
        return "is read-only";
    default:
        return "cannot be read";
    }
}

void addHidden(const ZQCamera::Impl& camera, SettingsPlan& plan)
{
    for (const DescriptionNode& node : camera.description().nodes()) {
        const bool isFeature = hasValue(node.kind) && node.kind != NodeKind::Command;
        if (isFeature && isStreamable(node) && camera.feature(node.name) == nullptr) {
            plan.leftOut.push_back({ std::string(node.name), "is not shown by the description" });
        }
    }
}

/// Whether the place of the feature's registers, or which of them counts, depends on the selector.
bool decidesPlace(const Description& description, const Feature& selector, const Feature& feature)
{
    NodeWalk walk(description.nodes().size());
    const auto reach = [&walk](std::size_t node) { walk.reach(node); };
    for (const std::size_t link : valueChain(description, feature.index)) {
        description.node(link).forEachTarget(decidesWhere, reach);
    }
    walk.run(
        [&](std::size_t node) { description.node(node).forEachTarget(isValueReference, reach); });
    const std::vector<std::size_t> chain = valueChain(description, selector.index);
    return std::any_of(
        chain.begin(), chain.end(), [&walk](std::size_t link) { return walk.isReached()[link]; });
}

/// Some descriptions name as selectors what only changes other features, such as a binning that
/// limits the width. Moving that through its values would change settings, and not only what is
/// looked at.
bool isMovable(const ZQCamera::Impl& camera, const Feature& selector, const Feature& feature)
{
    return hasSetting(selector)
        && (isNamedSelector(selector) || decidesPlace(camera.description(), selector, feature));
}

void addSelectors(const ZQCamera::Impl& camera, const Feature& feature, Features& chain)
{
    std::istringstream names(feature.selectorParent);
    for (std::string name; std::getline(names, name, ',');) {
        const Feature* selector = camera.feature(name);
        const bool isNew = selector != nullptr && isMovable(camera, *selector, feature)
            && std::find(chain.begin(), chain.end(), selector) == chain.end();
        if (isNew && chain.size() < mostSelectors) {
            chain.push_back(selector);
            addSelectors(camera, *selector, chain);
        }
    }
}

std::string firstOf(ZQCamera::Impl& camera, std::initializer_list<const char*> names)
{
    for (const char* name : names) {
        const Feature* feature = camera.feature(name);
        const Result<std::string> text
            = feature != nullptr && hasSetting(*feature) ? readSetting(camera, *feature) : "";
        if (!text.value().empty()) {
            return text.value();
        }
    }
    return {};
}

std::string descriptionVersion(const Description& description)
{
    std::string version;
    for (const char* part : { "MajorVersion", "MinorVersion", "SubMinorVersion" }) {
        version += (version.empty() ? "" : ".")
            + std::string(description.root().attribute(part).as_string("0"));
    }
    return version;
}

std::string descriptionChecksum(const Description& description)
{
    std::ostringstream text;
    description.root().print(text, " ");
    const std::string printed = text.str();
    const std::unique_ptr<gchar, decltype(&g_free)> sum(
        g_compute_checksum_for_string(
            G_CHECKSUM_SHA256, printed.data(), static_cast<gssize>(printed.size())),
        g_free);
    return sum.get();
}

std::string dateNow()
{
    const std::unique_ptr<GDateTime, decltype(&g_date_time_unref)> now(
        g_date_time_new_now_utc(), g_date_time_unref);
    const std::unique_ptr<gchar, decltype(&g_free)> text(
        g_date_time_format(now.get(), "%Y-%m-%dT%H:%M:%SZ"), g_free);
    return text.get();
}

} // namespace

SettingsPlan settingsPlan(const ZQCamera::Impl& camera)
{
    const bool isMarked = std::any_of(camera.features().begin(), camera.features().end(),
        [](const Feature& feature) { return isStreamable(*feature.node); });
    SettingsPlan plan;
    for (const Feature& feature : camera.features()) {
        if (!isCandidate(feature, isMarked)) {
            continue;
        }
        const std::string why = obstacle(feature);
        if (why.empty()) {
            plan.features.push_back(&feature);
        } else {
            plan.leftOut.push_back({ feature.name, why });
        }
    }
    addHidden(camera, plan);
    return plan;
}

std::vector<const Feature*> selectorsOf(const ZQCamera::Impl& camera, const Feature& feature)
{
    Features chain;
    addSelectors(camera, feature, chain);
    chain.erase(std::remove(chain.begin(), chain.end(), &feature), chain.end());
    // One that is selected by others has more of them than these.
    const auto depth = [&camera](const Feature* selector) {
        Features above;
        addSelectors(camera, *selector, above);
        return above.size();
    };
    std::sort(chain.begin(), chain.end(), [&depth](const Feature* a, const Feature* b) {
        const std::size_t depthOfA = depth(a);
        const std::size_t depthOfB = depth(b);
        return depthOfA == depthOfB ? a < b : depthOfA < depthOfB;
    });
    return chain;
}

ZQSettingsHeader settingsHeader(ZQCamera::Impl& camera)
{
    const Description& description = camera.description();
    ZQSettingsHeader header;
    header.vendor = firstOf(camera, { "DeviceVendorName" });
    header.model = firstOf(camera, { "DeviceModelName" });
    header.vendor = header.vendor.empty() ? std::string(description.vendor()) : header.vendor;
    header.model = header.model.empty() ? std::string(description.model()) : header.model;
    header.serialNumber = firstOf(camera, { "DeviceSerialNumber", "DeviceID" });
    header.firmware = firstOf(camera, { "DeviceFirmwareVersion", "DeviceVersion" });
    header.descriptionVersion = descriptionVersion(description);
    header.descriptionChecksum = descriptionChecksum(description);
    header.date = dateNow();
    return header;
}

} // namespace zqcameralib
