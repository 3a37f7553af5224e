// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "session/UsbOpening.h"

#include "base/GlibError.h"
#include "base/LibraryLock.h"
#include "base/StatusCodes.h"
#include "session/DeviceErrors.h"
#include "session/DeviceOpening.h"
#include "usb/UsbDevice.h"
#include "usb/UsbPermission.h"
#include "words/Words.h"

#include <optional>
#include <string_view>

namespace zqcameralib {

namespace {

std::string textOf(const char* text)
{
    return text == nullptr ? std::string() : text;
}

std::optional<UsbIdentity> find(const std::string& id)
{
    ArvInterface* usb = arv_uv_interface_get_instance();
    arv_interface_update_device_list(usb);
    const unsigned count = arv_interface_get_n_devices(usb);
    for (unsigned i = 0; i < count; ++i) {
        if (id == textOf(arv_interface_get_device_id(usb, i))) {
            return UsbIdentity { textOf(arv_interface_get_device_vendor(usb, i)),
                textOf(arv_interface_get_device_model(usb, i)),
                textOf(arv_interface_get_device_serial_nbr(usb, i)) };
        }
    }
    return std::nullopt;
}

Status missing()
{
    const Words unpermitted = unpermittedUsbCameras();
    return unpermitted.empty()
        ? Status(cameraLost, translated("no such camera is plugged in; check its cable and power"))
        : Status(accessDenied, unpermitted);
}

Status failure(const GlibError& error)
{
    const std::string_view said = error ? error.get()->message : "";
    if (said.find("LIBUSB_ERROR_BUSY") != std::string_view::npos) {
        return { accessDenied,
            translated(
                "the camera is in use: by another program, or for images that were not stopped") };
    }
    if (isDescriptionMissing(error)) {
        return { notLoaded, translated("the camera has no description that can be read") };
    }
    return { cameraLost,
        translated("the camera stopped answering while it was opened; check its cable, and plug it "
                   "in again") };
}

} // namespace

Result<GObjectPointer<ArvDevice>> openUsb(const std::string& id)
{
    const LibraryLock interfaces(LibraryPart::Interfaces, LibraryLock::Clock::now() + libraryLimit);
    if (!interfaces) {
        return Status(stillWorking, translated("the search for cameras does not end"));
    }
    const std::optional<UsbIdentity> camera = find(id);
    if (!camera) {
        return missing();
    }
    GlibError error;
    GObjectPointer<ArvDevice> device = newUsbDevice(*camera, error.out());
    return device ? Result<GObjectPointer<ArvDevice>>(std::move(device)) : failure(error);
}

} // namespace zqcameralib
