// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/AccessThread.h"
#include "link/Connecting.h"
#include "session/SessionAccess.h"
#include "words/Words.h"

#include "featurebrowser/ZQCamera.h"

#include <optional>

namespace zqcameralib {

/// The registers of a real camera, accessed on a thread of its own.
///
/// A camera that is slow is slow: its answers are waited for as long as one operation may take, and
/// an operation that has no time left fails without harm to the next. A camera that leaves one
/// access unanswered for silentAfter counts as lost until the answer comes after all; when every
/// try of the library was in vain, or the control is lost, it is given up until reconnect() has
/// found it again. While it is lost every access fails at once.
///
/// One thread at a time, except health(). Destroying it does not wait for a camera that is lost.
class CameraLink final : public RegisterBackend, public SessionAccess {
public:
    using Clock = std::chrono::steady_clock;

    /// All that the accesses of one operation may wait.
    static constexpr std::chrono::milliseconds callLimit { 1200 };
    /// One lost packet costs 0.5 s, so that an access with two of them is still answered.
    static constexpr std::chrono::milliseconds silentAfter { 1150 };

    /// Takes as long as the camera needs to hand out its description; a dead one is noticed within
    /// 3 s.
    static Result<std::unique_ptr<CameraLink>> open(const CameraPlace& place, CameraAccess access,
        const std::shared_ptr<OpeningProgress>& progress = nullptr);
    ~CameraLink() override;

    Status read(const Register& place, std::uint8_t* buffer, AccessKind kind) override;
    Status write(const Register& place, const std::uint8_t* buffer, AccessKind kind) override;
    bool prefersBatches() const override { return true; }
    void readTogether(Requests& requests) override;
    std::unique_ptr<Reading> readBeside(Requests requests) override;
    void beginCall() override;
    void endCall() override { --m_calls; }
    void limitWaiting(std::chrono::milliseconds total) override;
    bool isLimited() const override { return m_calls > 0 || m_waitingEnd; }
    bool isTimeOver() const override { return isLimited() && deadline() <= Clock::now(); }
    bool isLost() override;
    bool isGivenUp() override;
    Status loss() const override;
    void check() override;
    void giveUp(const Words& reason) override;
    bool isReal() const override { return true; }
    bool isReadOnly() const override { return m_isReadOnly; }
    Status reconnect(bool waits) override;
    bool isReconnecting() override { return m_connecting != nullptr; }
    std::uint64_t cameraNumber() const override { return m_cameraNumber; }
    std::string description() const override { return m_description; }

    std::uint64_t connectionNumber() const override { return m_health->connection; }
    Result<std::unique_ptr<FrameSourceOpening>> openFrames(
        const ImageFormat& format, int buffers) override;

    Status beginWithSession(SessionTask task) override;
    void post(std::function<void()> task) override { m_thread->post(std::move(task)); }
    std::shared_ptr<LinkHealth> health() const override { return m_health; }
    std::shared_ptr<CameraSession::Health> sessionHealth() const override
    {
        return m_session ? m_session->health() : std::make_shared<CameraSession::Health>();
    }

private:
    CameraLink(CameraPlace place, CameraAccess access);
    Clock::time_point deadline() const;
    AccessThread::Outcome run(SessionTask task, Clock::time_point until);
    Status transfer(std::function<Status(CameraSession&)> access, bool isWrite);
    Status tooSlow(AccessThread::Outcome outcome, bool isWrite) const;
    bool isSilent() const;
    void lose(int code, const Words& message);
    Status adopt(Connecting& connecting);
    void watch();
    void abandonThread();

    CameraPlace m_place;
    CameraAccess m_access;
    std::unique_ptr<AccessThread> m_thread = std::make_unique<AccessThread>();
    std::shared_ptr<CameraSession> m_session;
    std::shared_ptr<Connecting> m_connecting; ///< to the lost camera, while it runs
    std::shared_ptr<LinkHealth> m_health = std::make_shared<LinkHealth>();
    std::string m_description;
    std::uint64_t m_cameraNumber = 0;
    int m_calls = 0; ///< scopes of operations that are open
    Clock::time_point m_callEnd;
    std::optional<Clock::time_point> m_waitingEnd;
    Status m_loss; ///< a success while the camera was not given up
    bool m_isReadOnly = false;
};

} // namespace zqcameralib
