#pragma once

#include "RegisterBackend.h"

#include <arv.h>

#include <atomic>
#include <memory>
#include <string>

namespace zqcameralib {

/// Where a camera is found.
struct CameraPlace {
    std::string protocol; ///< "GigEVision" or "USB3Vision"
    std::string address; ///< IPv4 address, or the id of a USB camera
};

/// An open connection to a real camera. All of it is used, and destroyed, on the camera's access
/// thread, except the flags.
class CameraSession {
public:
    /// Shared with the library's own thread, which learns first that control is lost.
    struct Flags {
        std::atomic<bool> controlLost { false };
    };

    /// Opens the camera and asks it for control. Blocks up to several seconds. Null and one line in
    /// `error` when it does not answer.
    static std::shared_ptr<CameraSession> open(const CameraPlace& place, std::string& error);

    CameraSession(const CameraSession&) = delete;
    CameraSession& operator=(const CameraSession&) = delete;
    ~CameraSession();

    bool isController() const;
    /// Gives control to whoever asks next.
    void leaveControl();
    /// Takes control anew after it was lost, and makes sure that the camera answers.
    bool retakeControl();
    /// Description as the camera delivers it, unzipped.
    std::string description() const;
    bool read(std::uint64_t address, std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error);
    bool write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error);
    ArvDevice* device() const { return m_device; }
    const std::shared_ptr<Flags>& flags() const { return m_flags; }

private:
    explicit CameraSession(ArvDevice* device);

    ArvDevice* m_device;
    std::shared_ptr<Flags> m_flags = std::make_shared<Flags>();
    gulong m_handler = 0;
};

} // namespace zqcameralib
