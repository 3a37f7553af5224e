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

int nextStatus(const char* operation)
{
    auto& statuses = script().statuses[operation];
    if (statuses.empty())
        return 0;
    const int status = statuses.front();
    statuses.pop_front();
    return status;
}

template <class Value> int read(const std::optional<Value>& answer, Value* result)
{
    if (!answer)
        return -1;
    *result = *answer;
    return 0;
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
    note("device.SetIntegerValue", name, value, flag);
    return doubles::nextStatus("SetIntegerValue");
}

int ZQCameraDevice::GetIntegerValue(const char* name, long* value)
{
    note("device.GetIntegerValue", name);
    return doubles::read(script().integerValue, value);
}

int ZQCameraDevice::SetFloatValue(const char* name, double value)
{
    note("device.SetFloatValue", name, value);
    return doubles::nextStatus("SetFloatValue");
}

int ZQCameraDevice::GetFloatValue(const char* name, double* value)
{
    note("device.GetFloatValue", name);
    return doubles::read(script().floatValue, value);
}

int ZQCameraDevice::SetStringValue(const char* name, const char* value)
{
    note("device.SetStringValue", name, value);
    return doubles::nextStatus("SetStringValue");
}

int ZQCameraDevice::SetEnumValue(const char* name, const char* entry, int index)
{
    note("device.SetEnumValue", name, entry, index);
    return doubles::nextStatus("SetEnumValue");
}

int ZQCameraDevice::SetBooleanValue(const char* name, int value)
{
    note("device.SetBooleanValue", name, value);
    return doubles::nextStatus("SetBooleanValue");
}

int ZQCameraDevice::GetBooleanValue(const char* name, bool* value)
{
    note("device.GetBooleanValue", name);
    *value = script().booleanValue;
    return doubles::nextStatus("GetBooleanValue");
}

int ZQCameraDevice::ExecuteCommand(const char* name, int flag)
{
    note("device.ExecuteCommand", name, flag);
    script().onExecute();
    return doubles::nextStatus("ExecuteCommand");
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
