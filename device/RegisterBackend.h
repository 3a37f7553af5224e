#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

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

    /// One register of several that are read together.
    struct Request {
        std::uint64_t address = 0;
        AccessKind kind = AccessKind::Memory;
        std::vector<std::uint8_t> bytes; ///< in: as many as are wanted
        bool done = false;
    };
    /// Whether reading several registers together costs less than one by one.
    virtual bool prefersBatches() const { return false; }
    /// Reads what can be read at once; an access that fails or takes long ends it early. Nothing
    /// is an error: what is not done is read again one by one.
    virtual void readTogether(std::vector<Request>& /*requests*/) { }

    /// Whether the camera does not answer any more; every access then fails at once with loss().
    virtual bool isLost() { return false; }
    virtual AccessError loss() const { return {}; }
    /// Whether the camera takes no writes in this session.
    virtual bool isReadOnly() const { return false; }
    /// Tries once to find a lost camera again. False and one line in `error` when it has not.
    virtual bool reconnect(std::string& /*error*/) { return true; }
};

} // namespace zqcameralib
