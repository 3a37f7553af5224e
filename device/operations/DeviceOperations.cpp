#include "operations/DeviceOperations.h"

#include "base/StatusCodes.h"
#include "nodemap/FormulaGuard.h"

#include <algorithm>

namespace zqcameralib {

using namespace featurebrowser;

DeviceOperations::DeviceOperations(ZQCamera::Impl& camera)
    : m_camera(camera)
    , m_reader(camera.port())
{
}

int DeviceOperations::fail(int code, const std::string& text)
{
    m_camera.lastError() = { code, text };
    return code;
}

int DeviceOperations::failPort()
{
    const AccessError& failure = m_camera.port().lastFailure();
    return fail(failure.code, failure.message);
}

int DeviceOperations::failLibrary(const Feature& feature, const GError& error)
{
    const std::string message = error.message;
    const bool isNamed = message.find(feature.name) != std::string::npos;
    return fail(libraryErrorCode(error.domain, error.code),
        isNamed ? message : feature.name + ": " + message);
}

std::string DeviceOperations::errorText(int code) const
{
    RegisterBackend& backend = m_camera.port().backend();
    if (backend.isLost() && code == backend.loss().code) {
        return backend.loss().message;
    }
    const LastError& last = m_camera.lastError();
    return code == last.code && !last.text.empty() ? last.text : statusText(code);
}

int DeviceOperations::read(const Feature& feature, const Access& access)
{
    if (const int status = checkReadable(feature)) {
        return status;
    }
    const std::uint64_t failures = m_camera.port().failures();
    GlibError error;
    access(error.out());
    if (m_camera.port().failures() != failures) {
        return failPort();
    }
    return error ? failLibrary(feature, *error.get()) : STATUS_OK;
}

int DeviceOperations::write(const Feature& feature, const Access& access)
{
    RegisterPort& port = m_camera.port();
    const std::uint64_t failures = port.failures();
    const std::uint64_t writes = port.writes();
    GlibError error;
    {
        RegisterPort::Recorder recorder(port);
        access(error.out());
        m_camera.setWritten(feature, std::move(recorder.written));
    }
    // A value may be kept in the node map only; what was read before may be outdated all the same.
    port.invalidate();
    if (port.failures() != failures) {
        return failPort();
    }
    if (error) {
        return failLibrary(feature, *error.get());
    }
    if (feature.endsInRegister && port.writes() == writes) {
        return fail(notWritable, feature.name + ": the value could not be sent to the camera");
    }
    return STATUS_OK;
}

int DeviceOperations::setInteger(const char* name, std::int64_t value, bool checkRange)
{
    const Feature* feature = lookup(name, FEATURE_INTEGER);
    if (feature == nullptr) {
        return lastError();
    }
    int status = checkWritable(*feature);
    if (status == STATUS_OK && checkRange) {
        status = checkInteger(*feature, value);
    }
    return status != STATUS_OK ? status : write(*feature, [&](GError** error) {
        arv_gc_integer_set_value(ARV_GC_INTEGER(feature->gc), value, error);
    });
}

int DeviceOperations::getInteger(const char* name, std::int64_t& value)
{
    const Feature* feature = lookup(name, FEATURE_INTEGER);
    if (feature == nullptr) {
        return lastError();
    }
    std::int64_t result = 0;
    int status = read(*feature, [&](GError** error) {
        result = arv_gc_integer_get_value(ARV_GC_INTEGER(feature->gc), error);
    });
    if (status == STATUS_OK && feature->isIntegerFormula && result == undefinedInteger) {
        status = fail(notReadable, feature->name + ": its formula divides by zero now");
    }
    value = status == STATUS_OK ? result : value;
    return status;
}

int DeviceOperations::setFloat(const char* name, double value)
{
    const Feature* feature = lookup(name, FEATURE_FLOAT);
    if (feature == nullptr) {
        return lastError();
    }
    int status = checkWritable(*feature);
    if (status == STATUS_OK) {
        status = checkFloat(*feature, value);
    }
    return status != STATUS_OK ? status : write(*feature, [&](GError** error) {
        arv_gc_float_set_value(ARV_GC_FLOAT(feature->gc), value, error);
    });
}

int DeviceOperations::getFloat(const char* name, double& value)
{
    const Feature* feature = lookup(name, FEATURE_FLOAT);
    if (feature == nullptr) {
        return lastError();
    }
    double result = 0.0;
    const int status = read(*feature,
        [&](GError** error) { result = arv_gc_float_get_value(ARV_GC_FLOAT(feature->gc), error); });
    value = status == STATUS_OK ? result : value;
    return status;
}

int DeviceOperations::setString(const char* name, const char* value)
{
    const Feature* feature = lookup(name, FEATURE_STRING);
    if (feature == nullptr) {
        return lastError();
    }
    if (value == nullptr) {
        return fail(invalidArgument, feature->name + ": no text given");
    }
    if (const int status = checkWritable(*feature)) {
        return status;
    }
    const std::string text = value;
    const std::uint64_t failures = m_camera.port().failures();
    const std::uint64_t length = m_reader.maxTextLength(*feature);
    if (m_camera.port().failures() != failures) {
        return failPort();
    }
    if (feature->textRegister != nullptr && (length == 0 || text.size() > length)) {
        return fail(textTooLong,
            feature->name + ": the text has " + std::to_string(text.size()) + " bytes, at most "
                + std::to_string(length) + " fit");
    }
    return write(*feature, [&](GError** error) {
        arv_gc_string_set_value(ARV_GC_STRING(feature->gc), text.c_str(), error);
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

int DeviceOperations::setEnum(const char* name, const char* entry, int index)
{
    const Feature* feature = lookup(name, FEATURE_ENUMERATION);
    if (feature == nullptr) {
        return lastError();
    }
    if (const int status = checkWritable(*feature)) {
        return status;
    }
    const std::uint64_t failures = m_camera.port().failures();
    const std::string wanted = entry == nullptr ? "" : entry;
    const EnumEntry* chosen = chooseEntry(*feature, wanted, index);
    if (m_camera.port().failures() != failures) {
        return failPort();
    }
    if (chosen == nullptr) {
        return fail(unknownEntry, feature->name + ": there is no entry \"" + wanted + "\" now");
    }
    const std::int64_t value = chosen->value;
    if (const int status = checkConversion(*feature, { false, value, 0.0 })) {
        return status;
    }
    return write(*feature, [&](GError** error) {
        arv_gc_enumeration_set_int_value(ARV_GC_ENUMERATION(feature->gc), value, error);
    });
}

int DeviceOperations::setBoolean(const char* name, bool value)
{
    const Feature* feature = lookup(name, FEATURE_BOOLEAN);
    if (feature == nullptr) {
        return lastError();
    }
    const int status = checkWritable(*feature);
    return status != STATUS_OK ? status : write(*feature, [&](GError** error) {
        arv_gc_boolean_set_value(ARV_GC_BOOLEAN(feature->gc), value ? TRUE : FALSE, error);
    });
}

int DeviceOperations::getBoolean(const char* name, bool& value)
{
    const Feature* feature = lookup(name, FEATURE_BOOLEAN);
    if (feature == nullptr) {
        return lastError();
    }
    bool result = false;
    const int status = read(*feature, [&](GError** error) {
        result = arv_gc_boolean_get_value(ARV_GC_BOOLEAN(feature->gc), error) != FALSE;
    });
    value = status == STATUS_OK ? result : value;
    return status;
}

} // namespace zqcameralib
