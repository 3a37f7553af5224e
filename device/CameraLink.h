#pragma once

#include "AccessThread.h"
#include "CameraSession.h"

#include "featurebrowser/ZQCamera.h"

#include <mutex>

namespace zqcameralib {

/// The registers of a real camera, accessed on a thread of its own.
///
/// An access that is not answered within accessLimit means that the camera is lost, as does the
/// loss of control. From then on every access fails at once, until reconnect() has found the camera
/// again. One thread at a time; destroying it does not wait for a camera that is lost.
class CameraLink : public RegisterBackend {
public:
    /// One lost packet costs 0.5 s, so that an access with two of them still succeeds. Slow
    /// accesses within a few seconds share it, so that no fault blocks the caller for longer.
    static constexpr std::chrono::milliseconds accessLimit { 1200 };
    /// Opening reads the whole description.
    static constexpr std::chrono::milliseconds openLimit { 15000 };

    /// Null and one line in `error` when the camera cannot be opened as wanted.
    static std::unique_ptr<CameraLink> open(
        const CameraPlace& place, CameraAccess access, std::string& error);
    ~CameraLink() override;

    const std::string& description() const { return m_description; }
    bool read(std::uint64_t address, std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error) override;
    bool write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error) override;
    bool prefersBatches() const override { return true; }
    void readTogether(std::vector<Request>& requests) override;
    bool isLost() override;
    AccessError loss() const override { return m_loss; }
    bool isReadOnly() const override { return m_isReadOnly; }
    /// Waits at most accessLimit; an attempt that takes longer goes on, and the next call looks for
    /// its result.
    bool reconnect(std::string& error) override;

    /// Runs `task` with the session on the access thread; false, with a reason, when the camera is
    /// or gets lost. `task` goes on when the time is over and has to own what it touches.
    bool runWithSession(std::function<void(CameraSession&)> task, std::chrono::milliseconds limit,
        AccessError& error);

    /// Runs `task` on the access thread without waiting, also when the camera is lost.
    void post(std::function<void()> task) { m_thread->post(std::move(task)); }

private:
    struct Attempt;

    CameraLink(CameraPlace place, CameraAccess access);
    bool transfer(std::function<bool(CameraSession&, AccessError&)> access, AccessError& error);
    /// How long the next access may take.
    std::chrono::milliseconds timeLeft();
    /// Adds the time of an access that was slow, and gives the camera up when it is too much.
    void account(std::chrono::milliseconds taken);
    void lose(int code, const std::string& message);
    static void attempt(const std::shared_ptr<Attempt>& attempt);
    bool adopt(Attempt& attempt, std::string& error);
    void abandonThread();

    CameraPlace m_place;
    CameraAccess m_access;
    std::unique_ptr<AccessThread> m_thread = std::make_unique<AccessThread>();
    std::shared_ptr<CameraSession> m_session;
    std::shared_ptr<Attempt> m_attempt; ///< to reconnect, while it runs
    std::string m_description;
    std::chrono::milliseconds m_slowTime { 0 }; ///< of the slow accesses not forgiven yet
    std::chrono::steady_clock::time_point m_lastSlow;
    AccessError m_loss; ///< code 0 while the camera is there
    bool m_isReadOnly = false;
};

} // namespace zqcameralib
