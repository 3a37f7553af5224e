// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "operations/DeviceOperations.h"

#include "base/NumberText.h"
#include "base/StatusCodes.h"
#include "camera/StateReasons.h"
#include "features/FeatureLimits.h"
#include "words/Words.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

Status limitsUnknown(const Feature& feature, const Status& why)
{
    return { why.code(),
        feature.name + ": " + translated("its limits cannot be told") + ", " + why.words() };
}

/// Where nothing limits a number from below, its grid begins at 0.
double gridOrigin(const FloatLimits& limits)
{
    return limits.minimum <= -double(FLT_MAX) ? 0.0 : limits.minimum;
}

/// As far as doubles can tell: a grid of 0.1 has no value that is exactly one.
bool isOnGrid(double value, const FloatLimits& limits)
{
    if (limits.increment <= 0.0) {
        return true;
    }
    const double steps = (value - gridOrigin(limits)) / limits.increment;
    return std::fabs(steps - std::round(steps)) <= 1e-6 * std::max(1.0, std::fabs(steps) * 1e-6);
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
    const Feature* feature = name == nullptr ? nullptr : m_camera.anyFeature(name);
    if (feature == nullptr) {
        return Status(unknownFeature,
            (name == nullptr ? translated("(no name)") : Words(name)) + ": "
                + translated("the camera has no such feature"));
    }
    if (feature->type != type
        && !(type == FEATURE_STRING && feature->type == FEATURE_READ_ONLY_STRING)) {
        return Status(wrongKind, feature->name + ": " + translated("holds another kind of value"));
    }
    if (!feature->isUsable() || feature->node->kind == NodeKind::Register) {
        return Status(notReadable,
            feature->name + ": " + translated("cannot be used") + ", "
                + (feature->node->isBroken() ? feature->node->broken
                                             : translated("it is raw data")));
    }
    return feature;
}

Status DeviceOperations::checkAvailable(const Feature& feature, FEATURE_STATE& state)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    state = m_camera.reader().state(feature);
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (state == FEATURE_NOT_AVAILABLE) {
        return { notAvailable, feature.name + ": " + unavailableReason(m_camera, feature) };
    }
    if (state == FEATURE_READ_FAILED) {
        return { notEvaluable,
            feature.name + ": " + translated("cannot be used now") + ", "
                + m_camera.reader().reason() };
    }
    return {};
}

Status DeviceOperations::checkReadable(const Feature& feature)
{
    FEATURE_STATE state = FEATURE_AVAILABLE;
    Status status = checkAvailable(feature, state);
    if (!status.isOk()) {
        return status;
    }
    const std::uint16_t access = m_camera.reader().presentAccess(feature);
    return access == ACCESS_READ_ONLY || access == ACCESS_READ_WRITE
        ? Status()
        : Status(notReadable, feature.name + ": " + translated("can only be written"));
}

Status DeviceOperations::checkWritable(const Feature& feature)
{
    FEATURE_STATE state = FEATURE_AVAILABLE;
    if (Status status = checkAvailable(feature, state); !status.isOk()) {
        return status;
    }
    const std::uint16_t access = m_camera.reader().presentAccess(feature);
    if (access != ACCESS_WRITE_ONLY && access != ACCESS_READ_WRITE) {
        return { notWritable, feature.name + ": " + translated("is read-only") };
    }
    if (m_camera.port().backend().isReadOnly()) {
        return { accessDenied,
            feature.name + ": "
                + translated("the camera is opened for reading only, another application has it") };
    }
    if (state == FEATURE_LOCKED) {
        return { featureLocked, feature.name + ": " + lockReason(m_camera, feature) };
    }
    return {};
}

bool DeviceOperations::isPresent(const Feature& feature, const Number& value)
{
    if (!feature.isReadable()) {
        return false;
    }
    const Result<Number> present = m_camera.nodes().number(feature.index);
    return present.isOk() && present.value() == value;
}

Status DeviceOperations::checkInteger(const Feature& feature, std::int64_t value)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    const Status canTell = m_camera.reader().limitsStatus(feature);
    const Result<IntegerLimits> told = canTell.isOk() ? integerLimits(m_camera.nodes(), feature)
                                                      : Result<IntegerLimits>(canTell);
    if (failures.hasFailed() || !told.isOk()) {
        return failures.hasFailed() ? failures.status() : limitsUnknown(feature, told.status());
    }
    const IntegerLimits& limits = told.value();
    const std::string what = feature.name + ": ";
    const std::string wanted = integerText(value);
    if (value < limits.minimum) {
        return { ERROR_VALUE_OUT_OF_RANGE,
            what
                + worded("%s is below the minimum of %s", wanted.c_str(),
                    integerText(limits.minimum).c_str()) };
    }
    if (value > limits.maximum) {
        return { ERROR_VALUE_OUT_OF_RANGE,
            what
                + worded("%s is above the maximum of %s", wanted.c_str(),
                    integerText(limits.maximum).c_str()) };
    }
    // What a camera holds beside its grid may be written back.
    if (!isOnGrid(value, limits.minimum, limits.increment)
        && !isPresent(feature, Number::of(value))) {
        return { ERROR_VALUE_NOT_ON_INCREMENT,
            what
                + worded("%s is not a multiple of %s from %s", wanted.c_str(),
                    integerText(limits.increment).c_str(), integerText(limits.minimum).c_str()) };
    }
    if (!isInValueSet(*feature.node, value)) {
        return { notInValueSet,
            what
                + worded("%s is not one of %s", wanted.c_str(),
                    std::string(childText(feature.node->element, "ValidValueSet")).c_str()) };
    }
    const Status fault = checkConversion(feature, Number::of(value));
    return fault.code() == notConvertible && !feature.isConverted ? Status(ERROR_VALUE_OUT_OF_RANGE,
               what + worded("%s is more than its register holds", wanted.c_str()))
                                                                  : fault;
}

Status DeviceOperations::checkFloat(const Feature& feature, double value)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    const Status canTell = m_camera.reader().limitsStatus(feature);
    const Result<FloatLimits> told
        = canTell.isOk() ? floatLimits(m_camera.nodes(), feature) : Result<FloatLimits>(canTell);
    if (failures.hasFailed() || !told.isOk()) {
        return failures.hasFailed() ? failures.status() : limitsUnknown(feature, told.status());
    }
    const FloatLimits& limits = told.value();
    if (!std::isfinite(value)) {
        return { ERROR_FLOAT_OUT_OF_RANGE,
            feature.name + ": " + translated("the value is not a number") };
    }
    const std::string what = feature.name + ": ";
    const std::string wanted = floatText(value);
    if (value < limits.minimum) {
        return { ERROR_FLOAT_OUT_OF_RANGE,
            what
                + worded("%s is below the minimum of %s", wanted.c_str(),
                    floatText(limits.minimum).c_str()) };
    }
    if (value > limits.maximum) {
        return { ERROR_FLOAT_OUT_OF_RANGE,
            what
                + worded("%s is above the maximum of %s", wanted.c_str(),
                    floatText(limits.maximum).c_str()) };
    }
    if (!isOnGrid(value, limits) && !isPresent(feature, Number::of(value))) {
        return { ERROR_VALUE_NOT_ON_INCREMENT,
            what
                + worded("%s is not a multiple of %s from %s", wanted.c_str(),
                    floatText(limits.increment).c_str(), floatText(gridOrigin(limits)).c_str()) };
    }
    return checkConversion(feature, Number::of(value));
}

Status DeviceOperations::checkText(const Feature& feature, const std::string& text)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    const Result<std::uint32_t> length = maxTextLength(m_camera.nodes(), feature);
    if (failures.hasFailed() || !length.isOk()) {
        return failures.hasFailed() ? failures.status() : limitsUnknown(feature, length.status());
    }
    if (feature.textRegister != Description::absent
        && (length.value() == 0 || text.size() > length.value())) {
        return { textTooLong,
            feature.name + ": "
                + worded("the text has %zu bytes, at most %u fit", text.size(), length.value()) };
    }
    return {};
}

Status DeviceOperations::checkConversion(const Feature& feature, const Number& value)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    const Status fault = m_camera.nodes().check(feature.index, value);
    if (failures.hasFailed()) {
        return failures.status();
    }
    if (fault.isOk()) {
        return {};
    }
    const std::string wanted = value.isReal ? floatText(value.real) : integerText(value.integer);
    return { fault.code(),
        feature.name + ": " + worded("%s cannot be written", wanted.c_str()) + ", "
            + fault.words() };
}

} // namespace zqcameralib
