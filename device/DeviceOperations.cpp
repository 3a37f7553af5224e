#include "DeviceOperations.h"

#include "NumberText.h"
#include "StatusCodes.h"
#include "WriteBlock.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

/// Longest time between two looks at a command that is not done.
constexpr std::chrono::milliseconds maxPause(50);

/// Whether the node map's node is of the kind that the operations on a type take.
bool holds(const Feature& feature, std::uint8_t type)
{
    switch (type) {
    case FEATURE_INTEGER:
        return ARV_IS_GC_INTEGER(feature.gc);
    case FEATURE_FLOAT:
        return ARV_IS_GC_FLOAT(feature.gc);
    case FEATURE_STRING:
        return ARV_IS_GC_STRING(feature.gc);
    case FEATURE_ENUMERATION:
        return ARV_IS_GC_ENUMERATION(feature.gc);
    case FEATURE_BOOLEAN:
        return ARV_IS_GC_BOOLEAN(feature.gc);
    default:
        return ARV_IS_GC_COMMAND(feature.gc);
    }
}

bool isOnGrid(std::int64_t value, std::int64_t minimum, std::int64_t increment)
{
    const std::uint64_t distance
        = static_cast<std::uint64_t>(value) - static_cast<std::uint64_t>(minimum);
    return increment <= 1 || distance % static_cast<std::uint64_t>(increment) == 0;
}

/// Schema 1.1: integers that take only the values of a list.
bool isInValueSet(const Feature& feature, std::int64_t value)
{
    const std::string list(childText(feature.node->element, "ValidValueSet"));
    if (list.empty()) {
        return true;
    }
    for (std::size_t at = 0; at != std::string::npos;) {
        const std::size_t end = list.find(';', at);
        if (std::strtoll(list.substr(at, end - at).c_str(), nullptr, 0) == value) {
            return true;
        }
        at = end == std::string::npos ? end : end + 1;
    }
    return false;
}

} // namespace

DeviceOperations::DeviceOperations(ZQCamera::Impl& camera)
    : m_camera(camera)
    , m_reader(camera.port())
{
}

int DeviceOperations::fail(int code, const std::string& text)
{
    m_lastError = code;
    m_lastText = text;
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
    return code == m_lastError && !m_lastText.empty() ? m_lastText : statusText(code);
}

const Feature* DeviceOperations::lookup(const char* name, std::uint8_t type)
{
    RegisterBackend& backend = m_camera.port().backend();
    if (backend.isLost()) {
        fail(backend.loss().code, backend.loss().message);
        m_isGrabbing = false;
        return nullptr;
    }
    const Feature* feature = name == nullptr ? nullptr : m_camera.feature(name);
    if (feature == nullptr) {
        fail(unknownFeature,
            std::string(name == nullptr ? "(no name)" : name) + ": the camera has no such feature");
        return nullptr;
    }
    if (feature->type != type
        && !(type == FEATURE_STRING && feature->type == FEATURE_READ_ONLY_STRING)) {
        fail(wrongKind, feature->name + ": holds another kind of value");
        return nullptr;
    }
    if (feature->gc == nullptr || !holds(*feature, type)) {
        fail(notReadable,
            feature->name + ": cannot be used, "
                + (feature->node->isBroken() ? feature->node->broken : "it is raw data"));
        return nullptr;
    }
    return feature;
}

int DeviceOperations::checkReadable(const Feature& feature)
{
    const FEATURE_STATE state = m_reader.state(feature);
    if (state == FEATURE_READ_FAILED) {
        return failPort();
    }
    if (state == FEATURE_NOT_AVAILABLE) {
        return fail(notAvailable, feature.name + ": " + unavailableReason(m_camera, feature));
    }
    if (feature.access != ACCESS_READ_ONLY && feature.access != ACCESS_READ_WRITE) {
        return fail(notReadable, feature.name + ": can only be written");
    }
    return STATUS_OK;
}

int DeviceOperations::checkWritable(const Feature& feature)
{
    const FEATURE_STATE state = m_reader.state(feature);
    if (state == FEATURE_READ_FAILED) {
        return failPort();
    }
    if (state == FEATURE_NOT_AVAILABLE) {
        return fail(notAvailable, feature.name + ": " + unavailableReason(m_camera, feature));
    }
    if (feature.access != ACCESS_WRITE_ONLY && feature.access != ACCESS_READ_WRITE) {
        return fail(notWritable, feature.name + ": is read-only");
    }
    if (m_camera.port().backend().isReadOnly()) {
        return fail(accessDenied,
            feature.name + ": the camera is opened for reading only, another application has it");
    }
    if (state == FEATURE_LOCKED) {
        return fail(featureLocked, feature.name + ": " + lockReason(m_camera, feature));
    }
    return STATUS_OK;
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

int DeviceOperations::checkInteger(const Feature& feature, std::int64_t value)
{
    const std::uint64_t failures = m_camera.port().failures();
    const FeatureReader::IntegerLimits limits = m_reader.integerLimits(feature);
    if (m_camera.port().failures() != failures) {
        return failPort();
    }
    const std::string what = feature.name + ": " + integerText(value) + " is ";
    if (value < limits.minimum) {
        return fail(
            ERROR_VALUE_OUT_OF_RANGE, what + "below the minimum of " + integerText(limits.minimum));
    }
    if (value > limits.maximum) {
        return fail(
            ERROR_VALUE_OUT_OF_RANGE, what + "above the maximum of " + integerText(limits.maximum));
    }
    if (value < feature.registerMin || value > feature.registerMax) {
        return fail(ERROR_VALUE_OUT_OF_RANGE, what + "more than its register holds");
    }
    if (!isOnGrid(value, limits.minimum, limits.increment)) {
        return fail(ERROR_VALUE_NOT_ON_INCREMENT,
            what + "not a multiple of " + integerText(limits.increment) + " from "
                + integerText(limits.minimum));
    }
    if (!isInValueSet(feature, value)) {
        return fail(notInValueSet,
            what + "not one of " + std::string(childText(feature.node->element, "ValidValueSet")));
    }
    return STATUS_OK;
}

int DeviceOperations::checkFloat(const Feature& feature, double value)
{
    const std::uint64_t failures = m_camera.port().failures();
    const FeatureReader::FloatLimits limits = m_reader.floatLimits(feature);
    if (m_camera.port().failures() != failures) {
        return failPort();
    }
    if (!std::isfinite(value)) {
        return fail(ERROR_FLOAT_OUT_OF_RANGE, feature.name + ": the value is not a number");
    }
    const std::string what = feature.name + ": " + floatText(value) + " is ";
    if (value < limits.minimum) {
        return fail(
            ERROR_FLOAT_OUT_OF_RANGE, what + "below the minimum of " + floatText(limits.minimum));
    }
    if (value > limits.maximum) {
        return fail(
            ERROR_FLOAT_OUT_OF_RANGE, what + "above the maximum of " + floatText(limits.maximum));
    }
    return STATUS_OK;
}

int DeviceOperations::setInteger(const char* name, std::int64_t value, bool checkRange)
{
    const Feature* feature = lookup(name, FEATURE_INTEGER);
    if (feature == nullptr) {
        return m_lastError;
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
        return m_lastError;
    }
    std::int64_t result = 0;
    const int status = read(*feature, [&](GError** error) {
        result = arv_gc_integer_get_value(ARV_GC_INTEGER(feature->gc), error);
    });
    value = status == STATUS_OK ? result : value;
    return status;
}

int DeviceOperations::setFloat(const char* name, double value)
{
    const Feature* feature = lookup(name, FEATURE_FLOAT);
    if (feature == nullptr) {
        return m_lastError;
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
        return m_lastError;
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
        return m_lastError;
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

int DeviceOperations::setEnum(const char* name, const char* entry, int index)
{
    const Feature* feature = lookup(name, FEATURE_ENUMERATION);
    if (feature == nullptr) {
        return m_lastError;
    }
    if (const int status = checkWritable(*feature)) {
        return status;
    }
    const std::uint64_t failures = m_camera.port().failures();
    const std::vector<const EnumEntry*> entries = m_reader.availableEntries(*feature);
    if (m_camera.port().failures() != failures) {
        return failPort();
    }
    // The name decides; entries that share one are told apart by the index.
    const std::string wanted = entry == nullptr ? "" : entry;
    auto chosen = std::find_if(entries.begin(), entries.end(),
        [&wanted](const EnumEntry* candidate) { return candidate->name == wanted; });
    const auto at = static_cast<std::size_t>(index);
    if (index >= 0 && at < entries.size() && entries[at]->name == wanted) {
        chosen = entries.begin() + index;
    }
    if (chosen == entries.end()) {
        return fail(unknownEntry, feature->name + ": there is no entry \"" + wanted + "\" now");
    }
    const std::int64_t value = (*chosen)->value;
    return write(*feature, [&](GError** error) {
        arv_gc_enumeration_set_int_value(ARV_GC_ENUMERATION(feature->gc), value, error);
    });
}

int DeviceOperations::setBoolean(const char* name, bool value)
{
    const Feature* feature = lookup(name, FEATURE_BOOLEAN);
    if (feature == nullptr) {
        return m_lastError;
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
        return m_lastError;
    }
    bool result = false;
    const int status = read(*feature, [&](GError** error) {
        result = arv_gc_boolean_get_value(ARV_GC_BOOLEAN(feature->gc), error) != FALSE;
    });
    value = status == STATUS_OK ? result : value;
    return status;
}

int DeviceOperations::execute(const char* name, bool wait)
{
    const Feature* feature = lookup(name, FEATURE_COMMAND);
    if (feature == nullptr) {
        return m_lastError;
    }
    if (const int status = checkWritable(*feature)) {
        return status;
    }
    const bool starts = feature->name == "AcquisitionStart";
    if (starts) {
        setStreamLock(true);
    }
    int status = write(*feature,
        [&](GError** error) { arv_gc_command_execute(ARV_GC_COMMAND(feature->gc), error); });
    if (status == STATUS_OK && wait) {
        status = waitUntilDone(*feature);
    }
    const bool ends = feature->name == "AcquisitionStop" || feature->name == "AcquisitionAbort"
        || feature->name == "DeviceReset";
    if ((starts && status != STATUS_OK) || (ends && status == STATUS_OK)) {
        setStreamLock(false);
    } else if (starts) {
        m_isGrabbing = true;
    }
    return status;
}

void DeviceOperations::setStreamLock(bool locked)
{
    if (!locked) {
        m_isGrabbing = false;
    }
    ArvGcNode* node = arv_gc_get_node(m_camera.nodeMap(), "TLParamsLocked");
    GlibError ignored; // a camera without one locks by itself
    if (ARV_IS_GC_INTEGER(node)) {
        arv_gc_integer_set_value(ARV_GC_INTEGER(node), locked ? 1 : 0, ignored.out());
        m_camera.port().invalidate();
    }
}

int DeviceOperations::waitUntilDone(const Feature& feature)
{
    if (feature.commandRegister == nullptr) {
        return STATUS_OK;
    }
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::milliseconds(commandTimeoutMs);
    const std::uint64_t failures = m_camera.port().failures();
    for (auto pause = std::chrono::milliseconds(1);;
         pause = std::min<std::chrono::milliseconds>(2 * pause, maxPause)) {
        GlibError error;
        m_camera.port().invalidate();
        const std::int64_t value
            = arv_gc_integer_get_value(ARV_GC_INTEGER(feature.commandRegister), error.out());
        if (m_camera.port().failures() != failures) {
            return failPort();
        }
        if (error || value != feature.commandValue) {
            return STATUS_OK;
        }
        if (Clock::now() >= deadline) {
            return fail(commandTimeout,
                feature.name + ": not done after " + std::to_string(commandTimeoutMs) + " ms");
        }
        std::this_thread::sleep_for(pause);
    }
}

} // namespace zqcameralib
