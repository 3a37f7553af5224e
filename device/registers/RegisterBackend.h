// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Register.h"
#include "base/Status.h"
#include "words/Words.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace zqcameralib {

class FrameSourceOpening;
struct ImageFormat;

/// How a camera wants an access: by memory, or, for four bytes of old cameras, by register.
enum class AccessKind { Memory, Register };

/// The registers of one camera, wherever they are. Multi-byte registers are bytes in the camera's
/// order; an access of kind Register moves the same four bytes (big endian). Called on one thread.
class RegisterBackend {
public:
    RegisterBackend() = default;
    RegisterBackend(const RegisterBackend&) = delete;
    RegisterBackend& operator=(const RegisterBackend&) = delete;
    virtual ~RegisterBackend() = default;

    /// `buffer` has, or receives, as many bytes as the place.
    virtual Status read(const Register& place, std::uint8_t* buffer, AccessKind kind) = 0;
    virtual Status write(const Register& place, const std::uint8_t* buffer, AccessKind kind) = 0;

    /// One register of several that are read together.
    struct Request {
        Request(const Register& where, AccessKind how)
            : place(where)
            , kind(how)
            , bytes(where.size)
        {
        }

        Register place;
        AccessKind kind;
        std::vector<std::uint8_t> bytes;
        bool isDone = false;
        Status status; ///< a failure where it was tried in vain
    };
    using Requests = std::vector<Request>;

    /// Registers that are being read while the caller does something else. Destroying it ends that.
    class Reading {
    public:
        Reading() = default;
        Reading(const Reading&) = delete;
        Reading& operator=(const Reading&) = delete;
        virtual ~Reading() = default;
        /// Those that have been read, or have failed, since the last call.
        virtual Requests takeFinished() = 0;
    };

    /// Whether reading several registers together costs less than one by one.
    virtual bool prefersBatches() const { return false; }
    /// Reads what can be read at once; an access that fails, or the end of the time, ends it early.
    /// Nothing is an error: what is not done is read again one by one.
    virtual void readTogether(Requests& /*requests*/) { }
    /// Reads beside the caller, and behind everything else that is asked for meanwhile. Null where
    /// reading several together costs no less.
    virtual std::unique_ptr<Reading> readBeside(Requests /*requests*/) { return nullptr; }

    /// What is asked for between these two belongs to one operation, and waits for the camera at
    /// most as long as one operation may, all in all. They nest; see CallScope.
    virtual void beginCall() { }
    virtual void endCall() { }
    /// From now on, all accesses together may wait so long; zero or less: without limit.
    virtual void limitWaiting(std::chrono::milliseconds /*total*/) { }
    /// Whether one of these limits holds now.
    virtual bool isLimited() const { return false; }
    /// Whether no time is left.
    virtual bool isTimeOver() const { return false; }

    /// Whether the camera does not answer at the moment; every access then fails at once with
    /// loss(). One that was not given up yet may answer again.
    virtual bool isLost() { return false; }
    /// Whether the camera was given up: only reconnect() finds it again.
    virtual bool isGivenUp() { return false; }
    virtual Status loss() const { return {}; }
    /// Asks the camera whether it is still the one that was opened, and under control; without
    /// waiting for the answer, before anything that is asked for later.
    virtual void check() { }
    /// Gives the camera up, for instance because it is another one that cannot be used.
    virtual void giveUp(const Words& /*reason*/) { }
    /// Whether it is a camera beyond this process.
    virtual bool isReal() const { return false; }
    /// Whether the camera takes no writes in this session.
    virtual bool isReadOnly() const { return false; }
    /// Tries once to find a lost camera again; what takes longer goes on, and the next call tells
    /// how it ended. `waits`: as long as an operation may. A failure while the camera is not there.
    virtual Status reconnect(bool /*waits*/) { return {}; }
    /// Whether a try to reconnect goes on.
    virtual bool isReconnecting() { return false; }
    /// Grows when there is another camera, or another description, after a reconnection.
    virtual std::uint64_t cameraNumber() const { return 0; }
    /// The camera's description where it comes with the registers.
    virtual std::string description() const { return {}; }

    /// A command of that name has been sent; for what has no registers to look at.
    virtual void executed(const std::string& /*command*/) { }
    /// Another number says that the camera was found again since: what was begun before is void.
    virtual std::uint64_t connectionNumber() const { return 0; }
    /// Begins to open the camera's stream of images, with as many buffers as may be filled ahead.
    virtual Result<std::unique_ptr<FrameSourceOpening>> openFrames(
        const ImageFormat& format, int buffers);
};

/// While one lives, accesses belong to one operation.
class CallScope {
public:
    explicit CallScope(RegisterBackend& backend)
        : m_backend(backend)
    {
        m_backend.beginCall();
    }
    CallScope(const CallScope&) = delete;
    CallScope& operator=(const CallScope&) = delete;
    ~CallScope() { m_backend.endCall(); }

private:
    RegisterBackend& m_backend;
};

} // namespace zqcameralib
