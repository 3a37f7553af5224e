#pragma once

#include "memory/CameraBehaviour.h"
#include "memory/RegisterMemory.h"
#include "registers/RegisterBackend.h"

#include <memory>

namespace zqcameralib {

/// The registers of a camera that exists in process only. Every access succeeds.
class MemoryBackend : public RegisterBackend {
public:
    /// `behaviour` may be null: then the camera only remembers what is written.
    explicit MemoryBackend(std::unique_ptr<CameraBehaviour> behaviour);

    bool read(std::uint64_t address, std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error) override;
    bool write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size, AccessKind kind,
        AccessError& error) override;

    RegisterMemory& memory() { return m_memory; }

private:
    RegisterMemory m_memory;
    std::unique_ptr<CameraBehaviour> m_behaviour;
};

} // namespace zqcameralib
