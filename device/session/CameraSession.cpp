// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "session/CameraSession.h"

#include "base/AravisVersions.h"
#include "base/LibraryLock.h"
#include "base/StatusCodes.h"
#include "session/DeviceErrors.h"
#include "session/DeviceOpening.h"
#include "words/Words.h"

#include <array>
#include <chrono>
#include <mutex>
#include <thread>
#include <utility>

namespace zqcameralib {

namespace {

using Clock = std::chrono::steady_clock;

// GigE Vision 2.0, chapter 27: bootstrap registers.
constexpr Register privilegeRegister { 0x0A00, 4 };
constexpr std::uint32_t controlBits = 0x3; ///< control, exclusive access
/// Both places of the description, model and serial number.
constexpr std::array<Register, 4> identityPlaces { { { 0x0200, 512 }, { 0x0400, 512 },
    { 0x0068, 32 }, { 0x00D8, 16 } } };
/// GenCP 1.3: the version of the bootstrap registers.
constexpr Register usbVersionRegister { 0, 4 };

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

/// Over USB the library tells in this way that the camera is gone.
void onControlLost(ArvDevice* device, gpointer data)
{
    const std::lock_guard<std::mutex> lock(healthMutex());
    Health& health = **static_cast<HealthPointer*>(data);
    if (ARV_IS_UV_DEVICE(device)) {
        health.unplugged = true;
        return;
    }
    health.controlLost = true;
    health.isTold = true;
}

void deleteHealth(gpointer data, GClosure*)
{
    const std::lock_guard<std::mutex> lock(healthMutex());
    const std::unique_ptr<HealthPointer> last(static_cast<HealthPointer*>(data));
}

} // namespace

Result<std::shared_ptr<CameraSession>> CameraSession::open(
    const CameraPlace& place, OpeningProgress& progress)
{
    progress.step = OpeningProgress::Step::Waiting;
    const LibraryLock parser(LibraryPart::Parser, Clock::now() + libraryLimit,
        [&progress] { return progress.isCancelled.load(); });
    if (!parser) {
        return Status(stillWorking,
            place.words(translated("another camera is being opened and does not come to an end")));
    }
    progress.step = OpeningProgress::Step::Reading;
    Result<GObjectPointer<ArvDevice>> device = openDevice(place, progress);
    if (!device.isOk()) {
        return device.status();
    }
    std::shared_ptr<CameraSession> session(new CameraSession(std::move(device.value())));
    if (!session->readIdentity(session->m_identity)) {
        return Status(cameraLost,
            place.words(translated("the camera stopped answering while it was opened")));
    }
    if (progress.isCancelled) { // closed before anybody else opens one
        return Status(cameraLost, place.words(translated("cancelled")));
    }
    return session;
}

CameraSession::CameraSession(GObjectPointer<ArvDevice> device)
    : m_device(std::move(device))
{
    auto shared = std::make_unique<HealthPointer>(m_health);
    {
        const std::lock_guard<std::mutex> lock(healthMutex());
    }
    m_handler = g_signal_connect_data(m_device.get(), "control-lost",
        reinterpret_cast<GCallback>(onControlLost), shared.release(), deleteHealth,
        GConnectFlags(0));
    m_hasControl = isController();
}

CameraSession::~CameraSession()
{
    g_signal_handler_disconnect(m_device.get(), m_handler);
}

bool CameraSession::isController() const
{
    return !isGige() || arv_gv_device_is_controller(gige());
}

void CameraSession::leaveControl()
{
    m_hasControl = false;
    GlibError ignored;
    if (isGige()) {
        arv_gv_device_leave_control(gige(), ignored.out());
    }
}

bool CameraSession::readIdentity(Identity& identity)
{
    identity.clear();
    if (!isGige()) {
        return true;
    }
    for (const Register& place : identityPlaces) {
        std::string bytes(place.size, '\0');
        const Status status
            = read(place, reinterpret_cast<std::uint8_t*>(bytes.data()), AccessKind::Memory);
        if (m_health->unanswered) {
            return false;
        }
        identity.push_back(status.isOk() ? bytes : std::string());
    }
    return true;
}

/// The library's own thread first tells that control is lost, and only then ends it: control that
/// is taken in between would end as well.
void CameraSession::awaitEndOfControl()
{
    const Clock::time_point end = Clock::now() + endOfControl;
    while (m_health->isTold && isController() && Clock::now() < end) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    m_health->isTold = false;
}

/// A camera that is still plugged in is the same. It is not opened anew: what is left of this
/// session, such as its images, would be in the way.
CameraSession::Retaken CameraSession::askAgain(Status& refusal)
{
    m_health->unanswered = false;
    watch();
    if (m_health->unplugged) {
        return Retaken::No;
    }
    refusal = { cameraLost, translated("the camera does not answer") };
    return m_health->unanswered ? Retaken::Refused : Retaken::Yes;
}

CameraSession::Retaken CameraSession::retake(bool readOnly, Status& refusal)
{
    if (!isGige()) {
        return askAgain(refusal);
    }
    awaitEndOfControl();
    // Before: what is told from here on is true of the new control.
    m_health->controlLost = false;
    m_health->unanswered = false;
    m_health->exchanged = false;
    GlibError failure;
    bool isDenied = false;
    if (!readOnly && !arv_gv_device_take_control(gige(), failure.out())) {
        if (!failure || isAnswerMissing(*failure.get())) {
            return Retaken::No;
        }
        refusal = accessFailure(failure);
        isDenied = aravis::deviceErrorCode(*failure.get())
            == ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED;
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
            refusal = { notReadable, translated("the camera does not let itself be read") };
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
    if (isGige()) {
        return m_hasControl ? watchControl() : watchIdentity();
    }
    std::array<std::uint8_t, 4> bytes {};
    static_cast<void>(read(usbVersionRegister, bytes.data(), AccessKind::Memory)); // for the health
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
    if (read(privilegeRegister, bytes.data(), AccessKind::Register).isOk()
        && (bytes[3] & controlBits) == 0) {
        m_health->controlLost = true;
    }
}

/// Who only looks learns it from what the camera says of itself first.
void CameraSession::watchIdentity()
{
    const Register& place = identityPlaces.front();
    std::string bytes(place.size, '\0');
    const Status status
        = read(place, reinterpret_cast<std::uint8_t*>(bytes.data()), AccessKind::Memory);
    if (status.isOk() && bytes != m_identity.front()) {
        m_health->exchanged = true;
    }
}

Status CameraSession::finish(gboolean isDone, const GlibError& failure)
{
    m_health->waitingSince = 0;
    if (isDone != FALSE && !failure) {
        return {};
    }
    if (failure && isAnswerMissing(*failure.get())) {
        m_health->unanswered = true;
    }
    // No other application controls a camera that is open over USB: this is about the register.
    constexpr int denied = ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED;
    const Status status = accessFailure(failure);
    return isGige() || status.code() != deviceErrorBase + denied
        ? status
        : Status(deviceErrorBase + ARV_DEVICE_ERROR_PROTOCOL_ERROR,
            translated("the camera does not allow this access"));
}

std::string CameraSession::description() const
{
    std::size_t size = 0;
    const char* text = arv_device_get_genicam_xml(m_device.get(), &size);
    return text == nullptr ? std::string() : std::string(text, size);
}

} // namespace zqcameralib
