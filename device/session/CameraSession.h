// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/GObjectPointer.h"
#include "base/GlibError.h"
#include "registers/RegisterBackend.h"
#include "session/CameraPlace.h"

#include <arv.h>

#include <atomic>
#include <memory>
#include <string>
#include <vector>

namespace zqcameralib {

/// An open connection to a real camera. All of it is used, and destroyed, on the camera's access
/// thread, except the health.
class CameraSession {
public:
    /// How the connection is; read by the camera's user, written by the access thread and by the
    /// library's own, which learns that control is lost.
    struct Health {
        std::atomic<bool> controlLost { false };
        std::atomic<bool> isTold { false }; ///< that control is lost, by the library's own thread
        std::atomic<bool> unanswered { false }; ///< every try of an access was in vain
        std::atomic<bool> exchanged { false }; ///< another camera is there
        std::atomic<bool> unplugged { false }; ///< the camera is no longer on its bus
        std::atomic<std::int64_t> waitingSince { 0 }; ///< Clock ticks; 0 while no answer is due

        /// Whether the session is of no use until the camera was found again.
        bool isOver() const { return controlLost || unanswered || exchanged || unplugged; }
    };

    /// Opens the camera and asks it for control. Takes as long as its description needs, which for
    /// a slow camera is minutes; once cancelled it ends when the library below lets it.
    static Result<std::shared_ptr<CameraSession>> open(
        const CameraPlace& place, OpeningProgress& progress);

    CameraSession(const CameraSession&) = delete;
    CameraSession& operator=(const CameraSession&) = delete;
    ~CameraSession();

    bool isController() const;
    /// Gives control to whoever asks next.
    void leaveControl();
    enum class Retaken {
        Yes,
        Denied, ///< another application controls the camera
        Refused, ///< the camera answers, but not what it is asked
        No, ///< the session is of no use any more
        OtherCamera ///< there is another camera, or another description, at its place
    };
    /// Takes control anew after it was lost, unless `readOnly`, and compares who is there.
    /// `refusal` says why it was refused.
    Retaken retake(bool readOnly, Status& refusal);
    /// Learns whether the camera still answers, knows its controller, and is the same.
    void watch();
    /// Description as the camera delivers it, unzipped.
    std::string description() const;
    Status read(const Register& place, std::uint8_t* buffer, AccessKind kind);
    Status write(const Register& place, const std::uint8_t* buffer, AccessKind kind);
    ArvDevice* device() const { return m_device.get(); }
    const std::shared_ptr<Health>& health() const { return m_health; }

private:
    explicit CameraSession(GObjectPointer<ArvDevice> device);
    /// Each part of it as the camera gives it; empty where it refuses.
    using Identity = std::vector<std::string>;
    bool readIdentity(Identity& identity);
    Retaken askAgain(Status& refusal);
    void awaitEndOfControl();
    void watchControl();
    void watchIdentity();
    bool isGige() const { return ARV_IS_GV_DEVICE(m_device.get()); }
    ArvGvDevice* gige() const { return ARV_GV_DEVICE(m_device.get()); }
    bool isReadAsRegister(const Register& place, AccessKind kind) const;
    bool canReach(const Register& place) const;
    Register wordsOf(const Register& place) const;
    Status readMemory(const Register& place, void* buffer);
    Status finish(gboolean isDone, const GlibError& failure);

    GObjectPointer<ArvDevice> m_device;
    std::shared_ptr<Health> m_health = std::make_shared<Health>();
    Identity m_identity; ///< what tells this camera and its description from others
    bool m_hasControl = false; ///< taken and not left, as far as is known here
    gulong m_handler = 0; ///< of the signal that control is lost
};

} // namespace zqcameralib
