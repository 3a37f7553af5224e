#include "UsbBus.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <utility>

namespace {

constexpr std::uint8_t controlPipe = 0x01;
constexpr std::uint8_t dataPipe = 0x82;

UsbBus& theBus()
{
    static UsbBus bus;
    return bus;
}

bool isPresent(const libusb_device& device)
{
    return device.asList.front() != nullptr;
}

template <typename Object> void removeFrom(std::list<Object>& all, const Object* object)
{
    all.remove_if([object](const Object& one) { return &one == object; });
}

/// An association of a control and a data interface.
libusb_config_descriptor describe()
{
    static const std::array<unsigned char, 8> association { 8, 0x0B, 0, 2, 0xEF, 5, 0, 0 };
    // Of the whole camera; which text is its unique number stands last.
    static const std::array<unsigned char, 12> camera { 20, 0x24, 1, 3, 0, 1, 0, 1, 0, 1, 0, 4 };
    static const std::array<libusb_endpoint_descriptor, 2> pipes {
        { { 7, 5, controlPipe, 2, 1024, 0, 0, 0, nullptr, 0 },
            { 7, 5, dataPipe, 2, 1024, 0, 0, 0, nullptr, 0 } }
    };
    static const std::array<libusb_interface_descriptor, 2> settings {
        { { 9, 4, 0, 0, 1, 0xEF, 5, 0, 0, pipes.data(), camera.data(), camera.size() },
            { 9, 4, 1, 0, 1, 0xEF, 5, 2, 0, &pipes[1], nullptr, 0 } }
    };
    static const std::array<libusb_interface, 2> interfaces { { { settings.data(), 1 },
        { &settings[1], 1 } } };
    return { 9, 2, 0, 2, 1, 0, 0x80, 0, interfaces.data(), association.data(), association.size() };
}

int deliver(const UsbCamera::Bytes& bytes, unsigned char* data, int length, int* transferred)
{
    if (bytes.size() > static_cast<std::size_t>(length)) {
        return LIBUSB_ERROR_OVERFLOW;
    }
    std::copy(bytes.begin(), bytes.end(), data);
    *transferred = static_cast<int>(bytes.size());
    return bytes.empty() ? LIBUSB_ERROR_TIMEOUT : LIBUSB_SUCCESS;
}

} // namespace

void UsbBus::plugIn(const std::string& description)
{
    unplug();
    libusb_device& device = devices.emplace_back(libusb_device { UsbCamera(description) });
    device.asList.front() = &device;
    opening = claiming = LIBUSB_SUCCESS;
}

void UsbBus::unplug()
{
    for (libusb_context& context : contexts) {
        context.left = context.onLeft == nullptr ? nullptr : &devices.back();
    }
    if (!devices.empty()) {
        devices.back().asList.front() = nullptr;
    }
    transfersLeft.reset();
    changed.notify_all();
}

HeldBus::HeldBus()
    : bus(theBus())
    , lock(bus.mutex)
{
}

extern "C" {

int libusb_init(libusb_context** context)
{
    *context = &HeldBus()->contexts.emplace_back();
    return LIBUSB_SUCCESS;
}

void libusb_exit(libusb_context* context)
{
    removeFrom(HeldBus()->contexts, context);
}

const char* libusb_error_name(int code)
{
    return code == LIBUSB_ERROR_BUSY ? "LIBUSB_ERROR_BUSY" : "another error";
}

ssize_t libusb_get_device_list(libusb_context*, libusb_device*** list)
{
    const HeldBus bus;
    *list = bus->devices.back().asList.data();
    return isPresent(bus->devices.back()) ? 1 : 0;
}

int libusb_get_device_descriptor(libusb_device*, libusb_device_descriptor* descriptor)
{
    *descriptor = { 18, 1, 0x0300, 0xEF, 2, 1, 9, 0x2676, 0xBA02, 0x0100, 1, 2, 3, 1 };
    return LIBUSB_SUCCESS;
}

int libusb_get_config_descriptor(libusb_device*, std::uint8_t, libusb_config_descriptor** config)
{
    static libusb_config_descriptor description = describe();
    *config = &description;
    return LIBUSB_SUCCESS;
}

int libusb_open(libusb_device* device, libusb_device_handle** handle)
{
    const HeldBus bus;
    const int result = isPresent(*device) ? bus->opening : LIBUSB_ERROR_NO_DEVICE;
    if (result == LIBUSB_SUCCESS) {
        *handle = &bus->handles.emplace_back(libusb_device_handle { *device });
    }
    return result;
}

void libusb_close(libusb_device_handle* handle)
{
    libusb_release_interface(handle, 0);
    removeFrom(HeldBus()->handles, handle);
}

int libusb_get_string_descriptor_ascii(
    libusb_device_handle*, std::uint8_t index, unsigned char* data, int length)
{
    constexpr std::array<const char*, 5> texts { "", "Maker", "Model", "S1", "2676F00D" };
    std::strncpy(reinterpret_cast<char*>(data), texts.at(index), static_cast<std::size_t>(length));
    return static_cast<int>(std::strlen(texts.at(index)));
}

int libusb_claim_interface(libusb_device_handle* handle, int)
{
    const HeldBus bus;
    const libusb_device_handle*& user = handle->device.user;
    if (!isPresent(handle->device) || bus->claiming != LIBUSB_SUCCESS) {
        return isPresent(handle->device) ? bus->claiming : LIBUSB_ERROR_NO_DEVICE;
    }
    user = user == nullptr ? handle : user;
    return user == handle ? LIBUSB_SUCCESS : LIBUSB_ERROR_BUSY;
}

int libusb_release_interface(libusb_device_handle* handle, int)
{
    const HeldBus bus;
    const libusb_device_handle*& user = handle->device.user;
    user = user == handle ? nullptr : user;
    return LIBUSB_SUCCESS;
}

int libusb_bulk_transfer(libusb_device_handle* handle, unsigned char endpoint, unsigned char* data,
    int length, int* transferred, unsigned int milliseconds)
{
    HeldBus bus;
    libusb_device& device = handle->device;
    UsbCamera& camera = device.camera;
    const auto size = static_cast<std::size_t>(length);
    if (bus->transfersLeft && (*bus->transfersLeft)-- == 0) {
        bus->unplug();
    }
    if (endpoint == dataPipe) {
        bus->changed.wait_for(bus.lock, std::chrono::milliseconds(milliseconds),
            [&] { return !isPresent(device) || camera.hasStreamData(); });
    }
    if (!isPresent(device) || device.user != handle) {
        return isPresent(device) ? LIBUSB_ERROR_NOT_FOUND : LIBUSB_ERROR_NO_DEVICE;
    }
    if (endpoint == controlPipe) {
        *transferred = length;
        return camera.take(data, size) ? LIBUSB_SUCCESS : LIBUSB_ERROR_PIPE;
    }
    return deliver(endpoint == dataPipe ? camera.takeStreamData(size) : camera.takeAnswer(), data,
        length, transferred);
}

int libusb_hotplug_register_callback(libusb_context* context, int, int, int, int, int,
    libusb_hotplug_callback_fn callback, void* listener, libusb_hotplug_callback_handle*)
{
    const HeldBus bus;
    *context = { callback, listener };
    return LIBUSB_SUCCESS;
}

void libusb_hotplug_deregister_callback(libusb_context* context, libusb_hotplug_callback_handle)
{
    const HeldBus bus;
    *context = {};
}

int libusb_handle_events_timeout(libusb_context* context, timeval* limit)
{
    HeldBus bus;
    bus->changed.wait_for(bus.lock, std::chrono::microseconds(limit->tv_usec),
        [context] { return context->left != nullptr; });
    const libusb_context told = *context;
    context->left = nullptr;
    bus.lock.unlock();
    return told.left == nullptr
        ? LIBUSB_SUCCESS
        : told.onLeft(context, told.left, LIBUSB_HOTPLUG_EVENT_DEVICE_LEFT, told.listener);
}

// clang-format off: nothing needs to be done, or nobody asks for it
void libusb_free_device_list(libusb_device**, int) { }
void libusb_free_config_descriptor(libusb_config_descriptor*) { }
libusb_device* libusb_get_device(libusb_device_handle* handle)
{
    return &handle->device;
}
int libusb_set_auto_detach_kernel_driver(libusb_device_handle*, int)
{
    return LIBUSB_SUCCESS;
}
int libusb_clear_halt(libusb_device_handle*, unsigned char)
{
    return LIBUSB_SUCCESS;
}
int libusb_control_transfer(libusb_device_handle*, std::uint8_t, std::uint8_t, std::uint16_t,
    std::uint16_t, unsigned char*, std::uint16_t, unsigned int)
{
    return 0;
}
libusb_transfer* libusb_alloc_transfer(int)
{
    return nullptr;
}
void libusb_free_transfer(libusb_transfer*) { }
int libusb_submit_transfer(libusb_transfer*)
{
    return LIBUSB_ERROR_NOT_SUPPORTED;
}
int libusb_cancel_transfer(libusb_transfer*)
{
    return LIBUSB_ERROR_NOT_SUPPORTED;
}
// clang-format on

} // extern "C"
