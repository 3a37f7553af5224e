#include "CameraSession.h"

#include "GlibError.h"
#include "StatusCodes.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <mutex>

namespace zqcameralib {

namespace {

constexpr std::uint16_t controlPort = 3956;
constexpr std::uint64_t versionRegister = 0;

using FlagsPointer = std::shared_ptr<CameraSession::Flags>;

/// Orders what both threads do with the flags' memory; the library's own locks would too, but race
/// detectors do not see them.
std::mutex& flagsMutex()
{
    static std::mutex mutex;
    return mutex;
}

void onControlLost(ArvDevice*, gpointer data)
{
    const std::lock_guard<std::mutex> lock(flagsMutex());
    (*static_cast<FlagsPointer*>(data))->controlLost = true;
}

void deleteFlags(gpointer data, GClosure*)
{
    const std::lock_guard<std::mutex> lock(flagsMutex());
    delete static_cast<FlagsPointer*>(data);
}

/// The local address from which the network reaches `device`; empty when it does not. Nothing is
/// sent.
std::string localAddressFor(const in_addr& device)
{
    const int handle = socket(AF_INET, SOCK_DGRAM, 0);
    if (handle < 0) {
        return {};
    }
    sockaddr_in peer {};
    peer.sin_family = AF_INET;
    peer.sin_addr = device;
    peer.sin_port = htons(controlPort);
    sockaddr_in own {};
    socklen_t size = sizeof own;
    const bool found = connect(handle, reinterpret_cast<const sockaddr*>(&peer), sizeof peer) == 0
        && getsockname(handle, reinterpret_cast<sockaddr*>(&own), &size) == 0;
    close(handle);
    std::array<char, INET_ADDRSTRLEN> text {};
    return found && inet_ntop(AF_INET, &own.sin_addr, text.data(), text.size()) != nullptr
        ? text.data()
        : std::string();
}

ArvDevice* openGigE(const std::string& address, GError** error)
{
    in_addr device {};
    const std::string local = inet_pton(AF_INET, address.c_str(), &device) == 1
        ? localAddressFor(device)
        : std::string();
    if (local.empty()) {
        g_set_error_literal(
            error, arv_device_error_quark(), ARV_DEVICE_ERROR_NOT_FOUND, "no network leads to it");
        return nullptr;
    }
    GInetAddress* from = g_inet_address_new_from_string(local.c_str());
    GInetAddress* to = g_inet_address_new_from_string(address.c_str());
    ArvDevice* opened = arv_gv_device_new(from, to, error);
    g_object_unref(from);
    g_object_unref(to);
    return opened;
}

ArvDevice* openUsb(const std::string& id, GError** error)
{
    ArvInterface* usb = arv_uv_interface_get_instance();
    arv_interface_update_device_list(usb);
    return arv_interface_open_device(usb, id.c_str(), error);
}

bool take(bool done, const GlibError& failure, AccessError& error)
{
    if (!done || failure) {
        error.code = failure ? libraryErrorCode(failure.get()->domain, failure.get()->code)
                             : deviceErrorBase + ARV_DEVICE_ERROR_UNKNOWN;
        error.message = failure ? failure.get()->message : "the camera refused the access";
        return false;
    }
    return true;
}

} // namespace

std::shared_ptr<CameraSession> CameraSession::open(const CameraPlace& place, std::string& error)
{
    GlibError failure;
    ArvDevice* device = place.protocol == "USB3Vision" ? openUsb(place.address, failure.out())
                                                       : openGigE(place.address, failure.out());
    if (device == nullptr) {
        error = place.address + ": " + (failure ? failure.get()->message : "cannot be opened");
        return nullptr;
    }
    return std::shared_ptr<CameraSession>(new CameraSession(device));
}

CameraSession::CameraSession(ArvDevice* device)
    : m_device(device)
{
    auto* shared = new FlagsPointer(m_flags);
    {
        const std::lock_guard<std::mutex> lock(flagsMutex());
    }
    m_handler = g_signal_connect_data(device, "control-lost",
        reinterpret_cast<GCallback>(onControlLost), shared, deleteFlags, GConnectFlags(0));
}

CameraSession::~CameraSession()
{
    g_signal_handler_disconnect(m_device, m_handler);
    g_object_unref(m_device);
}

bool CameraSession::isController() const
{
    return !ARV_IS_GV_DEVICE(m_device) || arv_gv_device_is_controller(ARV_GV_DEVICE(m_device));
}

void CameraSession::leaveControl()
{
    GlibError ignored;
    if (ARV_IS_GV_DEVICE(m_device)) {
        arv_gv_device_leave_control(ARV_GV_DEVICE(m_device), ignored.out());
    }
}

bool CameraSession::retakeControl()
{
    GlibError failure;
    if (!ARV_IS_GV_DEVICE(m_device)
        || !arv_gv_device_take_control(ARV_GV_DEVICE(m_device), failure.out())) {
        return false;
    }
    guint32 version = 0;
    m_flags->controlLost = false;
    return arv_device_read_register(m_device, versionRegister, &version, failure.out()) != FALSE;
}

std::string CameraSession::description() const
{
    std::size_t size = 0;
    const char* text = arv_device_get_genicam_xml(m_device, &size);
    return text == nullptr ? std::string() : std::string(text, size);
}

bool CameraSession::read(std::uint64_t address, std::uint8_t* buffer, std::size_t size,
    AccessKind kind, AccessError& error)
{
    GlibError failure;
    if (kind == AccessKind::Register) {
        guint32 value = 0;
        const bool done
            = arv_device_read_register(m_device, address, &value, failure.out()) != FALSE;
        for (std::size_t i = 0; i < 4; ++i) {
            buffer[i] = static_cast<std::uint8_t>(value >> (24U - 8U * i));
        }
        return take(done, failure, error);
    }
    const auto count = static_cast<guint32>(size);
    return take(arv_device_read_memory(m_device, address, count, buffer, failure.out()) != FALSE,
        failure, error);
}

bool CameraSession::write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size,
    AccessKind kind, AccessError& error)
{
    GlibError failure;
    if (kind == AccessKind::Register) {
        guint32 value = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            value = value << 8U | buffer[i];
        }
        return take(arv_device_write_register(m_device, address, value, failure.out()) != FALSE,
            failure, error);
    }
    // The library takes, but does not change, a buffer without const.
    std::string copy(reinterpret_cast<const char*>(buffer), size);
    const auto count = static_cast<guint32>(size);
    return take(
        arv_device_write_memory(m_device, address, count, copy.data(), failure.out()) != FALSE,
        failure, error);
}

} // namespace zqcameralib
