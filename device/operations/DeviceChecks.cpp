#include "operations/DeviceOperations.h"

#include "base/NumberText.h"
#include "base/StatusCodes.h"
#include "camera/StateReasons.h"
#include "features/FeatureLimits.h"
#include "features/RegisterRange.h"

#include <cmath>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

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

} // namespace

Result<const Feature*> DeviceOperations::lookup(const char* name, std::uint8_t type)
{
    RegisterBackend& backend = m_camera.port().backend();
    if (backend.isLost()) {
        return backend.loss();
    }
    const Feature* feature = name == nullptr ? nullptr : m_camera.feature(name);
    if (feature == nullptr) {
        return Status(unknownFeature,
            std::string(name == nullptr ? "(no name)" : name) + ": the camera has no such feature");
    }
    if (feature->type != type
        && !(type == FEATURE_STRING && feature->type == FEATURE_READ_ONLY_STRING)) {
        return Status(wrongKind, feature->name + ": holds another kind of value");
    }
    if (feature->gc == nullptr || !holds(*feature, type)) {
        return Status(notReadable,
            feature->name + ": cannot be used, "
                + (feature->node->isBroken() ? feature->node->broken : "it is raw data"));
    }
    return feature;
}

Status DeviceOperations::checkAvailable(const Feature& feature, FEATURE_STATE& state)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    state = m_reader.state(feature);
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (state == FEATURE_NOT_AVAILABLE) {
        return { notAvailable, feature.name + ": " + unavailableReason(m_camera, feature) };
    }
    return {};
}

Status DeviceOperations::checkReadable(const Feature& feature)
{
    FEATURE_STATE state = FEATURE_AVAILABLE;
    Status status = checkAvailable(feature, state);
    if (status.isOk() && feature.access != ACCESS_READ_ONLY
        && feature.access != ACCESS_READ_WRITE) {
        return { notReadable, feature.name + ": can only be written" };
    }
    return status;
}

Status DeviceOperations::checkWritable(const Feature& feature)
{
    FEATURE_STATE state = FEATURE_AVAILABLE;
    if (Status status = checkAvailable(feature, state); !status.isOk()) {
        return status;
    }
    if (feature.access != ACCESS_WRITE_ONLY && feature.access != ACCESS_READ_WRITE) {
        return { notWritable, feature.name + ": is read-only" };
    }
    if (m_camera.port().backend().isReadOnly()) {
        return { accessDenied,
            feature.name + ": the camera is opened for reading only, another application has it" };
    }
    if (state == FEATURE_LOCKED) {
        return { featureLocked, feature.name + ": " + lockReason(m_camera, feature) };
    }
    return {};
}

Status DeviceOperations::checkInteger(const Feature& feature, std::int64_t value)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    const IntegerLimits limits = integerLimits(feature);
    if (failures.hasFailed()) {
        return failures.status();
    }
    const std::string what = feature.name + ": " + integerText(value) + " is ";
    if (value < limits.minimum) {
        return { ERROR_VALUE_OUT_OF_RANGE,
            what + "below the minimum of " + integerText(limits.minimum) };
    }
    if (value > limits.maximum) {
        return { ERROR_VALUE_OUT_OF_RANGE,
            what + "above the maximum of " + integerText(limits.maximum) };
    }
    if (value < feature.registerMin || value > feature.registerMax) {
        return { ERROR_VALUE_OUT_OF_RANGE, what + "more than its register holds" };
    }
    if (!isOnGrid(value, limits.minimum, limits.increment)) {
        return { ERROR_VALUE_NOT_ON_INCREMENT,
            what + "not a multiple of " + integerText(limits.increment) + " from "
                + integerText(limits.minimum) };
    }
    if (!isInValueSet(*feature.node, value)) {
        return { notInValueSet,
            what + "not one of " + std::string(childText(feature.node->element, "ValidValueSet")) };
    }
    return checkConversion(feature, { false, value, 0.0 });
}

Status DeviceOperations::checkFloat(const Feature& feature, double value)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    const FloatLimits limits = floatLimits(feature);
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (!std::isfinite(value)) {
        return { ERROR_FLOAT_OUT_OF_RANGE, feature.name + ": the value is not a number" };
    }
    const std::string what = feature.name + ": " + floatText(value) + " is ";
    if (value < limits.minimum) {
        return { ERROR_FLOAT_OUT_OF_RANGE,
            what + "below the minimum of " + floatText(limits.minimum) };
    }
    if (value > limits.maximum) {
        return { ERROR_FLOAT_OUT_OF_RANGE,
            what + "above the maximum of " + floatText(limits.maximum) };
    }
    return checkConversion(feature, { true, 0, value });
}

Status DeviceOperations::checkText(const Feature& feature, const std::string& text)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    const std::uint64_t length = maxTextLength(feature);
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (feature.textRegister != nullptr && (length == 0 || text.size() > length)) {
        return { textTooLong,
            feature.name + ": the text has " + std::to_string(text.size()) + " bytes, at most "
                + std::to_string(length) + " fit" };
    }
    return {};
}

Status DeviceOperations::checkConversion(const Feature& feature, const Number& value)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    const std::string fault = conversionFault(m_camera, feature, value);
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (fault.empty()) {
        return {};
    }
    return { notConvertible,
        feature.name + ": " + (value.isFloat ? floatText(value.real) : integerText(value.integer))
            + " cannot be written, " + fault };
}

} // namespace zqcameralib
