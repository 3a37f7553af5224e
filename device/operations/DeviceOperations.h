#pragma once

#include "base/GlibError.h"
#include "camera/Camera.h"
#include "features/FeatureReader.h"
#include "operations/ConversionCheck.h"

#include <chrono>
#include <functional>
#include <string>

namespace zqcameralib {

/// Reads, writes and commands on a camera's features, each checked before anything is sent. A call
/// returns 0 or a status code, whose text stays available until the next failure.
class DeviceOperations {
public:
    /// How long a command may take to report that it is done.
    static constexpr int commandTimeoutMs = 1000;

    /// `camera` has to outlive this.
    explicit DeviceOperations(ZQCamera::Impl& camera);

    int setInteger(const char* name, std::int64_t value, bool checkRange);
    int getInteger(const char* name, std::int64_t& value);
    int setFloat(const char* name, double value);
    int getFloat(const char* name, double& value);
    int setString(const char* name, const char* value);
    int setEnum(const char* name, const char* entry, int index);
    int setBoolean(const char* name, bool value);
    int getBoolean(const char* name, bool& value);
    int execute(const char* name, bool wait);

    /// Notes a failure, for lastError() and errorText(); returns the code.
    int fail(int code, const std::string& text);
    int lastError() const { return m_camera.lastError().code; }
    /// The text of `code`: what was said when it last happened, else a general sentence.
    std::string errorText(int code) const;

private:
    using Access = std::function<void(GError** error)>;
    using Clock = std::chrono::steady_clock;

    int failPort();
    int failLibrary(const Feature& feature, const GError& error);
    /// The feature of that name and type; null after a failure.
    const Feature* lookup(const char* name, std::uint8_t type);
    int checkReadable(const Feature& feature);
    int checkWritable(const Feature& feature);
    int checkInteger(const Feature& feature, std::int64_t value);
    int checkFloat(const Feature& feature, double value);
    /// The available entry of that name; null when there is none.
    const EnumEntry* chooseEntry(const Feature& feature, const std::string& name, int index);
    int checkConversion(const Feature& feature, const Number& value);
    int read(const Feature& feature, const Access& access);
    int write(const Feature& feature, const Access& access);
    int waitUntilDone(const Feature& feature, Clock::time_point begun);

    ZQCamera::Impl& m_camera;
    FeatureReader m_reader;
};

} // namespace zqcameralib
