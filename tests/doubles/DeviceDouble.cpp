// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Journal.h"
#include "Script.h"

#include "featurebrowser/ZQCamera.h"
#include "featurebrowser/ZQCameraDevice.h"
#include "featurebrowser/ZQCameraRepository.h"

#include <algorithm>
#include <cstring>

using doubles::note;
using doubles::script;

namespace doubles {

Script& script()
{
    static Script instance;
    return instance;
}

void reset()
{
    script() = Script();
    journal().clear();
}

namespace {

/// Writes the call down and gives the next scripted status of its operation.
template <class... Arguments>
int answer(const std::string& operation, const Arguments&... arguments)
{
    note(("device." + operation).c_str(), arguments...);
    auto& statuses = script().statuses[operation];
    if (statuses.empty()) {
        return 0;
    }
    const int status = statuses.front();
    statuses.pop_front();
    return status;
}

template <class Value> int read(const std::optional<Value>& scripted, Value* result)
{
    *result = scripted.value_or(*result);
    return scripted ? 0 : -1;
}

} // namespace
} // namespace doubles

namespace zqcameralib {

class ZQCamera::Impl { };

ZQCamera::ZQCamera(std::unique_ptr<Impl> impl)
    : m_impl(std::move(impl))
{
}
ZQCamera::~ZQCamera() = default;

std::unique_ptr<ZQCamera> ZQCamera::OpenSimulated(std::string& /*error*/)
{
    return std::make_unique<ZQCamera>(std::make_unique<Impl>());
}

} // namespace zqcameralib

namespace featurebrowser {

class ZQCameraDevice::Impl {
public:
    std::unique_ptr<ZQCameraRepository> repository = doubles::makeRepository();
};

ZQCameraDevice::ZQCameraDevice(zqcameralib::ZQCamera* camera, zqcameralib::ZQDiscovery* discovery)
    : m_impl(std::make_unique<Impl>())
{
    note("device.create", camera != nullptr, discovery != nullptr);
}

ZQCameraDevice::~ZQCameraDevice()
{
    note("device.destroy");
}

ZQCameraRepository* ZQCameraDevice::GetRepository()
{
    return m_impl->repository.get();
}

int ZQCameraDevice::SetIntegerValue(const char* name, long value, int flag)
{
    return doubles::answer(__func__, name, value, flag);
}

int ZQCameraDevice::GetIntegerValue(const char* name, long* value)
{
    note("device.GetIntegerValue", name);
    return doubles::read(script().integerValue, value);
}

int ZQCameraDevice::SetFloatValue(const char* name, double value)
{
    return doubles::answer(__func__, name, value);
}

int ZQCameraDevice::GetFloatValue(const char* name, double* value)
{
    note("device.GetFloatValue", name);
    return doubles::read(script().floatValue, value);
}

int ZQCameraDevice::SetStringValue(const char* name, const char* value)
{
    return doubles::answer(__func__, name, value);
}

int ZQCameraDevice::SetEnumValue(const char* name, const char* entry, int index)
{
    return doubles::answer(__func__, name, entry, index);
}

int ZQCameraDevice::SetBooleanValue(const char* name, int value)
{
    return doubles::answer(__func__, name, value);
}

int ZQCameraDevice::GetBooleanValue(const char* name, bool* value)
{
    *value = script().booleanValue;
    return doubles::answer(__func__, name);
}

int ZQCameraDevice::ExecuteCommand(const char* name, int flag)
{
    return doubles::answer(__func__, name, flag);
}

void ZQCameraDevice::GetErrorText(int code, char* errorName, char* errorText)
{
    note("device.GetErrorText", code);
    std::memset(errorName, 'N', errorTextSize);
    const std::string& text = script().errorText;
    std::memcpy(errorText, text.c_str(), std::min(text.size() + 1, errorTextSize));
}

int ZQCameraDevice::GetLastError()
{
    note("device.GetLastError");
    return script().lastError;
}

int ZQCameraDevice::IsGrabbing()
{
    note("device.IsGrabbing");
    return script().grabbing;
}

} // namespace featurebrowser
