// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "FeatureTypes.h"

namespace featurebrowser {

/// Reads and writes a camera's features and runs its commands.
///
/// Feature names and texts are NUL-terminated bytes as the camera uses them. Every status is
/// 32-bit: 0 is success, the named codes of DEVICE_STATUS tell why a value was refused before it
/// was sent, everything else is a device error. A refused write changes nothing on the camera.
/// Result pointers are left untouched on failure. One thread at a time per device; no operation
/// throws.
///
/// The order of declaration is part of the binary contract.
class ZQ_EXPORT ICameraDevice {
public:
    ICameraDevice() = default;
    ICameraDevice(const ICameraDevice&) = delete;
    ICameraDevice& operator=(const ICameraDevice&) = delete;
    virtual ~ICameraDevice() = default;

    /// Writes an integer. `flag` 1: check the value against the feature's present range and
    /// increment first (ERROR_VALUE_OUT_OF_RANGE, ERROR_VALUE_NOT_ON_INCREMENT). Any other `flag`:
    /// leave that to the camera.
    virtual int SetIntegerValue(const char* name, long value, int flag) = 0;
    /// Reads an integer from the camera into `*value`.
    virtual int GetIntegerValue(const char* name, long* value) = 0;
    /// Writes a floating-point value unchanged (ERROR_FLOAT_OUT_OF_RANGE).
    virtual int SetFloatValue(const char* name, double value) = 0;
    /// Reads a floating-point value from the camera into `*value`.
    virtual int GetFloatValue(const char* name, double* value) = 0;
    /// Writes a text; its length in bytes may not exceed the feature's maximum.
    virtual int SetStringValue(const char* name, const char* value) = 0;
    /// Chooses an entry of an enumeration by its name; `index` is its place in
    /// FeatureItem::enumEntries.
    virtual int SetEnumValue(const char* name, const char* entry, int index) = 0;
    /// Writes a boolean: 0 is false, any other `value` true.
    virtual int SetBooleanValue(const char* name, int value) = 0;
    /// Reads a boolean from the camera into `*value`.
    virtual int GetBooleanValue(const char* name, bool* value) = 0;
    /// Runs a command. `flag` 1: wait, for a bounded time, until the camera says it is done. Any
    /// other `flag`: return when the camera has taken it.
    virtual int ExecuteCommand(const char* name, int flag) = 0;
    /// Describes an error code. Both buffers hold errorTextSize bytes and are filled with
    /// NUL-terminated text: `errorName` with the code's short name, `errorText` with a sentence for
    /// the user.
    virtual void GetErrorText(int code, char* errorName, char* errorText) = 0;
    /// The code of the last operation that failed; 0 when none has.
    virtual int GetLastError() = 0;
    /// Non-zero while image acquisition runs.
    virtual int IsGrabbing() = 0;
};

} // namespace featurebrowser
