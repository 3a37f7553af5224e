#include "featurebrowser/ZQCameraDevice.h"

#include "Repository.h"
#include "StatusCodes.h"

#include <cstdio>

namespace featurebrowser {

using namespace zqcameralib;

class ZQCameraDevice::Impl {
public:
    explicit Impl(ZQCamera& camera)
        : repository(std::make_unique<ZQCameraRepository::Impl>(camera.impl()))
    {
    }
    ZQCameraRepository repository;
};

ZQCameraDevice::ZQCameraDevice(ZQCamera* camera, ZQDiscovery*)
    : m_impl(std::make_unique<Impl>(*camera))
{
}

ZQCameraDevice::~ZQCameraDevice() = default;

ZQCameraRepository* ZQCameraDevice::GetRepository()
{
    return &m_impl->repository;
}

int ZQCameraDevice::SetIntegerValue(const char*, long, int)
{
    return notWritable;
}
int ZQCameraDevice::GetIntegerValue(const char*, long*)
{
    return notReadable;
}
int ZQCameraDevice::SetFloatValue(const char*, double)
{
    return notWritable;
}
int ZQCameraDevice::GetFloatValue(const char*, double*)
{
    return notReadable;
}
int ZQCameraDevice::SetStringValue(const char*, const char*)
{
    return notWritable;
}
int ZQCameraDevice::SetEnumValue(const char*, const char*, int)
{
    return notWritable;
}
int ZQCameraDevice::SetBooleanValue(const char*, int)
{
    return notWritable;
}
int ZQCameraDevice::GetBooleanValue(const char*, bool*)
{
    return notReadable;
}
int ZQCameraDevice::ExecuteCommand(const char*, int)
{
    return notWritable;
}
void ZQCameraDevice::GetErrorText(int code, char* errorName, char* errorText)
{
    std::snprintf(errorName, errorTextSize, "%s", statusName(code).c_str());
    std::snprintf(errorText, errorTextSize, "%s", statusText(code).c_str());
}
int ZQCameraDevice::GetLastError()
{
    return STATUS_OK;
}
int ZQCameraDevice::IsGrabbing()
{
    return 0;
}

} // namespace featurebrowser
