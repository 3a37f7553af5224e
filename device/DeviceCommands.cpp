#include "DeviceOperations.h"

#include "StatusCodes.h"

#include <algorithm>
#include <chrono>
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
        return m_lastError;
    }
    if (const int status = checkWritable(*feature)) {
        return status;
    }
    const bool starts = feature->name == "AcquisitionStart";
    if (starts) {
        setStreamLock(true);
    }
    int status = write(*feature,
        [&](GError** error) { arv_gc_command_execute(ARV_GC_COMMAND(feature->gc), error); });
    if (status == STATUS_OK && wait) {
        status = waitUntilDone(*feature);
    }
    const bool ends = feature->name == "AcquisitionStop" || feature->name == "AcquisitionAbort"
        || feature->name == "DeviceReset";
    if ((starts && status != STATUS_OK) || (ends && status == STATUS_OK)) {
        setStreamLock(false);
    } else if (starts) {
        m_isGrabbing = true;
    }
    return status;
}

void DeviceOperations::setStreamLock(bool locked)
{
    if (!locked) {
        m_isGrabbing = false;
    }
    ArvGcNode* node = arv_gc_get_node(m_camera.nodeMap(), "TLParamsLocked");
    GlibError ignored; // a camera without one locks by itself
    if (ARV_IS_GC_INTEGER(node)) {
        arv_gc_integer_set_value(ARV_GC_INTEGER(node), locked ? 1 : 0, ignored.out());
        m_camera.port().invalidate();
    }
}

int DeviceOperations::waitUntilDone(const Feature& feature)
{
    if (feature.commandRegister == nullptr) {
        return STATUS_OK;
    }
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::milliseconds(commandTimeoutMs);
    const std::uint64_t failures = m_camera.port().failures();
    for (auto pause = std::chrono::milliseconds(1);;
         pause = std::min<std::chrono::milliseconds>(2 * pause, maxPause)) {
        GlibError error;
        m_camera.port().invalidate();
        const std::int64_t value
            = arv_gc_integer_get_value(ARV_GC_INTEGER(feature.commandRegister), error.out());
        if (m_camera.port().failures() != failures) {
            return failPort();
        }
        if (error || value != feature.commandValue) {
            return STATUS_OK;
        }
        if (Clock::now() >= deadline) {
            return fail(commandTimeout,
                feature.name + ": not done after " + std::to_string(commandTimeoutMs) + " ms");
        }
        std::this_thread::sleep_for(pause);
    }
}

} // namespace zqcameralib
