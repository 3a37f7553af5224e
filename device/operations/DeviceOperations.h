// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "features/FeatureReader.h"

#include <chrono>
#include <functional>
#include <string>

namespace zqcameralib {

/// Reads, writes and commands on a camera's features, each checked before anything is sent.
class DeviceOperations {
public:
    /// How long a command may take to report that it is done.
    static constexpr int commandTimeoutMs = 1000;

    /// `camera` has to outlive this.
    explicit DeviceOperations(ZQCamera::Impl& camera);

    Status setInteger(const char* name, std::int64_t value, bool checkRange);
    Status getInteger(const char* name, std::int64_t& value);
    Status setFloat(const char* name, double value);
    Status getFloat(const char* name, double& value);
    Status setString(const char* name, const char* value);
    Status setEnum(const char* name, const char* entry, int index);
    Status setBoolean(const char* name, bool value);
    Status getBoolean(const char* name, bool& value);
    Status execute(const char* name, bool wait);

private:
    using Access = std::function<Status(NodeMap& nodes)>;
    using Clock = std::chrono::steady_clock;

    /// The feature of that name and type.
    Result<const Feature*> lookup(const char* name, std::uint8_t type);
    Status checkAvailable(const Feature& feature, featurebrowser::FEATURE_STATE& state);
    Status checkReadable(const Feature& feature);
    Status checkWritable(const Feature& feature);
    Status checkStart(const Feature& feature);
    Status checkInteger(const Feature& feature, std::int64_t value);
    Status checkFloat(const Feature& feature, double value);
    Status checkText(const Feature& feature, const std::string& text);
    /// The available entry of that name; null when there is none.
    const EnumEntry* chooseEntry(const Feature& feature, const std::string& name, int index);
    Status checkConversion(const Feature& feature, const Number& value);
    /// Whether the present value is this one.
    bool isPresent(const Feature& feature, const Number& value);
    Status read(const Feature& feature, const Access& access);
    Status write(const Feature& feature, const Access& access);
    Status waitUntilDone(const Feature& feature, Clock::time_point begun);

    ZQCamera::Impl& m_camera;
};

} // namespace zqcameralib
