// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "ICameraDevice.h"
#include "ZQCameraTask.h"

#include <memory>

namespace zqcameralib {
class ZQCamera;
class ZQDiscovery;
} // namespace zqcameralib

namespace featurebrowser {

class ZQCameraRepository;

/// A camera as the feature browser drives it: ICameraDevice over an open zqcameralib::ZQCamera,
/// with the repository of its features.
///
/// Each operation waits for the camera at most 1.2 s. Destroying the device stops an acquisition
/// that was started through it or another device of the camera.
class ZQ_EXPORT ZQCameraDevice : public ICameraDevice {
public:
    /// Neither pointer is owned; `camera` has to outlive the device. `discovery` may be null; a
    /// lost camera is sought where it was, without it.
    ZQCameraDevice(zqcameralib::ZQCamera* camera, zqcameralib::ZQDiscovery* discovery);
    ~ZQCameraDevice() override;

    /// The camera's features; owned by the device, empty until ZQCameraRepository::Load.
    ZQCameraRepository* GetRepository();

    /// Finds a lost camera again (zqcameralib::ZQCamera::reconnect) and loads the repository, whose
    /// records are then new ones. Returns 0 or a device error code. Waits at most 1.2 s for all of
    /// it: what takes longer goes on behind, and the next call continues it.
    int Reconnect();
    /// The same beside the caller: when it is done, Reconnect() does not wait any more.
    std::unique_ptr<zqcameralib::ZQCameraTask> ReconnectBeside();

    int SetIntegerValue(const char* name, long value, int flag) override;
    int GetIntegerValue(const char* name, long* value) override;
    int SetFloatValue(const char* name, double value) override;
    int GetFloatValue(const char* name, double* value) override;
    int SetStringValue(const char* name, const char* value) override;
    int SetEnumValue(const char* name, const char* entry, int index) override;
    int SetBooleanValue(const char* name, int value) override;
    int GetBooleanValue(const char* name, bool* value) override;
    /// With `flag` 1 waits until the command's register says that it is done, at most 1 s; a
    /// command that takes longer goes on, and the error says so.
    int ExecuteCommand(const char* name, int flag) override;
    void GetErrorText(int code, char* errorName, char* errorText) override;
    int GetLastError() override;
    int IsGrabbing() override;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace featurebrowser
