// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "capture/SettingAccess.h"

#include "base/NumberText.h"
#include "base/StatusCodes.h"
#include "camera/StateReasons.h"
#include "description/ReferenceWalk.h"
#include "operations/DeviceOperations.h"
#include "settings/Comparison.h"
#include "settings/TextLines.h"
#include "words/Words.h"

#include <algorithm>
#include <cmath>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

bool isTextual(const Feature& feature)
{
    return feature.type == FEATURE_STRING || feature.type == FEATURE_READ_ONLY_STRING;
}

/// On and off, in the ways that people and other tools write them.
std::optional<bool> booleanOf(const std::string& value)
{
    if (value == "True" || value == "true" || value == "1") {
        return true;
    }
    return value == "False" || value == "false" || value == "0" ? std::optional(false)
                                                                : std::nullopt;
}

Result<std::string> entryText(const Feature& feature, std::int64_t value)
{
    const auto entry = std::find_if(feature.entries.begin(), feature.entries.end(),
        [value](const EnumEntry& candidate) { return candidate.value == value; });
    return entry == feature.entries.end() ? Result<std::string>(
               Status(notEvaluable, translated("its register holds none of its entries")))
                                          : entry->name;
}

Result<std::string> presentText(ZQCamera::Impl& camera, const Feature& feature)
{
    if (isTextual(feature)) {
        return camera.nodes().text(feature.index);
    }
    const Result<Number> number = camera.nodes().number(feature.index);
    if (!number.isOk()) {
        return number.status();
    }
    const Number& value = number.value();
    if (!value.isFinite()) {
        return Status(notEvaluable, translated("its register holds no finite number"));
    }
    switch (feature.type) {
    case FEATURE_ENUMERATION:
        return entryText(feature, value.integer);
    case FEATURE_BOOLEAN:
        return std::string(value.isZero() ? "False" : "True");
    case FEATURE_FLOAT:
        return floatText(value.asReal());
    default:
        return integerText(value.integer);
    }
}

Status readability(ZQCamera::Impl& camera, const Feature& feature)
{
    const RegisterPort::FailureScope failures(camera.port());
    const FEATURE_STATE state = camera.reader().state(feature);
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (state == FEATURE_NOT_AVAILABLE) {
        const bool canBe = camera.reader().canBeImplemented(feature);
        return { canBe ? notAvailable : unknownFeature,
            canBe ? unavailableReason(camera, feature)
                  : translated("the camera does not implement it") };
    }
    if (state == FEATURE_READ_FAILED) {
        return { notEvaluable, translated("cannot be read") + ", " + camera.reader().reason() };
    }
    const std::uint16_t access = camera.reader().presentAccess(feature);
    return access == ACCESS_READ_ONLY || access == ACCESS_READ_WRITE
        ? Status()
        : Status(notReadable, translated("can only be written"));
}

Status withoutName(const Feature& feature, const Status& status)
{
    const std::string begin = feature.name + ": ";
    const bool isNamed = status.text().compare(0, begin.size(), begin) == 0;
    return isNamed ? status.withText(status.words().behind(begin.size())) : status;
}

Status written(DeviceOperations& operations, const Feature& feature, const std::string& value)
{
    const char* name = feature.name.c_str();
    switch (feature.type) {
    case FEATURE_INTEGER:
        return operations.setInteger(name, exactInteger(value).value_or(0), true);
    case FEATURE_FLOAT:
        return operations.setFloat(name, exactDouble(value).value_or(0.0));
    case FEATURE_BOOLEAN:
        return operations.setBoolean(name, booleanOf(value).value_or(false));
    case FEATURE_ENUMERATION:
        return operations.setEnum(name, value.c_str(), -1);
    default:
        return operations.setString(name, value.c_str());
    }
}

} // namespace

Result<std::string> readSetting(ZQCamera::Impl& camera, const Feature& feature)
{
    const CallScope call(camera.port().backend());
    const RegisterPort::FailureScope failures(camera.port());
    Status status = readability(camera, feature);
    if (status.isOk()) {
        status = camera.nodes().reportedError(feature.index);
    }
    Result<std::string> text = status.isOk() ? presentText(camera, feature) : status;
    return failures.hasFailed() ? Result<std::string>(failures.status()) : text;
}

Status writeSetting(ZQCamera::Impl& camera, const Feature& feature, const std::string& value)
{
    if (Status status = checkSetting(feature, value); !status.isOk()) {
        return status;
    }
    const CallScope call(camera.port().backend());
    DeviceOperations operations(camera);
    return withoutName(feature, written(operations, feature, value));
}

Status checkSetting(const Feature& feature, const std::string& value)
{
    const std::string given = shown(value);
    switch (feature.type) {
    case FEATURE_INTEGER:
        return exactInteger(value)
            ? Status()
            : Status(invalidArgument, worded("%s is no integer", given.c_str()));
    case FEATURE_FLOAT: {
        const auto number = exactDouble(value);
        return number && std::isfinite(*number)
            ? Status()
            : Status(invalidArgument, worded("%s is no number", given.c_str()));
    }
    case FEATURE_BOOLEAN:
        return booleanOf(value)
            ? Status()
            : Status(invalidArgument, worded("%s is neither True nor False", given.c_str()));
    case FEATURE_ENUMERATION: {
        const bool isKnown = std::any_of(feature.entries.begin(), feature.entries.end(),
            [&value](const EnumEntry& entry) { return entry.name == value; });
        return isKnown
            ? Status()
            : Status(unknownEntry, worded("%s is none of its entries here", given.c_str()));
    }
    default:
        return value.find('\0') == std::string::npos
            ? Status()
            : Status(invalidArgument, worded("%s holds a NUL", given.c_str()));
    }
}

bool isAnswer(const Status& status)
{
    constexpr auto group = [](int code) { return static_cast<unsigned>(code) >> 16U; };
    switch (group(status.code())) {
    case group(STATUS_OK):
    case group(ERROR_VALUE_OUT_OF_RANGE):
    case group(ERROR_VALUE_NOT_ON_INCREMENT):
    case group(ERROR_FLOAT_OUT_OF_RANGE):
    case group(unknownFeature):
        return status.code() != commandTimeout;
    default:
        return false;
    }
}

bool isSetting(const Feature& feature, const std::string& asked, const std::string& read)
{
    switch (feature.type) {
    case FEATURE_INTEGER:
    case FEATURE_FLOAT:
        return isSameValue(asked, read);
    case FEATURE_BOOLEAN:
        return booleanOf(asked) == booleanOf(read);
    default:
        return asked == read;
    }
}

std::string unitOf(const Description& description, const Feature& feature)
{
    for (const std::size_t link : valueChain(description, feature.index)) {
        const std::string_view unit = childText(description.node(link).element, "Unit");
        if (!unit.empty()) {
            return std::string(unit);
        }
    }
    return {};
}

bool hasSetting(const Feature& feature)
{
    return feature.isUsable() && feature.type != FEATURE_COMMAND
        && feature.node->kind != NodeKind::Register && !feature.isChunkOrEventData;
}

} // namespace zqcameralib
