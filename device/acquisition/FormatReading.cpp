#include "acquisition/FormatReading.h"

#include "base/GlibError.h"
#include "base/StatusCodes.h"
#include "frames/FrameSize.h"

#include <algorithm>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

constexpr std::int64_t maxPayload = std::int64_t(1) << 31U;
constexpr std::int64_t maxSide = 100000;

bool refuse(const std::string& reason, AccessError& error)
{
    error = { noImage, "no image can be acquired: " + reason };
    return false;
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

bool FormatReading::step(AccessError& error)
{
    error = {};
    if (isOver()) {
        return true;
    }
    if (!(this->*steps[m_next])(error)) {
        return false;
    }
    ++m_next;
    return true;
}

bool FormatReading::isOver() const
{
    return m_next == steps.size();
}

bool FormatReading::isStillTrue() const
{
    return m_camera.port().changes() == m_changes;
}

bool FormatReading::mayGoOn(int status, AccessError& error)
{
    RegisterBackend& backend = m_camera.port().backend();
    if (backend.isLost()) {
        error = backend.loss();
    } else if (status == cameraSlow) {
        error = { stillWorking, statusText(stillWorking) };
    }
    return error.code == 0;
}

int FormatReading::readInteger(const char* name, std::int64_t& value, AccessError& error)
{
    if (m_camera.feature(name) == nullptr) {
        return unknownFeature;
    }
    long result = 0;
    const int status = m_device.GetIntegerValue(name, &result);
    if (mayGoOn(status, error) && status == STATUS_OK) {
        value = result;
    }
    return status;
}

void FormatReading::readEnum(const Feature& feature, std::int64_t& value, AccessError& error)
{
    RegisterPort& port = m_camera.port();
    const std::uint64_t failures = port.failures();
    GlibError failure;
    const std::int64_t result
        = arv_gc_enumeration_get_int_value(ARV_GC_ENUMERATION(feature.gc), failure.out());
    const bool isUnread = port.failures() != failures;
    if (mayGoOn(isUnread ? port.lastFailure().code : STATUS_OK, error) && !isUnread && !failure) {
        value = result;
    }
}

std::string FormatReading::readEntry(const char* name, AccessError& error)
{
    const Feature* feature = m_camera.feature(name);
    if (feature == nullptr || !ARV_IS_GC_ENUMERATION(feature->gc)) {
        return {};
    }
    std::int64_t value = -1;
    readEnum(*feature, value, error);
    const auto found = std::find_if(feature->entries.begin(), feature->entries.end(),
        [value](const EnumEntry& entry) { return entry.value == value; });
    return found == feature->entries.end() ? std::string() : found->name;
}

bool FormatReading::readSide(const char* name, std::int64_t& value, AccessError& error)
{
    const int status = readInteger(name, value, error);
    if (error.code != 0) {
        return false;
    }
    if (status == unknownFeature) {
        return refuse(std::string("the camera tells no ") + name, error);
    }
    if (status != STATUS_OK) {
        return refuse(deviceText(m_device, status), error);
    }
    if (value <= 0 || value > maxSide) {
        return refuse(std::string(name) + " is " + std::to_string(value), error);
    }
    return true;
}

bool FormatReading::readWidth(AccessError& error)
{
    return readSide("Width", m_format.width, error);
}

bool FormatReading::readHeight(AccessError& error)
{
    return readSide("Height", m_format.height, error);
}

bool FormatReading::readPixelFormat(AccessError& error)
{
    const Feature* feature = m_camera.feature("PixelFormat");
    std::int64_t value = 0;
    if (feature != nullptr && ARV_IS_GC_ENUMERATION(feature->gc)) {
        readEnum(*feature, value, error);
    }
    m_format.pixelFormat = static_cast<std::uint32_t>(value);
    return error.code == 0;
}

bool FormatReading::readPayload(AccessError& error)
{
    std::int64_t payload = 0;
    readInteger("PayloadSize", payload, error);
    if (error.code != 0) {
        return false;
    }
    if (payload <= 0) {
        payload = static_cast<std::int64_t>(imageBytes(static_cast<std::uint64_t>(m_format.width),
            static_cast<std::uint64_t>(m_format.height), m_format.pixelFormat));
    }
    const std::string bytes = std::to_string(payload) + " bytes";
    if (payload > maxPayload) {
        return refuse("one image would take " + bytes, error);
    }
    m_format.payload = static_cast<std::size_t>(payload);
    if (rowsWithin(m_format.payload, m_format.width, m_format.height, m_format.pixelFormat) == 0) {
        return refuse("PayloadSize is " + bytes + ", less than one row of the image", error);
    }
    return true;
}

bool FormatReading::readRate(AccessError& error)
{
    for (const char* name :
        { "AcquisitionResultingFrameRate", "AcquisitionFrameRate", "AcquisitionFrameRateAbs" }) {
        double value = 0.0;
        const int status = m_camera.feature(name) == nullptr ? unknownFeature
                                                             : m_device.GetFloatValue(name, &value);
        if (!mayGoOn(status, error)) {
            return false;
        }
        if (status == STATUS_OK) {
            m_format.framesPerSecond = value;
            return true;
        }
    }
    return true;
}

bool FormatReading::readLimit(AccessError& error)
{
    const std::string mode = readEntry("AcquisitionMode", error);
    std::int64_t count = 1;
    if (mode == "MultiFrame") {
        readInteger("AcquisitionFrameCount", count, error);
    }
    const bool isLimited = mode == "SingleFrame" || mode == "MultiFrame";
    m_format.frameLimit
        = isLimited ? static_cast<std::uint64_t>(std::max<std::int64_t>(count, 1)) : 0;
    return error.code == 0;
}

bool FormatReading::readTrigger(AccessError& error)
{
    m_format.isTriggered = readEntry("TriggerMode", error) == "On";
    return error.code == 0;
}

std::string deviceText(ICameraDevice& device, int code)
{
    std::array<char, errorTextSize> name {};
    std::array<char, errorTextSize> text {};
    device.GetErrorText(code, name.data(), text.data());
    return text.data();
}

} // namespace zqcameralib
