// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQCameraDevice.h"

#include "base/StatusCodes.h"
#include "camera/ReconnectTask.h"
#include "operations/DeviceOperations.h"

#include <algorithm>

namespace featurebrowser {

using zqcameralib::ZQCamera;
using zqcameralib::ZQDiscovery;

class __attribute__((visibility("hidden"))) ZQCameraDevice::Impl {
public:
    explicit Impl(ZQCamera& opened)
        : camera(opened)
        , repository(std::make_unique<ZQCameraRepository::Impl>(opened.impl()))
        , operations(opened.impl())
    {
    }
    Impl(const Impl&) = delete;
    Impl& operator=(const Impl&) = delete;
    ~Impl()
    {
        // A camera that nobody looks after any more shall not go on sending images.
        if (camera.impl().isGrabbing()) {
            call([](auto& device) { return device.execute("AcquisitionStop", false); });
        }
    }

    /// Runs an operation, whose accesses share one limit of time, and notes its failure.
    template <typename Operation> int call(Operation operation)
    {
        const zqcameralib::CallScope scope(camera.impl().port().backend());
        const zqcameralib::Status status = operation(operations);
        return status.isOk() ? STATUS_OK : camera.impl().note(status);
    }

    /// Runs an operation that reads; `value` (may be null) is left alone when it fails.
    template <typename Result, typename Operation, typename Value>
    int get(Operation operation, Value* value)
    {
        Result result {};
        const int code = call([&](auto& device) { return operation(device, result); });
        if (code == STATUS_OK && value != nullptr) {
            *value = result;
        }
        return code;
    }

    ZQCamera& camera;
    ZQCameraRepository repository;
    zqcameralib::DeviceOperations operations;
};

namespace {

/// Cuts at the buffer's end, but not within a character.
void copyText(std::string text, char* buffer)
{
    if (buffer == nullptr) {
        return;
    }
    if (text.size() >= errorTextSize) {
        std::size_t end = errorTextSize - 1;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
            --end;
        }
        text.resize(end);
    }
    std::copy_n(text.c_str(), text.size() + 1, buffer);
}

} // namespace

ZQCameraDevice::ZQCameraDevice(ZQCamera* camera, ZQDiscovery*)
    : m_impl(std::make_unique<Impl>(*camera))
{
}

ZQCameraDevice::~ZQCameraDevice() = default;

ZQCameraRepository* ZQCameraDevice::GetRepository()
{
    return &m_impl->repository;
}

int ZQCameraDevice::Reconnect()
{
    const zqcameralib::CallScope scope(m_impl->camera.impl().port().backend());
    std::string error;
    if (!m_impl->camera.reconnect(error)) {
        return m_impl->camera.impl().note({ zqcameralib::cameraLost, error });
    }
    return m_impl->repository.Load();
}

std::unique_ptr<zqcameralib::ZQCameraTask> ZQCameraDevice::ReconnectBeside()
{
    return std::make_unique<zqcameralib::ReconnectTask>(m_impl->camera.impl(), m_impl->repository);
}

int ZQCameraDevice::SetIntegerValue(const char* name, long value, int flag)
{
    return m_impl->call([&](auto& device) { return device.setInteger(name, value, flag == 1); });
}

int ZQCameraDevice::GetIntegerValue(const char* name, long* value)
{
    return m_impl->get<std::int64_t>(
        [&](auto& device, auto& result) { return device.getInteger(name, result); }, value);
}

int ZQCameraDevice::SetFloatValue(const char* name, double value)
{
    return m_impl->call([&](auto& device) { return device.setFloat(name, value); });
}

int ZQCameraDevice::GetFloatValue(const char* name, double* value)
{
    return m_impl->get<double>(
        [&](auto& device, auto& result) { return device.getFloat(name, result); }, value);
}

int ZQCameraDevice::SetStringValue(const char* name, const char* value)
{
    return m_impl->call([&](auto& device) { return device.setString(name, value); });
}

int ZQCameraDevice::SetEnumValue(const char* name, const char* entry, int index)
{
    return m_impl->call([&](auto& device) { return device.setEnum(name, entry, index); });
}

int ZQCameraDevice::SetBooleanValue(const char* name, int value)
{
    return m_impl->call([&](auto& device) { return device.setBoolean(name, value != 0); });
}

int ZQCameraDevice::GetBooleanValue(const char* name, bool* value)
{
    return m_impl->get<bool>(
        [&](auto& device, auto& result) { return device.getBoolean(name, result); }, value);
}

int ZQCameraDevice::ExecuteCommand(const char* name, int flag)
{
    return m_impl->call([&](auto& device) { return device.execute(name, flag == 1); });
}

void ZQCameraDevice::GetErrorText(int code, char* errorName, char* errorText)
{
    copyText(zqcameralib::statusName(code), errorName);
    copyText(m_impl->camera.impl().errorText(code), errorText);
}

int ZQCameraDevice::GetLastError()
{
    return m_impl->camera.impl().lastError().code();
}

int ZQCameraDevice::IsGrabbing()
{
    return m_impl->camera.impl().isGrabbing() ? 1 : 0;
}

} // namespace featurebrowser
