// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "operations/DeviceOperations.h"

#include "base/StatusCodes.h"
#include "words/Words.h"

#include <algorithm>
#include <thread>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

/// Longest time between two looks at a command that is not done.
constexpr std::chrono::milliseconds maxPause(50);

} // namespace

Status DeviceOperations::execute(const char* name, bool wait)
{
    const Result<const Feature*> found = lookup(name, FEATURE_COMMAND);
    if (!found.isOk()) {
        return found.status();
    }
    const Feature& feature = *found.value();
    const bool starts = feature.name == "AcquisitionStart";
    if (Status status = starts ? checkStart(feature) : checkWritable(feature); !status.isOk()) {
        return status;
    }
    const auto begun = Clock::now();
    if (starts) {
        m_camera.setGrabbing(true);
    }
    Status status = write(feature, [&](NodeMap& nodes) { return nodes.execute(feature.index); });
    if (status.isOk()) {
        m_camera.port().backend().executed(feature.name);
    }
    if (status.isOk() && wait) {
        status = waitUntilDone(feature, begun);
    }
    const bool ends = feature.name == "AcquisitionStop" || feature.name == "AcquisitionAbort"
        || feature.name == "DeviceReset";
    // A start that nobody has confirmed or refused may still happen.
    const bool isOpenEnded = status.code() == commandTimeout || status.code() == cameraSlow;
    if ((starts && !status.isOk() && !isOpenEnded) || (ends && status.isOk())) {
        m_camera.setGrabbing(false);
    }
    return status;
}

/// Cameras may free the start only once what may not change meanwhile is locked (SFNC:
/// TLParamsLocked).
Status DeviceOperations::checkStart(const Feature& feature)
{
    Status status = checkWritable(feature);
    if (status.code() != featureLocked || m_camera.isGrabbing()) {
        return status;
    }
    m_camera.setGrabbing(true);
    status = checkWritable(feature);
    if (!status.isOk()) {
        m_camera.setGrabbing(false);
    }
    return status;
}

Status DeviceOperations::waitUntilDone(const Feature& feature, Clock::time_point begun)
{
    if (feature.commandRegister == Description::absent) {
        return {};
    }
    RegisterPort& port = m_camera.port();
    const auto deadline = begun + std::chrono::milliseconds(commandTimeoutMs);
    const RegisterPort::FailureScope failures(port);
    for (auto pause = std::chrono::milliseconds(1);;
         pause = std::min<std::chrono::milliseconds>(2 * pause, maxPause)) {
        port.invalidate();
        const Result<Number> isDone = m_camera.nodes().number(feature.index);
        Status failure = failures.status();
        if (!failure.isOk() && failure.code() != cameraSlow) {
            return failure;
        }
        if (failure.isOk() && (!isDone.isOk() || !isDone.value().isZero())) {
            return {};
        }
        if (!failure.isOk() || Clock::now() >= deadline) {
            return { commandTimeout,
                feature.name + ": " + translated("not done yet; it goes on in the camera") };
        }
        std::this_thread::sleep_for(pause);
    }
}

} // namespace zqcameralib
