// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "operations/DeviceOperations.h"

#include "base/StatusCodes.h"
#include "features/FeatureLimits.h"
#include "words/Words.h"

#include <algorithm>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

Status named(const Feature& feature, const Status& failure)
{
    const bool isNamed = failure.text().find(feature.name) != std::string::npos;
    return isNamed ? failure : failure.withText(feature.name + ": " + failure.words());
}

} // namespace

DeviceOperations::DeviceOperations(ZQCamera::Impl& camera)
    : m_camera(camera)
{
}

Status DeviceOperations::read(const Feature& feature, const Access& access)
{
    if (Status status = checkReadable(feature); !status.isOk()) {
        return status;
    }
    const RegisterPort::FailureScope failures(m_camera.port());
    Status status = m_camera.nodes().reportedError(feature.index);
    if (status.isOk()) {
        status = access(m_camera.nodes());
    }
    return failures.hasFailed() ? failures.status() : named(feature, status);
}

Status DeviceOperations::write(const Feature& feature, const Access& access)
{
    RegisterPort& port = m_camera.port();
    const RegisterPort::FailureScope failures(port);
    const std::uint64_t writes = port.writes();
    Status status;
    {
        RegisterPort::Recorder recorder(port);
        status = access(m_camera.nodes());
        m_camera.setWritten(feature, std::move(recorder.written));
    }
    // A value may be kept in the node map only; what was read before may be outdated all the same.
    port.invalidate();
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (!status.isOk()) {
        return named(feature, status);
    }
    if (feature.endsInRegister && port.writes() == writes) {
        return { notWritable,
            feature.name + ": " + translated("the value could not be sent to the camera") };
    }
    status = m_camera.nodes().reportedError(feature.index);
    return failures.hasFailed() ? failures.status() : named(feature, status);
}

Status DeviceOperations::setInteger(const char* name, std::int64_t value, bool checkRange)
{
    const Result<const Feature*> found = lookup(name, FEATURE_INTEGER);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    Status status = checkWritable(feature);
    if (status.isOk() && checkRange) {
        status = checkInteger(feature, value);
    }
    return !status.isOk() ? status : write(feature, [&](NodeMap& nodes) {
        return nodes.set(feature.index, Number::of(value));
    });
}

Status DeviceOperations::getInteger(const char* name, std::int64_t& value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_INTEGER);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    return read(feature, [&](NodeMap& nodes) {
        const Result<Number> result = nodes.number(feature.index);
        value = result.isOk() ? result.value().integer : value;
        return result.status();
    });
}

Status DeviceOperations::setFloat(const char* name, double value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_FLOAT);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    Status status = checkWritable(feature);
    if (status.isOk()) {
        status = checkFloat(feature, value);
    }
    return !status.isOk() ? status : write(feature, [&](NodeMap& nodes) {
        return nodes.set(feature.index, Number::of(value));
    });
}

Status DeviceOperations::getFloat(const char* name, double& value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_FLOAT);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    return read(feature, [&](NodeMap& nodes) {
        const Result<Number> result = nodes.number(feature.index);
        if (!result.value().isFinite()) {
            return Status(notReadable, translated("the camera holds no finite number"));
        }
        value = result.isOk() ? result.value().asReal() : value;
        return result.status();
    });
}

Status DeviceOperations::setString(const char* name, const char* value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_STRING);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    if (value == nullptr) {
        return { invalidArgument, feature.name + ": " + translated("no text given") };
    }
    const std::string text = value;
    Status status = checkWritable(feature);
    if (status.isOk()) {
        status = checkText(feature, text);
    }
    return !status.isOk()
        ? status
        : write(feature, [&](NodeMap& nodes) { return nodes.setText(feature.index, text); });
}

const EnumEntry* DeviceOperations::chooseEntry(
    const Feature& feature, const std::string& name, int index)
{
    std::vector<const EnumEntry*> named;
    for (const EnumEntry& entry : feature.entries) {
        if (entry.name == name) {
            named.push_back(&entry);
        }
    }
    if (named.size() == 1) {
        return m_camera.reader().isAvailable(*named.front()) ? named.front() : nullptr;
    }
    // Entries that share a name are told apart by the index, which counts those available.
    const std::vector<const EnumEntry*> entries = m_camera.reader().availableEntries(feature);
    const auto at = static_cast<std::size_t>(index);
    if (index >= 0 && at < entries.size() && entries[at]->name == name) {
        return entries[at];
    }
    const auto found = std::find_if(entries.begin(), entries.end(),
        [&name](const EnumEntry* entry) { return entry->name == name; });
    return found == entries.end() ? nullptr : *found;
}

Status DeviceOperations::setEnum(const char* name, const char* entry, int index)
{
    const Result<const Feature*> found = lookup(name, FEATURE_ENUMERATION);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    if (Status status = checkWritable(feature); !status.isOk()) {
        return status;
    }
    const RegisterPort::FailureScope failures(m_camera.port());
    const std::string wanted = entry == nullptr ? "" : entry;
    const EnumEntry* chosen = chooseEntry(feature, wanted, index);
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (chosen == nullptr) {
        return { unknownEntry,
            feature.name + ": " + worded("there is no entry \"%s\" now", wanted.c_str()) };
    }
    const std::int64_t value = chosen->value;
    Status status = checkConversion(feature, Number::of(value));
    return !status.isOk() ? status : write(feature, [&](NodeMap& nodes) {
        return nodes.set(feature.index, Number::of(value));
    });
}

Status DeviceOperations::setBoolean(const char* name, bool value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_BOOLEAN);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    const Number number = Number::of(std::int64_t(value));
    Status status = checkWritable(feature);
    if (status.isOk()) {
        status = checkConversion(feature, number);
    }
    return !status.isOk()
        ? status
        : write(feature, [&](NodeMap& nodes) { return nodes.set(feature.index, number); });
}

Status DeviceOperations::getBoolean(const char* name, bool& value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_BOOLEAN);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    return read(feature, [&](NodeMap& nodes) {
        const Result<Number> result = nodes.number(feature.index);
        value = result.isOk() ? !result.value().isZero() : value;
        return result.status();
    });
}

} // namespace zqcameralib
