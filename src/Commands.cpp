// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Trace.h"
#include "ZQFeatureBrowserImpl.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include <safe_str_lib.h>

namespace featurebrowser {
namespace {

constexpr std::size_t traceSize = 256;
constexpr std::size_t messageSize = 1024;

void traceCommand(const std::string& name)
{
    std::array<char, traceSize> line {};
    // What a name too long leaves in the buffer is the library's decision; nothing is, here.
    sprintf_s(line.data(), line.size(), "Exec command: %s\n", name.c_str());
    traceText(line.data());
}

} // namespace

void ZQFeatureBrowser::ZQFeatureBrowserImpl::FeatureExecCommand(std::string name)
{
    traceCommand(name);
    if (name == "DeviceReset") {
        return resetDevice(name);
    }
    const bool start = name == "AcquisitionStart";
    if (start || name == "AcquisitionStop") {
        const bool grabbing = device->IsGrabbing() != 0;
        if (grabbing == start) {
            return;
        }
        handOverCommand(name, start ? "Starting to grab..." : "Stopping to grab...");
        return refreshAfterCommand(name);
    }
    executeCommand(name);
    refreshAfterCommand(name);
    if (receiver) {
        receiver->AllConfigChanged();
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::resetDevice(const std::string& name)
{
    if (!receiver) {
        widget->closeDialog();
    }
    handOverCommand(name, "Execute DeviceReset...");
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::handOverCommand(
    const std::string& name, const char* announcement)
{
    if (!receiver) {
        return executeCommand(name);
    }
    traceText(announcement);
    receiver->FeatureExecCommand(name);
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::executeCommand(const std::string& name)
{
    constexpr int waitUntilDone = 1;
    const int status = device->ExecuteCommand(name.c_str(), waitUntilDone);
    std::array<char, messageSize> message {};
    if (status != STATUS_OK) {
        // The status itself is explained here; value writes ask for the last error instead.
        std::snprintf(message.data(), message.size(), "Command [%s] failed! - error: %s",
            name.c_str(), errorText(status).c_str());
    } else {
        std::snprintf(message.data(), message.size(), "Executed Command [%s]", name.c_str());
    }
    if (receiver) {
        receiver->SendError(status, message.data());
    }
}

void ZQFeatureBrowser::ZQFeatureBrowserImpl::refreshAfterCommand(const std::string& name)
{
    const auto items = repository->GetInvalidatedFeatures(name);
    const bool everything = std::any_of(items.begin(), items.end(),
        [](const auto& item) { return item && item->name == "Device"; });
    if (everything) {
        reloadRepository();
    } else {
        updateInvalidators(name);
    }
}

} // namespace featurebrowser
