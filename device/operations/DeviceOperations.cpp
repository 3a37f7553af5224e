#include "operations/DeviceOperations.h"

#include "base/StatusCodes.h"
#include "features/FeatureLimits.h"
#include "nodemap/FormulaGuard.h"

#include <algorithm>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

Status libraryFailure(const Feature& feature, const GError& error)
{
    Status failure = Status::fromLibrary(error);
    const bool isNamed = failure.text().find(feature.name) != std::string::npos;
    return isNamed ? failure : failure.withText(feature.name + ": " + failure.text());
}

} // namespace

DeviceOperations::DeviceOperations(ZQCamera::Impl& camera)
    : m_camera(camera)
    , m_reader(camera.port())
{
}

Status DeviceOperations::read(const Feature& feature, const Access& access)
{
    if (Status status = checkReadable(feature); !status.isOk()) {
        return status;
    }
    const RegisterPort::FailureScope failures(m_camera.port());
    GlibError error;
    access(error.out());
    if (failures.hasFailed()) {
        return failures.status();
    }
    return error ? libraryFailure(feature, *error.get()) : Status();
}

Status DeviceOperations::write(const Feature& feature, const Access& access)
{
    RegisterPort& port = m_camera.port();
    const RegisterPort::FailureScope failures(port);
    const std::uint64_t writes = port.writes();
    GlibError error;
    {
        RegisterPort::Recorder recorder(port);
        access(error.out());
        m_camera.setWritten(feature, std::move(recorder.written));
    }
    // A value may be kept in the node map only; what was read before may be outdated all the same.
    port.invalidate();
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (error) {
        return libraryFailure(feature, *error.get());
    }
    if (feature.endsInRegister && port.writes() == writes) {
        return { notWritable, feature.name + ": the value could not be sent to the camera" };
    }
    return {};
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
    return !status.isOk() ? status : write(feature, [&](GError** error) {
        arv_gc_integer_set_value(ARV_GC_INTEGER(feature.gc), value, error);
    });
}

Status DeviceOperations::getInteger(const char* name, std::int64_t& value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_INTEGER);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    std::int64_t result = 0;
    Status status = read(feature, [&](GError** error) {
        result = arv_gc_integer_get_value(ARV_GC_INTEGER(feature.gc), error);
    });
    if (status.isOk() && feature.isIntegerFormula && result == undefinedInteger) {
        status = { notReadable, feature.name + ": its formula divides by zero now" };
    }
    value = status.isOk() ? result : value;
    return status;
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
    return !status.isOk() ? status : write(feature, [&](GError** error) {
        arv_gc_float_set_value(ARV_GC_FLOAT(feature.gc), value, error);
    });
}

Status DeviceOperations::getFloat(const char* name, double& value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_FLOAT);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    double result = 0.0;
    Status status = read(feature,
        [&](GError** error) { result = arv_gc_float_get_value(ARV_GC_FLOAT(feature.gc), error); });
    value = status.isOk() ? result : value;
    return status;
}

Status DeviceOperations::setString(const char* name, const char* value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_STRING);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    if (value == nullptr) {
        return { invalidArgument, feature.name + ": no text given" };
    }
    const std::string text = value;
    Status status = checkWritable(feature);
    if (status.isOk()) {
        status = checkText(feature, text);
    }
    return !status.isOk() ? status : write(feature, [&](GError** error) {
        arv_gc_string_set_value(ARV_GC_STRING(feature.gc), text.c_str(), error);
    });
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
        return m_reader.isAvailable(*named.front()) ? named.front() : nullptr;
    }
    // Entries that share a name are told apart by the index, which counts those available.
    const std::vector<const EnumEntry*> entries = m_reader.availableEntries(feature);
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
        return { unknownEntry, feature.name + ": there is no entry \"" + wanted + "\" now" };
    }
    const std::int64_t value = chosen->value;
    Status status = checkConversion(feature, { false, value, 0.0 });
    return !status.isOk() ? status : write(feature, [&](GError** error) {
        arv_gc_enumeration_set_int_value(ARV_GC_ENUMERATION(feature.gc), value, error);
    });
}

Status DeviceOperations::setBoolean(const char* name, bool value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_BOOLEAN);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    Status status = checkWritable(feature);
    return !status.isOk() ? status : write(feature, [&](GError** error) {
        arv_gc_boolean_set_value(ARV_GC_BOOLEAN(feature.gc), value ? TRUE : FALSE, error);
    });
}

Status DeviceOperations::getBoolean(const char* name, bool& value)
{
    const Result<const Feature*> found = lookup(name, FEATURE_BOOLEAN);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    bool result = false;
    Status status = read(feature, [&](GError** error) {
        result = arv_gc_boolean_get_value(ARV_GC_BOOLEAN(feature.gc), error) != FALSE;
    });
    value = status.isOk() ? result : value;
    return status;
}

} // namespace zqcameralib
