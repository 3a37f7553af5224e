// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "usb/UsbPermission.h"

#include "words/Words.h"

#include <libusb.h>

#include <array>
#include <cstdio>
#include <memory>

namespace zqcameralib {

namespace {

// USB3 Vision 1.1: several interfaces in association, of which one is for control.
constexpr std::uint8_t associationSubClass = 0x02;
constexpr std::uint8_t associationProtocol = 0x01;
constexpr std::uint8_t visionSubClass = 0x05;
constexpr std::uint8_t controlProtocol = 0x00;

/// As in README.md.
const char* const rule
    = R"(SUBSYSTEM=="usb", ENV{ID_USB_INTERFACES}=="*:ef0500:*", MODE="0660", GROUP="plugdev", )"
      R"(TAG+="uaccess")";

struct EndUsb {
    void operator()(libusb_context* context) const { libusb_exit(context); }
    void operator()(libusb_device** list) const { libusb_free_device_list(list, 1); }
    void operator()(libusb_config_descriptor* config) const
    {
        libusb_free_config_descriptor(config);
    }
    void operator()(libusb_device_handle* handle) const { libusb_close(handle); }
};

bool isControl(const libusb_interface_descriptor& setting)
{
    return setting.bInterfaceClass == LIBUSB_CLASS_MISCELLANEOUS
        && setting.bInterfaceSubClass == visionSubClass
        && setting.bInterfaceProtocol == controlProtocol;
}

bool hasControl(libusb_device* device)
{
    libusb_config_descriptor* config = nullptr;
    if (libusb_get_config_descriptor(device, 0, &config) != LIBUSB_SUCCESS) {
        return false;
    }
    const std::unique_ptr<libusb_config_descriptor, EndUsb> owner(config);
    bool isFound = false;
    for (int i = 0; i < config->bNumInterfaces; ++i) {
        const libusb_interface& interface = config->interface[i];
        isFound = isFound || (interface.num_altsetting > 0 && isControl(interface.altsetting[0]));
    }
    return isFound;
}

bool isPermitted(libusb_device* device)
{
    libusb_device_handle* handle = nullptr;
    const int result = libusb_open(device, &handle);
    const std::unique_ptr<libusb_device_handle, EndUsb> owner(
        result == LIBUSB_SUCCESS ? handle : nullptr);
    return result != LIBUSB_ERROR_ACCESS;
}

/// Vendor and product as lsusb shows them; empty for what is no camera, or may be opened.
std::string unpermittedCamera(libusb_device* device)
{
    libusb_device_descriptor descriptor {};
    if (libusb_get_device_descriptor(device, &descriptor) != LIBUSB_SUCCESS
        || descriptor.bDeviceClass != LIBUSB_CLASS_MISCELLANEOUS
        || descriptor.bDeviceSubClass != associationSubClass
        || descriptor.bDeviceProtocol != associationProtocol || !hasControl(device)
        || isPermitted(device)) {
        return {};
    }
    std::array<char, 16> text {};
    std::snprintf(text.data(), text.size(), "%04x:%04x", unsigned { descriptor.idVendor },
        unsigned { descriptor.idProduct });
    return text.data();
}

} // namespace

Words unpermittedUsbCameras()
{
    libusb_context* context = nullptr;
    if (libusb_init(&context) != LIBUSB_SUCCESS) {
        return {};
    }
    const std::unique_ptr<libusb_context, EndUsb> ownContext(context);
    libusb_device** list = nullptr;
    const ssize_t count = libusb_get_device_list(context, &list);
    const std::unique_ptr<libusb_device*, EndUsb> ownList(count < 0 ? nullptr : list);
    std::string names;
    for (ssize_t i = 0; i < count; ++i) {
        const std::string name = unpermittedCamera(list[i]);
        names += (names.empty() || name.empty() ? "" : ", ") + name;
    }
    return names.empty()
        ? Words()
        : worded("no permission to open the USB3 Vision camera %s: put this line into "
                 "/etc/udev/rules.d/60-usb3-vision.rules and plug it in again: %s",
            names.c_str(), rule);
}

} // namespace zqcameralib
