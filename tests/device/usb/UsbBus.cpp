// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "UsbBus.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace {

constexpr std::uint8_t controlPipe = 0x01;
constexpr std::uint8_t dataPipe = 0x82;

/// An association of a control and a data interface; which text is the camera's number stands last.
libusb_config_descriptor describe()
{
    static const std::array<unsigned char, 8> association { 8, 0x0B, 0, 2, 0xEF, 5, 0, 0 };
    static const std::array<unsigned char, 12> camera { 20, 0x24, 1, 3, 0, 1, 0, 1, 0, 1, 0, 4 };
    static const libusb_endpoint_descriptor control { 7, 5, controlPipe, 2, 1024, 0, 0, 0, {}, 0 };
    static const libusb_endpoint_descriptor data { 7, 5, dataPipe, 2, 1024, 0, 0, 0, {}, 0 };
    static const libusb_interface_descriptor first { 9, 4, 0, 0, 1, 0xEF, 5, 0, 0, &control,
        camera.data(), camera.size() };
    static const libusb_interface_descriptor second { 9, 4, 1, 0, 1, 0xEF, 5, 2, 0, &data, {}, 0 };
    static const std::array<libusb_interface, 2> both { { { &first, 1 }, { &second, 1 } } };
    return { 9, 2, 0, 2, 1, 0, 0x80, 0, both.data(), association.data(), association.size() };
}

} // namespace

UsbBus& HeldBus::theBus()
{
    static UsbBus bus;
    return bus;
}

void UsbBus::plugIn(const std::string& description)
{
    unplug();
    libusb_device& device = devices.emplace_back(libusb_device { UsbCamera(description) });
    device.asList.front() = &device;
    opening = claiming = LIBUSB_SUCCESS;
}

void UsbBus::unplug()
{
    for (libusb_device& device : devices) {
        device.asList.front() = nullptr;
    }
    transfersLeft.reset();
    changed.notify_all();
}

extern "C" {
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the names are ours

ssize_t libusb_get_device_list(libusb_context*, libusb_device*** list)
{
    const HeldBus bus;
    *list = bus->devices.back().asList.data();
    return bus->devices.back().isPresent() ? 1 : 0;
}

int libusb_open(libusb_device* device, libusb_device_handle** handle)
{
    const HeldBus bus;
    *handle = &bus->handles.emplace_back(libusb_device_handle { *device });
    const int result = device->isPresent() ? bus->opening : LIBUSB_ERROR_NO_DEVICE;
    if (result != LIBUSB_SUCCESS) {
        bus->handles.pop_back();
    }
    return result;
}

int libusb_claim_interface(libusb_device_handle* handle, int)
{
    const HeldBus bus;
    const libusb_device_handle*& user = handle->device.user;
    user = user == nullptr ? handle : user;
    return user == handle ? bus->claiming : LIBUSB_ERROR_BUSY;
}

int libusb_bulk_transfer(libusb_device_handle* handle, unsigned char pipe, unsigned char* data,
    int length, int* transferred, unsigned int milliseconds)
{
    HeldBus bus;
    UsbCamera& camera = handle->device.camera;
    const auto size = static_cast<std::size_t>(length);
    if (bus->transfersLeft && (*bus->transfersLeft)-- == 0) {
        bus->unplug();
    }
    if (pipe == dataPipe) {
        bus->changed.wait_for(bus.lock, std::chrono::milliseconds(milliseconds),
            [&] { return !handle->device.isPresent() || camera.hasStreamData(); });
    }
    if (!handle->device.isPresent()) {
        return LIBUSB_ERROR_NO_DEVICE;
    }
    if (pipe == controlPipe) {
        *transferred = length;
        return camera.take({ data, data + length }) ? LIBUSB_SUCCESS : LIBUSB_ERROR_PIPE;
    }
    const auto bytes = pipe == dataPipe ? camera.takeStreamData(size) : camera.takeAnswer();
    if (bytes.empty() || bytes.size() > size) {
        return bytes.empty() ? LIBUSB_ERROR_TIMEOUT : LIBUSB_ERROR_OVERFLOW;
    }
    std::copy(bytes.begin(), bytes.end(), data);
    *transferred = static_cast<int>(bytes.size());
    return LIBUSB_SUCCESS;
}

// Short ones, of which most need nothing done or are not used.
// clang-format off
int libusb_init(libusb_context** context)
    { *context = reinterpret_cast<libusb_context*>(&HeldBus::theBus()); return 0; }
void libusb_exit(libusb_context*) { }
const char* libusb_error_name(int code)
    { return code == LIBUSB_ERROR_BUSY ? "LIBUSB_ERROR_BUSY" : "other"; }
int libusb_get_device_descriptor(libusb_device*, libusb_device_descriptor* descriptor)
    { *descriptor = { 18, 1, 0x0300, 0xEF, 2, 1, 9, 0x2676, 0xBA02, 0x0100, 1, 2, 3, 1 }; return 0; }
int libusb_get_config_descriptor(libusb_device*, std::uint8_t, libusb_config_descriptor** config)
    { static libusb_config_descriptor only = describe(); *config = &only; return 0; }
int libusb_get_string_descriptor_ascii(libusb_device_handle*, std::uint8_t i, unsigned char* data, int)
    { return std::sprintf(reinterpret_cast<char*>(data), "%s",
        std::array { "", "Maker", "Model", "S1", "2676F00D" }.at(i)); }
void libusb_close(libusb_device_handle* handle)
    { HeldBus()->handles.remove_if([handle](const auto& one) { return &one == handle; }); }
int libusb_release_interface(libusb_device_handle* handle, int)
    { const HeldBus bus; auto& user = handle->device.user; user = user == handle ? nullptr : user; return 0; }
int libusb_handle_events_timeout(libusb_context*, timeval* limit) // tells nobody of the camera's end
    { HeldBus bus; bus->changed.wait_for(bus.lock, std::chrono::microseconds(limit->tv_usec)); return 0; }
int libusb_hotplug_register_callback(libusb_context*, int, int, int, int, int,
    libusb_hotplug_callback_fn, void*, int*) { return 0; }
void libusb_hotplug_deregister_callback(libusb_context*, int) { }
libusb_device* libusb_get_device(libusb_device_handle* handle) { return &handle->device; }
void libusb_free_device_list(libusb_device**, int) { }
void libusb_free_config_descriptor(libusb_config_descriptor*) { }
int libusb_set_auto_detach_kernel_driver(libusb_device_handle*, int) { return 0; }
int libusb_clear_halt(libusb_device_handle*, unsigned char) { return 0; }
int libusb_control_transfer(libusb_device_handle*, std::uint8_t, std::uint8_t, std::uint16_t,
    std::uint16_t, unsigned char*, std::uint16_t, unsigned) { return 0; }
libusb_transfer* libusb_alloc_transfer(int) { return nullptr; }
void libusb_free_transfer(libusb_transfer*) { }
int libusb_submit_transfer(libusb_transfer*) { return LIBUSB_ERROR_NOT_SUPPORTED; }
int libusb_cancel_transfer(libusb_transfer*) { return LIBUSB_ERROR_NOT_SUPPORTED; }
unsigned char* libusb_dev_mem_alloc(libusb_device_handle*, size_t) { return nullptr; } // Aravis 0.10
int libusb_dev_mem_free(libusb_device_handle*, unsigned char*, size_t) { return LIBUSB_SUCCESS; }
// clang-format on
// NOLINTEND(readability-inconsistent-declaration-parameter-name)

} // extern "C"
