#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace zqcameralib {

/// Why a register access failed. `code` is a status code of StatusCodes.h.
struct AccessError {
    int code = 0;
    std::string message;
};

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

    /// Both return false and set `error` when the camera did not take the access.
    virtual bool read(std::uint64_t address, std::uint8_t* buffer, std::size_t size,
        AccessKind kind, AccessError& error)
        = 0;
    virtual bool write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size,
        AccessKind kind, AccessError& error)
        = 0;

    /// Whether the camera does not answer any more; every access then fails at once with loss().
    virtual bool isLost() { return false; }
    virtual AccessError loss() const { return {}; }
    /// Whether the camera takes no writes in this session.
    virtual bool isReadOnly() const { return false; }
    /// Tries once to find a lost camera again. False and one line in `error` when it has not.
    virtual bool reconnect(std::string& /*error*/) { return true; }
};

} // namespace zqcameralib
