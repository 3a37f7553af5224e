// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "link/CameraLink.h"

#include "base/AravisVersions.h"
#include "base/StatusCodes.h"
#include "link/RegisterBatch.h"
#include "stream/StreamOpening.h"
#include "words/Words.h"

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

const char* const silentText = marked("the camera does not answer");
const char* const lostText = marked("the camera does not answer any more; reconnect to it");
const char* const unpluggedText
    = marked("the camera was unplugged or has lost its power; reconnect to it when it is back");
const char* const exchangedText = marked("another camera is there now; reconnect to it");
const char* const controlLostText
    = marked("control of the camera was lost; reconnect to take it back");

} // namespace

CameraLink::CameraLink(CameraPlace place, CameraAccess access)
    : m_place(std::move(place))
    , m_access(access)
{
}

Status CameraLink::adopt(Connecting& connecting)
{
    m_session = std::move(connecting.session);
    if (!connecting.status.isOk()) {
        return connecting.status;
    }
    m_isReadOnly = connecting.isReadOnly;
    bool isOtherCamera = connecting.isOtherCamera;
    if (!connecting.description.empty()) {
        isOtherCamera = isOtherCamera || m_description != connecting.description;
        m_description = std::move(connecting.description);
    }
    m_cameraNumber += isOtherCamera ? 1 : 0;
    m_loss = {};
    ++m_health->connection;
    m_health->lost = false;
    watch();
    return {};
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

Result<std::unique_ptr<CameraLink>> CameraLink::open(
    const CameraPlace& place, CameraAccess access, const std::shared_ptr<OpeningProgress>& progress)
{
    std::unique_ptr<CameraLink> link(new CameraLink(place, access));
    auto connecting = std::make_shared<Connecting>();
    connecting->place = place;
    connecting->access = access;
    if (progress) {
        connecting->progress = progress;
    }
    const OpeningProgress& state = *connecting->progress;
    const Clock::time_point start = Clock::now();
    const auto isInTime = [&] {
        return Clock::now() - start < openSlack + std::chrono::milliseconds(4 * state.expectedMs);
    };
    link->m_thread->post([connecting] { connecting->run(); });
    while (!connecting->isOver && !state.isCancelled && isInTime()) {
        link->m_thread->run([] {}, Clock::now() + waitSlice);
    }
    if (!connecting->isOver) {
        const char* const reason = state.isCancelled ? marked("cancelled")
            : state.step == OpeningProgress::Step::Waiting
            ? marked("another camera is being opened and does not come to an end")
            : marked("the camera does not hand out its description");
        connecting->progress->isCancelled = true;
        link->abandonThread();
        return Status(cameraSlow, place.words(translated(reason)));
    }
    if (Status adopted = link->adopt(*connecting); !adopted.isOk()) {
        return adopted;
    }
    return link;
}

CameraLink::~CameraLink()
{
    const bool isUseless = CameraLink::isLost();
    m_thread->whenIdle({}, watchPeriod);
    if (m_connecting) {
        m_connecting->progress->isCancelled = true;
    }
    // The session ends on its thread: that talks to the camera once more.
    m_thread->post(
        [session = std::move(m_session), connecting = std::move(m_connecting)]() mutable {
            if (connecting) {
                connecting->session.reset();
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

void CameraLink::lose(int code, const Words& message)
{
    m_loss = { code, m_place.words(message) };
    m_health->lost = true;
}

void CameraLink::giveUp(const Words& reason)
{
    lose(cameraLost, reason);
}

void CameraLink::check()
{
    static_cast<void>(beginWithSession([](CameraSession& session) { session.watch(); }));
}

bool CameraLink::isGivenUp()
{
    if (m_loss.isOk() && m_session) {
        if (m_session->health()->unplugged) {
            lose(cameraLost, translated(unpluggedText));
        } else if (!m_isReadOnly && m_session->health()->controlLost) {
            lose(cameraLost, translated(controlLostText));
        } else if (m_session->health()->exchanged) {
            lose(cameraLost, translated(exchangedText));
        } else if (m_session->health()->unanswered) {
            lose(cameraLost, translated(lostText));
        }
    }
    return !m_loss.isOk();
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

Status CameraLink::loss() const
{
    return m_loss.isOk() ? Status(cameraLost, m_place.words(translated(silentText))) : m_loss;
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

AccessThread::Outcome CameraLink::run(SessionTask task, Clock::time_point until)
{
    return m_thread->run([session = m_session, work = std::move(task)] { work(*session); }, until);
}

Status CameraLink::tooSlow(AccessThread::Outcome outcome, bool isWrite) const
{
    const Words text = m_place.words(translated("the camera answers too slowly"));
    if (!isWrite) {
        return { cameraSlow, text };
    }
    return outcome == AccessThread::Outcome::NotBegun
        ? Status(notSent, text + "; " + translated("nothing was sent"))
        : Status(cameraSlow,
            text + "; " + translated("it has not confirmed what was sent, and may still take it"));
}

Status CameraLink::beginWithSession(SessionTask task)
{
    if (isLost()) {
        return loss();
    }
    m_thread->post([session = m_session, work = std::move(task)] { work(*session); });
    return {};
}

Status CameraLink::transfer(std::function<Status(CameraSession&)> access, bool isWrite)
{
    if (isLost()) {
        return loss();
    }
    if (isTimeOver()) {
        return tooSlow(AccessThread::Outcome::NotBegun, isWrite);
    }
    auto status = std::make_shared<Status>();
    const AccessThread::Outcome outcome = run(
        [status, access = std::move(access)](CameraSession& session) { *status = access(session); },
        deadline());
    if (outcome == AccessThread::Outcome::Done && status->isOk()) {
        return {};
    }
    if (!isLost()) {
        return outcome == AccessThread::Outcome::Done ? *status : tooSlow(outcome, isWrite);
    }
    // An access that nobody knows the end of is told of even where the camera is lost by now.
    const bool isOpenEnded = isWrite && outcome == AccessThread::Outcome::GoesOn;
    return isOpenEnded
        ? loss().withText(loss().words() + "; " + translated("it has not confirmed what was sent"))
        : loss();
}

Status CameraLink::read(const Register& place, std::uint8_t* buffer, AccessKind kind)
{
    auto bytes = std::make_shared<std::vector<std::uint8_t>>(place.size);
    const auto access = [bytes, place, kind](CameraSession& session) {
        return session.read(place, bytes->data(), kind);
    };
    Status status = transfer(access, false);
    if (status.isOk()) {
        std::copy(bytes->begin(), bytes->end(), buffer);
    }
    return status;
}

Status CameraLink::write(const Register& place, const std::uint8_t* buffer, AccessKind kind)
{
    if (m_isReadOnly) {
        return { accessDenied, m_place.words(translated("opened for reading only")) };
    }
    const auto access
        = [bytes = std::vector<std::uint8_t>(buffer, buffer + place.size), place, kind](
              CameraSession& session) { return session.write(place, bytes.data(), kind); };
    Status status = transfer(access, true);
    // A camera does not tell when another application, or a restart, has taken its control away.
    if (status.code() == deviceErrorBase + ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED) {
        lose(cameraLost, translated(controlLostText));
        return m_loss;
    }
    return status;
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

Result<std::unique_ptr<FrameSourceOpening>> CameraLink::openFrames(
    const ImageFormat& format, int buffers)
{
    return StreamOpening::begin(*this, format, buffers);
}

Status CameraLink::reconnect(bool waits)
{
    if (!isLost()) {
        return {};
    }
    const CallScope call(*this);
    if (!m_connecting) {
        if (m_loss.isOk()) {
            lose(cameraLost, translated(lostText));
        }
        m_connecting = std::make_shared<Connecting>();
        m_connecting->place = m_place;
        m_connecting->access = m_access;
        m_connecting->session = std::move(m_session);
        m_thread->post([connecting = m_connecting] { connecting->run(); });
    }
    if (waits) { // until all that was posted before has ended
        m_thread->run([] {}, deadline());
    }
    if (!m_connecting->isOver) {
        return { cameraLost, m_place.words(translated("the camera does not answer yet")) };
    }
    const std::shared_ptr<Connecting> connecting = std::move(m_connecting);
    return adopt(*connecting);
}

} // namespace zqcameralib
