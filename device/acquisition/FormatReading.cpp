// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "acquisition/FormatReading.h"

#include "base/StatusCodes.h"
#include "frames/FrameSize.h"
#include "words/Words.h"

#include <algorithm>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

constexpr std::int64_t maxPayload = std::int64_t(1) << 31U;
constexpr std::int64_t maxSide = 100000;

Status refuse(const Words& reason)
{
    return { noImage, translated("no image can be acquired") + ": " + reason };
}

} // namespace

const std::array<FormatReading::Step, 7> FormatReading::steps { &FormatReading::readWidth,
    &FormatReading::readHeight, &FormatReading::readPixelFormat, &FormatReading::readPayload,
    &FormatReading::readRate, &FormatReading::readLimit, &FormatReading::readTrigger };

FormatReading::FormatReading(ZQCamera::Impl& camera, ICameraDevice& device)
    : m_camera(camera)
    , m_device(device)
    , m_changes(camera.port().changes())
{
}

Status FormatReading::step()
{
    if (isOver()) {
        return {};
    }
    Status status = (this->*steps[m_next])();
    m_next += status.isOk() ? 1U : 0U;
    return status;
}

bool FormatReading::isOver() const
{
    return m_next == steps.size();
}

bool FormatReading::isStillTrue() const
{
    return m_camera.port().changes() == m_changes;
}

Status FormatReading::mayGoOn(int code)
{
    RegisterBackend& backend = m_camera.port().backend();
    if (backend.isLost()) {
        return backend.loss();
    }
    return code == cameraSlow ? Status::general(stillWorking) : Status();
}

Status FormatReading::readInteger(const char* name, std::int64_t& value, int& code)
{
    code = unknownFeature;
    if (m_camera.anyFeature(name) == nullptr) {
        return {};
    }
    long result = 0;
    code = m_device.GetIntegerValue(name, &result);
    Status status = mayGoOn(code);
    if (status.isOk() && code == STATUS_OK) {
        value = result;
    }
    return status;
}

Status FormatReading::readEnum(const Feature& feature, std::int64_t& value)
{
    const RegisterPort::FailureScope failures(m_camera.port());
    const Result<Number> result = m_camera.nodes().number(feature.index);
    Status status = mayGoOn(failures.status().code());
    if (status.isOk() && result.isOk()) {
        value = result.value().integer;
    }
    return status;
}

Status FormatReading::readEntry(const char* name, std::string& entry)
{
    const Feature* feature = m_camera.anyFeature(name);
    if (feature == nullptr || feature->type != FEATURE_ENUMERATION) {
        return {};
    }
    std::int64_t value = -1;
    Status status = readEnum(*feature, value);
    for (const EnumEntry& known : feature->entries) {
        if (known.value == value) {
            entry = known.name;
            break;
        }
    }
    return status;
}

Status FormatReading::readSide(const char* name, std::int64_t& value)
{
    int code = STATUS_OK;
    if (Status status = readInteger(name, value, code); !status.isOk()) {
        return status;
    }
    if (code == unknownFeature) {
        return refuse(worded("the camera tells no %s", name));
    }
    if (code != STATUS_OK) {
        return refuse(deviceText(m_device, code));
    }
    if (value <= 0 || value > maxSide) {
        return refuse(worded("%s is %s", name, std::to_string(value).c_str()));
    }
    return {};
}

Status FormatReading::readWidth()
{
    return readSide("Width", m_format.width);
}

Status FormatReading::readHeight()
{
    return readSide("Height", m_format.height);
}

Status FormatReading::readPixelFormat()
{
    const Feature* feature = m_camera.anyFeature("PixelFormat");
    std::int64_t value = 0;
    Status status;
    if (feature != nullptr && feature->type == FEATURE_ENUMERATION) {
        status = readEnum(*feature, value);
    }
    m_format.pixelFormat = static_cast<std::uint32_t>(value);
    return status;
}

Status FormatReading::readPayload()
{
    std::int64_t payload = 0;
    int code = STATUS_OK;
    if (Status status = readInteger("PayloadSize", payload, code); !status.isOk()) {
        return status;
    }
    if (payload <= 0) {
        payload = static_cast<std::int64_t>(imageBytes(static_cast<std::uint64_t>(m_format.width),
            static_cast<std::uint64_t>(m_format.height), m_format.pixelFormat));
    }
    const std::string bytes = std::to_string(payload);
    if (payload > maxPayload) {
        return refuse(worded("one image would take %s bytes", bytes.c_str()));
    }
    m_format.payload = static_cast<std::size_t>(payload);
    if (rowsWithin(m_format.payload, m_format.width, m_format.height, m_format.pixelFormat) == 0) {
        return refuse(
            worded("PayloadSize is %s bytes, less than one row of the image", bytes.c_str()));
    }
    return {};
}

Status FormatReading::readRate()
{
    for (const char* name :
        { "AcquisitionResultingFrameRate", "AcquisitionFrameRate", "AcquisitionFrameRateAbs" }) {
        double value = 0.0;
        const int code = m_camera.anyFeature(name) == nullptr
            ? unknownFeature
            : m_device.GetFloatValue(name, &value);
        if (Status status = mayGoOn(code); !status.isOk()) {
            return status;
        }
        if (code == STATUS_OK) {
            m_format.framesPerSecond = value;
            return {};
        }
    }
    return {};
}

Status FormatReading::readLimit()
{
    std::string mode;
    Status status = readEntry("AcquisitionMode", mode);
    std::int64_t count = 1;
    int code = STATUS_OK;
    if (status.isOk() && mode == "MultiFrame") {
        status = readInteger("AcquisitionFrameCount", count, code);
    }
    const bool isLimited = mode == "SingleFrame" || mode == "MultiFrame";
    m_format.frameLimit
        = isLimited ? static_cast<std::uint64_t>(std::max<std::int64_t>(count, 1)) : 0;
    return status;
}

Status FormatReading::readTrigger()
{
    std::string mode;
    Status status = readEntry("TriggerMode", mode);
    m_format.isTriggered = mode == "On";
    return status;
}

std::string deviceText(ICameraDevice& device, int code)
{
    std::array<char, errorTextSize> name {};
    std::array<char, errorTextSize> text {};
    device.GetErrorText(code, name.data(), text.data());
    return text.data();
}

} // namespace zqcameralib
