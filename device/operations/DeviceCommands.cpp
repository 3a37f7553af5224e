#include "operations/DeviceOperations.h"

#include "base/StatusCodes.h"

#include <algorithm>
#include <thread>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

/// Longest time between two looks at a command that is not done.
constexpr std::chrono::milliseconds maxPause(50);

} // namespace

int DeviceOperations::execute(const char* name, bool wait)
{
    const Feature* feature = lookup(name, FEATURE_COMMAND);
    if (feature == nullptr) {
        return lastError();
    }
    if (const int status = checkWritable(*feature)) {
        return status;
    }
    const auto begun = Clock::now();
    const bool starts = feature->name == "AcquisitionStart";
    if (starts) {
        m_camera.setGrabbing(true);
    }
    int status = write(*feature,
        [&](GError** error) { arv_gc_command_execute(ARV_GC_COMMAND(feature->gc), error); });
    if (status == STATUS_OK && wait) {
        status = waitUntilDone(*feature, begun);
    }
    const bool ends = feature->name == "AcquisitionStop" || feature->name == "AcquisitionAbort"
        || feature->name == "DeviceReset";
    // A start that nobody has confirmed or refused may still happen.
    const bool isOpenEnded = status == commandTimeout || status == cameraSlow;
    if ((starts && status != STATUS_OK && !isOpenEnded) || (ends && status == STATUS_OK)) {
        m_camera.setGrabbing(false);
    }
    return status;
}

int DeviceOperations::waitUntilDone(const Feature& feature, Clock::time_point begun)
{
    if (feature.commandRegister == nullptr) {
        return STATUS_OK;
    }
    RegisterPort& port = m_camera.port();
    const auto deadline = begun + std::chrono::milliseconds(commandTimeoutMs);
    const std::uint64_t failures = port.failures();
    for (auto pause = std::chrono::milliseconds(1);;
         pause = std::min<std::chrono::milliseconds>(2 * pause, maxPause)) {
        GlibError error;
        port.invalidate();
        const std::int64_t value
            = arv_gc_integer_get_value(ARV_GC_INTEGER(feature.commandRegister), error.out());
        const bool failed = port.failures() != failures;
        if (failed && port.lastFailure().code != cameraSlow) {
            return failPort();
        }
        if (!failed && (error || value != feature.commandValue)) {
            return STATUS_OK;
        }
        if (failed || Clock::now() >= deadline) {
            return fail(commandTimeout, feature.name + ": not done yet; it goes on in the camera");
        }
        std::this_thread::sleep_for(pause);
    }
}

} // namespace zqcameralib
