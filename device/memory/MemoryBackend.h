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

    Status read(const Register& place, std::uint8_t* buffer, AccessKind kind) override;
    Status write(const Register& place, const std::uint8_t* buffer, AccessKind kind) override;
    Result<std::unique_ptr<FrameSourceOpening>> openFrames(
        const ImageFormat& format, int buffers) override;

    RegisterMemory& memory() { return m_memory; }

private:
    RegisterMemory m_memory;
    std::unique_ptr<CameraBehaviour> m_behaviour;
};

} // namespace zqcameralib
