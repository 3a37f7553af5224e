#include "session/CameraSession.h"

#include "base/LibraryLock.h"
#include "base/StatusCodes.h"
#include "session/GigeProbe.h"
#include "session/SourceFilter.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <mutex>

namespace zqcameralib {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::uint16_t controlPort = 3956;
// GigE Vision 2.0, chapter 27: bootstrap registers.
constexpr std::uint64_t privilegeRegister = 0x0A00;
constexpr std::uint32_t controlBits = 0x3; ///< control, exclusive access
/// Both places of the description, model and serial number.
struct IdentityPlace {
    std::uint64_t address;
    std::size_t size;
};
constexpr std::array<IdentityPlace, 4> identityPlaces { { { 0x0200, 512 }, { 0x0400, 512 },
    { 0x0068, 32 }, { 0x00D8, 16 } } };
/// GenCP 1.3: the version of the bootstrap registers.
constexpr std::uint64_t usbVersionRegister = 0;

/// How long others that are being opened are waited for.
constexpr std::chrono::seconds libraryLimit(60);
constexpr int openTries = 2;
/// More than a thread that was interrupted needs to go on.
constexpr std::chrono::milliseconds endOfControl(500);

using Health = CameraSession::Health;
using HealthPointer = std::shared_ptr<Health>;

/// Orders what both threads do with the health's memory; the library's own locks would too, but
/// race detectors do not see them.
std::mutex& healthMutex()
{
    static std::mutex mutex;
    return mutex;
}

void onControlLost(ArvDevice*, gpointer data)
{
    const std::lock_guard<std::mutex> lock(healthMutex());
    Health& health = **static_cast<HealthPointer*>(data);
    health.controlLost = true;
    health.isTold = true;
}

void deleteHealth(gpointer data, GClosure*)
{
    const std::lock_guard<std::mutex> lock(healthMutex());
    delete static_cast<HealthPointer*>(data);
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

/// The socket of the device that `open` makes hears no other address than the camera's from then
/// on. The library shows it to nobody, but it is the one that was not there before.
template <typename Open>
ArvDevice* openFiltered(const std::string& local, const std::string& address, Open open)
{
    const std::vector<int> before = looseSockets(local);
    ArvDevice* device = open();
    std::vector<int> added;
    for (const int handle : looseSockets(local)) {
        if (std::find(before.begin(), before.end(), handle) == before.end()) {
            added.push_back(handle);
        }
    }
    if (device != nullptr && added.size() == 1) {
        hearOnly(added.front(), address);
    }
    return device;
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
    ArvDevice* opened = openFiltered(
        local, address, [from, to, error] { return arv_gv_device_new(from, to, error); });
    g_object_unref(from);
    g_object_unref(to);
    return opened;
}

ArvDevice* openUsb(const std::string& id, GError** error)
{
    const LibraryLock interfaces(LibraryPart::Interfaces, Clock::now() + libraryLimit);
    if (!interfaces) {
        g_set_error_literal(error, arv_device_error_quark(), ARV_DEVICE_ERROR_NOT_FOUND,
            "the search for cameras does not end");
        return nullptr;
    }
    ArvInterface* usb = arv_uv_interface_get_instance();
    arv_interface_update_device_list(usb);
    return arv_interface_open_device(usb, id.c_str(), error);
}

bool isUsb(const CameraPlace& place)
{
    return place.protocol == "USB3Vision";
}

bool isAnswerMissing(const GError& error)
{
    return error.domain == arv_device_error_quark()
        && (error.code == ARV_DEVICE_ERROR_TIMEOUT || error.code == ARV_DEVICE_ERROR_NOT_CONNECTED);
}

bool isDescriptionMissing(const GError* error)
{
    return error != nullptr && error->domain == arv_device_error_quark()
        && error->code == ARV_DEVICE_ERROR_GENICAM_NOT_FOUND;
}

/// In words for a user; the library below names its functions.
std::string refusalText(const GError& error)
{
    if (error.domain != arv_device_error_quark()) {
        return error.message;
    }
    switch (error.code) {
    case ARV_DEVICE_ERROR_TIMEOUT:
    case ARV_DEVICE_ERROR_NOT_CONNECTED:
        return "the camera does not answer";
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_BUSY:
        return "the camera is busy";
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED:
        return "access denied by the camera; another application may control it";
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_ADDRESS:
        return "the camera has no such register";
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT:
        return "the camera does not let the register be written";
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_INVALID_PARAMETER:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_BAD_ALIGNMENT:
    case ARV_DEVICE_ERROR_PROTOCOL_ERROR_NOT_IMPLEMENTED:
        return "the camera does not take such an access";
    default:
        return error.message;
    }
}

std::string openingError(const GError* error)
{
    if (error == nullptr) {
        return "it cannot be opened";
    }
    if (isAnswerMissing(*error)) {
        return "the camera stopped answering while it was opened; packets to or from it get lost";
    }
    if (isDescriptionMissing(error)) {
        return "the camera's description did not arrive; packets to or from it get lost, or it has "
               "none that can be read";
    }
    return refusalText(*error);
}

/// Packets of 512 bytes, and some for the rest.
std::int64_t expectedTime(const GigeProbe& probe)
{
    return probe.roundTrip.count() * static_cast<std::int64_t>(probe.descriptionSize / 512 + 30);
}

} // namespace

bool CameraSession::answers(const CameraPlace& place, OpeningProgress& progress, std::string& error)
{
    if (isUsb(place)) {
        return true;
    }
    progress.step = OpeningProgress::Step::Asking;
    const GigeProbe probe = probeGige(place.address, progress.isCancelled);
    progress.expectedMs = expectedTime(probe);
    if (probe.answer == GigeProbe::Answer::NoWay) {
        error = place.address + ": no network of this computer leads to this address";
    } else if (probe.answer == GigeProbe::Answer::None) {
        error = place.address + ": no camera answers there; check power, cable and the address";
    } else if (probe.answer == GigeProbe::Answer::Waits) {
        error = place.address + ": the camera is busy and asks to wait";
    }
    return probe.answer == GigeProbe::Answer::Given || probe.answer == GigeProbe::Answer::Refused;
}

std::shared_ptr<CameraSession> CameraSession::open(
    const CameraPlace& place, OpeningProgress& progress, std::string& error)
{
    progress.step = OpeningProgress::Step::Waiting;
    const LibraryLock parser(LibraryPart::Parser, Clock::now() + libraryLimit,
        [&progress] { return progress.isCancelled.load(); });
    if (!parser) {
        error = place.address + ": another camera is being opened and does not come to an end";
        return nullptr;
    }
    progress.step = OpeningProgress::Step::Reading;
    for (int tries = 1;; ++tries) {
        GlibError failure;
        ArvDevice* device = isUsb(place) ? openUsb(place.address, failure.out())
                                         : openGigE(place.address, failure.out());
        if (device != nullptr) {
            std::shared_ptr<CameraSession> session(new CameraSession(device));
            if (!session->readIdentity(session->m_identity)) {
                error = place.address + ": the camera stopped answering while it was opened";
                return nullptr;
            }
            // One that nobody wants any more is closed before anybody else opens one.
            return progress.isCancelled ? nullptr : session;
        }
        if (progress.isCancelled || tries == openTries || !isDescriptionMissing(failure.get())) {
            error = place.address + ": " + openingError(failure.get());
            return nullptr;
        }
    }
}

CameraSession::CameraSession(ArvDevice* device)
    : m_device(device)
{
    auto* shared = new HealthPointer(m_health);
    {
        const std::lock_guard<std::mutex> lock(healthMutex());
    }
    m_handler = g_signal_connect_data(device, "control-lost",
        reinterpret_cast<GCallback>(onControlLost), shared, deleteHealth, GConnectFlags(0));
    m_hasControl = isController();
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
    m_hasControl = false;
    GlibError ignored;
    if (ARV_IS_GV_DEVICE(m_device)) {
        arv_gv_device_leave_control(ARV_GV_DEVICE(m_device), ignored.out());
    }
}

bool CameraSession::readIdentity(Identity& identity)
{
    identity.clear();
    if (!ARV_IS_GV_DEVICE(m_device)) {
        return true;
    }
    for (const IdentityPlace& place : identityPlaces) {
        std::string bytes(place.size, '\0');
        AccessError ignored;
        const bool done = read(place.address, reinterpret_cast<std::uint8_t*>(bytes.data()),
            bytes.size(), AccessKind::Memory, ignored);
        if (m_health->unanswered) {
            return false;
        }
        identity.push_back(done ? bytes : std::string());
    }
    return true;
}

/// The library's own thread first tells that control is lost, and only then ends it: control that
/// is taken in between would end as well.
void CameraSession::awaitEndOfControl()
{
    const Clock::time_point end = Clock::now() + endOfControl;
    while (m_health->isTold && isController() && Clock::now() < end) {
        usleep(1000);
    }
    m_health->isTold = false;
}

CameraSession::Retaken CameraSession::retake(bool readOnly, std::string& error)
{
    if (!ARV_IS_GV_DEVICE(m_device)) {
        return Retaken::No;
    }
    awaitEndOfControl();
    // Before: what is told from here on is true of the new control.
    m_health->controlLost = false;
    m_health->unanswered = false;
    m_health->exchanged = false;
    GlibError failure;
    bool isDenied = false;
    if (!readOnly && !arv_gv_device_take_control(ARV_GV_DEVICE(m_device), failure.out())) {
        if (!failure || isAnswerMissing(*failure.get())) {
            return Retaken::No;
        }
        error = refusalText(*failure.get());
        isDenied = failure.get()->code == ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED;
        if (!isDenied) {
            return Retaken::Refused;
        }
    }
    m_hasControl = !readOnly && !isDenied;
    Identity identity;
    if (!readIdentity(identity)) {
        return Retaken::No;
    }
    for (std::size_t i = 0; i < identity.size(); ++i) {
        if (identity[i].empty() && !m_identity[i].empty()) {
            error = "the camera does not let itself be read";
            return isDenied ? Retaken::Denied : Retaken::Refused;
        }
    }
    if (identity != m_identity) {
        return Retaken::OtherCamera;
    }
    return isDenied ? Retaken::Denied : Retaken::Yes;
}

void CameraSession::watch()
{
    if (ARV_IS_GV_DEVICE(m_device)) {
        return m_hasControl ? watchControl() : watchIdentity();
    }
    std::array<std::uint8_t, 4> bytes {};
    AccessError ignored;
    read(usbVersionRegister, bytes.data(), bytes.size(), AccessKind::Memory, ignored);
}

/// A camera that was restarted or exchanged knows no controller. The library's own thread may also
/// come late to its end of an earlier control, and stop to keep the one that was taken meanwhile.
void CameraSession::watchControl()
{
    if (!isController()) {
        m_health->controlLost = true;
        return;
    }
    std::array<std::uint8_t, 4> bytes {};
    AccessError ignored;
    if (read(privilegeRegister, bytes.data(), bytes.size(), AccessKind::Register, ignored)
        && (bytes[3] & controlBits) == 0) {
        m_health->controlLost = true;
    }
}

/// Who only looks learns it from what the camera says of itself first.
void CameraSession::watchIdentity()
{
    std::string bytes(identityPlaces.front().size, '\0');
    AccessError ignored;
    if (read(identityPlaces.front().address, reinterpret_cast<std::uint8_t*>(bytes.data()),
            bytes.size(), AccessKind::Memory, ignored)
        && bytes != m_identity.front()) {
        m_health->exchanged = true;
    }
}

bool CameraSession::finish(bool done, const GlibError& failure, AccessError& error)
{
    m_health->waitingSince = 0;
    if (done && !failure) {
        return true;
    }
    if (failure && isAnswerMissing(*failure.get())) {
        m_health->unanswered = true;
    }
    error.code = failure ? libraryErrorCode(failure.get()->domain, failure.get()->code)
                         : deviceErrorBase + ARV_DEVICE_ERROR_UNKNOWN;
    error.message = failure ? refusalText(*failure.get()) : "the camera refused the access";
    return false;
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
    m_health->waitingSince = Clock::now().time_since_epoch().count();
    if (kind == AccessKind::Register) {
        guint32 value = 0;
        const bool done
            = arv_device_read_register(m_device, address, &value, failure.out()) != FALSE;
        for (std::size_t i = 0; i < 4; ++i) {
            buffer[i] = static_cast<std::uint8_t>(value >> (24U - 8U * i));
        }
        return finish(done, failure, error);
    }
    const auto count = static_cast<guint32>(size);
    return finish(arv_device_read_memory(m_device, address, count, buffer, failure.out()) != FALSE,
        failure, error);
}

bool CameraSession::write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size,
    AccessKind kind, AccessError& error)
{
    GlibError failure;
    m_health->waitingSince = Clock::now().time_since_epoch().count();
    if (kind == AccessKind::Register) {
        guint32 value = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            value = value << 8U | buffer[i];
        }
        return finish(arv_device_write_register(m_device, address, value, failure.out()) != FALSE,
            failure, error);
    }
    // The library takes, but does not change, a buffer without const.
    std::string copy(reinterpret_cast<const char*>(buffer), size);
    const auto count = static_cast<guint32>(size);
    return finish(
        arv_device_write_memory(m_device, address, count, copy.data(), failure.out()) != FALSE,
        failure, error);
}

} // namespace zqcameralib
