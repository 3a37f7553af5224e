#include "CameraLink.h"

#include "StatusCodes.h"

#include <algorithm>
#include <atomic>
#include <utility>
#include <vector>

namespace zqcameralib {

namespace {

/// A thread that has not come back from one access by then never will.
constexpr std::chrono::milliseconds stuckAfter(6000);
/// An access that takes longer has met a lost packet or a camera in trouble.
constexpr std::chrono::milliseconds slowAccess(250);
/// Slow accesses less far apart add up; a packet lost now and then is forgiven.
constexpr std::chrono::seconds forgivenAfter(5);

const char* const lostText = "the camera does not answer any more; reconnect to it";
const char* const tooSlowText
    = "the camera answers too late, or packets to it get lost; reconnect to it";
const char* const controlLostText
    = "the control of the camera was lost, to another application or by its time-out; reconnect";

using Clock = std::chrono::steady_clock;

std::chrono::milliseconds since(Clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start);
}

bool meansLoss(int code)
{
    return code == deviceErrorBase + ARV_DEVICE_ERROR_TIMEOUT
        || code == deviceErrorBase + ARV_DEVICE_ERROR_NOT_CONNECTED;
}

/// How an access ended, as the two threads share it.
struct Result {
    AccessError error;
    bool done = false;
};

} // namespace

/// Opening a camera, or finding it again, as the two threads share it.
struct CameraLink::Attempt {
    CameraPlace place;
    CameraAccess access = CameraAccess::Control;
    std::shared_ptr<CameraSession> session; ///< in: the lost one; out: the one to use
    std::string description;
    std::string error;
    bool isReadOnly = false;
    std::atomic<bool> isOver { false };
};

CameraLink::CameraLink(CameraPlace place, CameraAccess access)
    : m_place(std::move(place))
    , m_access(access)
{
}

void CameraLink::attempt(const std::shared_ptr<Attempt>& attempt)
{
    // The old session ends before a new one begins: it would give the control away at its end.
    if (!attempt->session || attempt->access == CameraAccess::ReadOnly
        || !attempt->session->retakeControl()) {
        attempt->session.reset();
        attempt->session = CameraSession::open(attempt->place, attempt->error);
    }
    if (attempt->session) {
        CameraSession& session = *attempt->session;
        if (attempt->access == CameraAccess::ReadOnly) {
            session.leaveControl();
        }
        attempt->isReadOnly = attempt->access == CameraAccess::ReadOnly || !session.isController();
        if (attempt->isReadOnly && attempt->access == CameraAccess::Control) {
            attempt->error = attempt->place.address + ": another application controls the camera";
            attempt->session.reset();
        } else {
            attempt->description = session.description();
        }
    }
    attempt->isOver = true;
}

bool CameraLink::adopt(Attempt& attempt, std::string& error)
{
    if (!attempt.session) {
        error = attempt.error;
        return false;
    }
    m_session = std::move(attempt.session);
    m_isReadOnly = attempt.isReadOnly;
    if (m_description.empty()) {
        m_description = std::move(attempt.description);
    } else if (m_description != attempt.description) {
        lose(cameraLost, "the camera has another description now; open it anew");
        error = m_loss.message;
        return false;
    }
    m_loss = {};
    m_slowTime = std::chrono::milliseconds(0);
    return true;
}

std::unique_ptr<CameraLink> CameraLink::open(
    const CameraPlace& place, CameraAccess access, std::string& error)
{
    std::unique_ptr<CameraLink> link(new CameraLink(place, access));
    auto attempt = std::make_shared<Attempt>();
    attempt->place = place;
    attempt->access = access;
    if (!link->m_thread->run([attempt] { CameraLink::attempt(attempt); }, openLimit)) {
        link->abandonThread();
        error = place.address + ": the camera does not answer";
        return nullptr;
    }
    return link->adopt(*attempt, error) ? std::move(link) : nullptr;
}

CameraLink::~CameraLink()
{
    // The session ends on its thread: that talks to the camera once more.
    m_thread->post([session = std::move(m_session), attempt = std::move(m_attempt)]() mutable {
        if (attempt) {
            attempt->session.reset();
        }
        session.reset();
    });
    if (m_loss.code != 0) {
        abandonThread();
    }
}

void CameraLink::abandonThread()
{
    m_thread->finishWithin(std::chrono::milliseconds(0));
    m_thread = std::make_unique<AccessThread>();
}

void CameraLink::lose(int code, const std::string& message)
{
    m_loss = { code, m_place.address + ": " + message };
}

bool CameraLink::isLost()
{
    if (m_loss.code == 0 && !m_isReadOnly && m_session && m_session->flags()->controlLost) {
        lose(cameraLost, controlLostText);
    }
    return m_loss.code != 0;
}

bool CameraLink::runWithSession(
    std::function<void(CameraSession&)> task, std::chrono::milliseconds limit, AccessError& error)
{
    if (isLost()) {
        error = m_loss;
        return false;
    }
    if (!m_thread->run([session = m_session, work = std::move(task)] { work(*session); }, limit)) {
        lose(cameraLost, m_slowTime.count() == 0 ? lostText : tooSlowText);
        error = m_loss;
        return false;
    }
    return true;
}

std::chrono::milliseconds CameraLink::timeLeft()
{
    if (Clock::now() - m_lastSlow > forgivenAfter) {
        m_slowTime = std::chrono::milliseconds(0);
    }
    return accessLimit - m_slowTime;
}

void CameraLink::account(std::chrono::milliseconds taken)
{
    if (taken > slowAccess) {
        m_slowTime += taken;
        m_lastSlow = Clock::now();
    }
    if (m_slowTime >= accessLimit) {
        lose(cameraLost, tooSlowText);
    }
}

bool CameraLink::transfer(
    std::function<bool(CameraSession&, AccessError&)> access, AccessError& error)
{
    const Clock::time_point start = Clock::now();
    auto result = std::make_shared<Result>();
    const auto task = [result, access = std::move(access)](CameraSession& session) {
        result->done = access(session, result->error);
    };
    if (!runWithSession(task, timeLeft(), error)) {
        return false;
    }
    account(since(start));
    if (!result->done && m_loss.code == 0 && meansLoss(result->error.code)) {
        lose(cameraLost, lostText);
    }
    if (!result->done) {
        error = m_loss.code != 0 ? m_loss : result->error;
    }
    return result->done;
}

bool CameraLink::read(std::uint64_t address, std::uint8_t* buffer, std::size_t size,
    AccessKind kind, AccessError& error)
{
    auto bytes = std::make_shared<std::vector<std::uint8_t>>(size);
    const auto access = [bytes, address, kind](CameraSession& session, AccessError& failure) {
        return session.read(address, bytes->data(), bytes->size(), kind, failure);
    };
    if (!transfer(access, error)) {
        return false;
    }
    std::copy(bytes->begin(), bytes->end(), buffer);
    return true;
}

bool CameraLink::write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size,
    AccessKind kind, AccessError& error)
{
    if (m_isReadOnly) {
        error = { accessDenied, m_place.address + ": opened for reading only" };
        return false;
    }
    const std::vector<std::uint8_t> bytes(buffer, buffer + size);
    const auto access = [bytes, address, kind](CameraSession& session, AccessError& failure) {
        return session.write(address, bytes.data(), bytes.size(), kind, failure);
    };
    const bool done = transfer(access, error);
    // A camera does not tell when another application, or a restart, has taken its control away.
    if (!done && error.code == deviceErrorBase + ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED) {
        lose(cameraLost, controlLostText);
        error = m_loss;
    }
    return done;
}

void CameraLink::readTogether(std::vector<Request>& requests)
{
    struct Batch {
        std::vector<Request> requests;
        std::chrono::milliseconds last { 0 };
    };
    auto batch = std::make_shared<Batch>(Batch { requests, {} });
    const auto task = [batch](CameraSession& session) {
        const Clock::time_point start = Clock::now();
        for (Request& request : batch->requests) {
            const Clock::time_point begin = Clock::now();
            AccessError ignored;
            request.done = session.read(
                request.address, request.bytes.data(), request.bytes.size(), request.kind, ignored);
            batch->last = since(begin);
            if (!request.done || since(start) > slowAccess) {
                return;
            }
        }
    };
    AccessError ignored;
    if (runWithSession(task, timeLeft(), ignored)) {
        requests = std::move(batch->requests);
        account(batch->last);
    }
}

bool CameraLink::reconnect(std::string& error)
{
    if (!isLost()) {
        return true;
    }
    if (m_thread->busyFor() > stuckAfter) {
        abandonThread();
        m_attempt.reset();
    }
    if (!m_attempt) {
        m_attempt = std::make_shared<Attempt>();
        m_attempt->place = m_place;
        m_attempt->access = m_access;
        m_attempt->session = std::move(m_session);
        m_thread->post([attempt = m_attempt] { CameraLink::attempt(attempt); });
    }
    // The wait ends when all that was posted before has.
    if (!m_thread->run([] {}, accessLimit) || !m_attempt->isOver) {
        error = m_place.address + ": the camera does not answer yet";
        return false;
    }
    const std::shared_ptr<Attempt> attempt = std::move(m_attempt);
    return adopt(*attempt, error);
}

} // namespace zqcameralib
