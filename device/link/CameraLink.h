#pragma once

#include "base/AccessThread.h"
#include "session/CameraSession.h"
#include "session/LinkHealth.h"

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
class CameraLink final : public RegisterBackend {
public:
    using Clock = std::chrono::steady_clock;

    /// All that the accesses of one operation may wait.
    static constexpr std::chrono::milliseconds callLimit { 1200 };
    /// One lost packet costs 0.5 s, so that an access with two of them is still answered.
    static constexpr std::chrono::milliseconds silentAfter { 1150 };

    /// Null and one line in `error` when the camera cannot be opened as wanted. Takes as long as
    /// the camera needs to hand out its description; a dead one is noticed within 3 s.
    static std::unique_ptr<CameraLink> open(const CameraPlace& place, CameraAccess access,
        std::string& error, const std::shared_ptr<OpeningProgress>& progress = nullptr);
    ~CameraLink() override;

    bool read(std::uint64_t address, std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error) override;
    bool write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error) override;
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
    AccessError loss() const override;
    void check() override;
    void giveUp(const std::string& reason) override;
    bool isReadOnly() const override { return m_isReadOnly; }
    /// Waits as long as an operation may; an attempt that takes longer goes on, and the next call
    /// looks for its result.
    bool reconnect(bool waits, std::string& error) override;
    bool isReconnecting() override { return m_attempt != nullptr; }
    std::uint64_t cameraNumber() const override { return m_cameraNumber; }
    std::string description() const override { return m_description; }

    /// Runs `task` with the session on the access thread; false, with a reason, when the camera is
    /// lost or the time is over. `task` then may go on and has to own what it touches.
    bool runWithSession(std::function<void(CameraSession&)> task, AccessError& error);
    /// Runs `task` with the session on the access thread without waiting; false, with a reason,
    /// when the camera is lost. What is asked for behind it may find no time left.
    bool beginWithSession(std::function<void(CameraSession&)> task, AccessError& error);

    /// Runs `task` on the access thread without waiting, also when the camera is lost.
    void post(std::function<void()> task) { m_thread->post(std::move(task)); }
    /// What they point to is for any thread.
    const std::shared_ptr<LinkHealth>& health() const { return m_health; }
    std::shared_ptr<CameraSession::Health> sessionHealth() const
    {
        return m_session ? m_session->health() : std::make_shared<CameraSession::Health>();
    }

private:
    struct Attempt;

    CameraLink(CameraPlace place, CameraAccess access);
    Clock::time_point deadline() const;
    AccessThread::Outcome run(std::function<void(CameraSession&)> task, Clock::time_point until);
    bool transfer(
        std::function<bool(CameraSession&, AccessError&)> access, bool isWrite, AccessError& error);
    AccessError tooSlow(AccessThread::Outcome outcome, bool isWrite) const;
    bool isSilent() const;
    void lose(int code, const std::string& message);
    static void findAgain(Attempt& attempt);
    static void openAnew(Attempt& attempt);
    static void attempt(const std::shared_ptr<Attempt>& attempt);
    bool adopt(Attempt& attempt, std::string& error);
    void watch();
    void abandonThread();

    CameraPlace m_place;
    CameraAccess m_access;
    std::unique_ptr<AccessThread> m_thread = std::make_unique<AccessThread>();
    std::shared_ptr<CameraSession> m_session;
    std::shared_ptr<Attempt> m_attempt; ///< to reconnect, while it runs
    std::shared_ptr<LinkHealth> m_health = std::make_shared<LinkHealth>();
    std::string m_description;
    std::uint64_t m_cameraNumber = 0;
    int m_calls = 0; ///< scopes of operations that are open
    Clock::time_point m_callEnd;
    std::optional<Clock::time_point> m_waitingEnd;
    AccessError m_loss; ///< code 0 while the camera was not given up
    bool m_isReadOnly = false;
};

} // namespace zqcameralib
