#include "link/CameraLink.h"

#include "base/StatusCodes.h"
#include "link/RegisterBatch.h"

#include <algorithm>
#include <utility>

namespace zqcameralib {

namespace {

/// How long a camera that nobody asks anything is left alone.
constexpr std::chrono::seconds watchPeriod(1);
/// How often somebody who waits looks whether it still makes sense.
constexpr std::chrono::milliseconds waitSlice(50);
/// How long opening may take beyond what it is expected to: packets get lost, cameras are busy.
constexpr std::chrono::seconds openSlack(30);

const char* const silentText = "the camera does not answer";
const char* const lostText = "the camera does not answer any more; reconnect to it";
const char* const exchangedText = "another camera is there now; reconnect to it";
const char* const controlLostText = "control of the camera was lost; reconnect to take it back";

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
    bool isOtherCamera = false;
    std::shared_ptr<OpeningProgress> progress = std::make_shared<OpeningProgress>();
    std::atomic<bool> isOver { false };
};

CameraLink::CameraLink(CameraPlace place, CameraAccess access)
    : m_place(std::move(place))
    , m_access(access)
{
}

/// Leaves the session in place where it can be used again, or where another try makes sense.
void CameraLink::findAgain(Attempt& attempt)
{
    if (!CameraSession::answers(attempt.place, *attempt.progress, attempt.error)) {
        return;
    }
    std::string refusal;
    switch (attempt.session->retake(attempt.access == CameraAccess::ReadOnly, refusal)) {
    case CameraSession::Retaken::Yes:
        return;
    case CameraSession::Retaken::Denied:
        attempt.isReadOnly = true;
        if (attempt.access == CameraAccess::Control) {
            attempt.error = attempt.place.address + ": another application controls the camera";
        }
        return;
    case CameraSession::Retaken::Refused:
        attempt.error = attempt.place.address + ": " + refusal;
        return;
    case CameraSession::Retaken::OtherCamera:
        attempt.isOtherCamera = true;
        attempt.session->leaveControl(); // a stream may keep the session's device
        break;
    case CameraSession::Retaken::No:
        break;
    }
    // The old session ends before a new one begins: it would give the control away at its end.
    attempt.session.reset();
    openAnew(attempt);
}

void CameraLink::openAnew(Attempt& attempt)
{
    attempt.session = CameraSession::open(attempt.place, *attempt.progress, attempt.error);
    if (!attempt.session) {
        return;
    }
    attempt.description = attempt.session->description();
    if (attempt.access == CameraAccess::ReadOnly) {
        attempt.session->leaveControl();
    } else if (attempt.access == CameraAccess::Control && !attempt.session->isController()) {
        attempt.error = attempt.place.address + ": another application controls the camera";
        attempt.session.reset();
    }
    attempt.isReadOnly = attempt.session && !attempt.session->isController();
}

void CameraLink::attempt(const std::shared_ptr<Attempt>& attempt)
{
    if (attempt->session) {
        findAgain(*attempt);
    } else if (CameraSession::answers(attempt->place, *attempt->progress, attempt->error)) {
        openAnew(*attempt);
    }
    attempt->isReadOnly = attempt->isReadOnly || attempt->access == CameraAccess::ReadOnly;
    attempt->isOver = true;
}

bool CameraLink::adopt(Attempt& attempt, std::string& error)
{
    m_session = std::move(attempt.session);
    error = attempt.error;
    if (!m_session || !error.empty()) {
        return false;
    }
    m_isReadOnly = attempt.isReadOnly;
    if (!attempt.description.empty()) {
        attempt.isOtherCamera = attempt.isOtherCamera || m_description != attempt.description;
        m_description = std::move(attempt.description);
    }
    m_cameraNumber += attempt.isOtherCamera ? 1 : 0;
    m_loss = {};
    ++m_health->connection;
    m_health->lost = false;
    watch();
    return true;
}

void CameraLink::watch()
{
    m_thread->whenIdle(
        [weak = std::weak_ptr<CameraSession>(m_session)] {
            if (const std::shared_ptr<CameraSession> session = weak.lock()) {
                session->watch();
            }
        },
        watchPeriod);
}

std::unique_ptr<CameraLink> CameraLink::open(const CameraPlace& place, CameraAccess access,
    std::string& error, const std::shared_ptr<OpeningProgress>& progress)
{
    std::unique_ptr<CameraLink> link(new CameraLink(place, access));
    auto attempt = std::make_shared<Attempt>();
    attempt->place = place;
    attempt->access = access;
    if (progress) {
        attempt->progress = progress;
    }
    const OpeningProgress& state = *attempt->progress;
    const Clock::time_point start = Clock::now();
    const auto isInTime = [&] {
        return Clock::now() - start < openSlack + std::chrono::milliseconds(4 * state.expectedMs);
    };
    link->m_thread->post([attempt] { CameraLink::attempt(attempt); });
    while (!attempt->isOver && !state.isCancelled && isInTime()) {
        link->m_thread->run([] {}, Clock::now() + waitSlice);
    }
    if (!attempt->isOver) {
        error = place.address
            + (state.isCancelled ? ": cancelled"
                    : state.step == OpeningProgress::Step::Waiting
                    ? ": another camera is being opened and does not come to an end"
                    : ": the camera does not hand out its description");
        attempt->progress->isCancelled = true;
        link->abandonThread();
        return nullptr;
    }
    return link->adopt(*attempt, error) ? std::move(link) : nullptr;
}

CameraLink::~CameraLink()
{
    const bool isUseless = CameraLink::isLost();
    m_thread->whenIdle({}, watchPeriod);
    if (m_attempt) {
        m_attempt->progress->isCancelled = true;
    }
    // The session ends on its thread: that talks to the camera once more.
    m_thread->post([session = std::move(m_session), attempt = std::move(m_attempt)]() mutable {
        if (attempt) {
            attempt->session.reset();
        }
        session.reset();
    });
    if (isUseless) {
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
    m_health->lost = true;
}

void CameraLink::giveUp(const std::string& reason)
{
    lose(cameraLost, reason);
}

void CameraLink::check()
{
    AccessError ignored;
    beginWithSession([](CameraSession& session) { session.watch(); }, ignored);
}

bool CameraLink::isGivenUp()
{
    if (m_loss.code == 0 && m_session) {
        if (!m_isReadOnly && m_session->health()->controlLost) {
            lose(cameraLost, controlLostText);
        } else if (m_session->health()->exchanged) {
            lose(cameraLost, exchangedText);
        } else if (m_session->health()->unanswered) {
            lose(cameraLost, lostText);
        }
    }
    return m_loss.code != 0;
}

bool CameraLink::isSilent() const
{
    const std::int64_t since = m_session ? m_session->health()->waitingSince.load() : 0;
    return since != 0 && Clock::now() - Clock::time_point(Clock::duration(since)) > silentAfter;
}

bool CameraLink::isLost()
{
    return CameraLink::isGivenUp() || isSilent();
}

AccessError CameraLink::loss() const
{
    return m_loss.code != 0 ? m_loss
                            : AccessError { cameraLost, m_place.address + ": " + silentText };
}

void CameraLink::beginCall()
{
    if (m_calls++ == 0) {
        m_callEnd = Clock::now() + callLimit;
    }
}

void CameraLink::limitWaiting(std::chrono::milliseconds total)
{
    m_waitingEnd.reset();
    if (total.count() > 0) {
        m_waitingEnd = Clock::now() + total;
    }
}

CameraLink::Clock::time_point CameraLink::deadline() const
{
    const Clock::time_point end = m_calls > 0 ? m_callEnd : Clock::now() + callLimit;
    return m_waitingEnd ? std::min(end, *m_waitingEnd) : end;
}

AccessThread::Outcome CameraLink::run(
    std::function<void(CameraSession&)> task, Clock::time_point until)
{
    return m_thread->run([session = m_session, work = std::move(task)] { work(*session); }, until);
}

AccessError CameraLink::tooSlow(AccessThread::Outcome outcome, bool isWrite) const
{
    const std::string text = m_place.address + ": the camera answers too slowly";
    if (!isWrite) {
        return { cameraSlow, text };
    }
    return outcome == AccessThread::Outcome::NotBegun
        ? AccessError { notSent, text + "; nothing was sent" }
        : AccessError { cameraSlow,
              text + "; it has not confirmed what was sent, and may still take it" };
}

bool CameraLink::runWithSession(std::function<void(CameraSession&)> task, AccessError& error)
{
    if (isLost()) {
        error = loss();
        return false;
    }
    const AccessThread::Outcome outcome = run(std::move(task), deadline());
    if (outcome != AccessThread::Outcome::Done) {
        error = isLost() ? loss() : tooSlow(outcome, false);
        return false;
    }
    return true;
}

bool CameraLink::beginWithSession(std::function<void(CameraSession&)> task, AccessError& error)
{
    if (isLost()) {
        error = loss();
        return false;
    }
    m_thread->post([session = m_session, work = std::move(task)] { work(*session); });
    return true;
}

bool CameraLink::transfer(
    std::function<bool(CameraSession&, AccessError&)> access, bool isWrite, AccessError& error)
{
    if (isLost()) {
        error = loss();
        return false;
    }
    if (isTimeOver()) {
        error = tooSlow(AccessThread::Outcome::NotBegun, isWrite);
        return false;
    }
    auto result = std::make_shared<Result>();
    const auto task = [result, access = std::move(access)](CameraSession& session) {
        result->done = access(session, result->error);
    };
    const AccessThread::Outcome outcome = run(task, deadline());
    if (outcome == AccessThread::Outcome::Done && result->done) {
        return true;
    }
    // An access that nobody knows the end of is told of even where the camera is lost by now.
    const bool isOpenEnded = isWrite && outcome == AccessThread::Outcome::GoesOn;
    if (isLost()) {
        error = loss();
        error.message += isOpenEnded ? "; it has not confirmed what was sent" : "";
    } else {
        error = outcome == AccessThread::Outcome::Done ? result->error : tooSlow(outcome, isWrite);
    }
    return false;
}

bool CameraLink::read(std::uint64_t address, std::uint8_t* buffer, std::size_t size,
    AccessKind kind, AccessError& error)
{
    auto bytes = std::make_shared<std::vector<std::uint8_t>>(size);
    const auto access = [bytes, address, kind](CameraSession& session, AccessError& failure) {
        return session.read(address, bytes->data(), bytes->size(), kind, failure);
    };
    if (!transfer(access, false, error)) {
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
    const bool done = transfer(access, true, error);
    // A camera does not tell when another application, or a restart, has taken its control away.
    if (!done && error.code == deviceErrorBase + ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED) {
        lose(cameraLost, controlLostText);
        error = m_loss;
    }
    return done;
}

void CameraLink::readTogether(Requests& requests)
{
    if (isLost() || isTimeOver()) {
        return;
    }
    const auto batch = std::make_shared<RegisterBatch>(std::move(requests));
    const auto task = [batch](CameraSession& session) { batch->readAll(session); };
    while (run(task, isLimited() ? deadline() : Clock::now() + waitSlice)
            != AccessThread::Outcome::Done
        && !isLost() && !isTimeOver()) { }
    requests = batch->end();
}

std::unique_ptr<RegisterBackend::Reading> CameraLink::readBeside(Requests requests)
{
    return std::make_unique<ReadingBeside>(*m_thread, m_session, std::move(requests));
}

bool CameraLink::reconnect(bool waits, std::string& error)
{
    if (!isLost()) {
        return true;
    }
    const CallScope call(*this);
    if (!m_attempt) {
        if (m_loss.code == 0) {
            lose(cameraLost, lostText);
        }
        m_attempt = std::make_shared<Attempt>();
        m_attempt->place = m_place;
        m_attempt->access = m_access;
        m_attempt->session = std::move(m_session);
        m_thread->post([attempt = m_attempt] { CameraLink::attempt(attempt); });
    }
    if (waits) { // until all that was posted before has ended
        m_thread->run([] {}, deadline());
    }
    if (!m_attempt->isOver) {
        error = m_place.address + ": the camera does not answer yet";
        return false;
    }
    const std::shared_ptr<Attempt> attempt = std::move(m_attempt);
    return adopt(*attempt, error);
}

} // namespace zqcameralib
