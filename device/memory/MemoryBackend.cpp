#include "memory/MemoryBackend.h"

#include <utility>

namespace zqcameralib {

MemoryBackend::MemoryBackend(std::unique_ptr<CameraBehaviour> behaviour)
    : m_behaviour(std::move(behaviour))
{
    if (m_behaviour) {
        m_behaviour->start(m_memory);
    }
}

bool MemoryBackend::read(
    std::uint64_t address, std::uint8_t* buffer, std::size_t size, AccessKind, AccessError&)
{
    if (m_behaviour) {
        m_behaviour->beforeRead(m_memory, address, size);
    }
    m_memory.read(address, buffer, size);
    return true;
}

bool MemoryBackend::write(
    std::uint64_t address, const std::uint8_t* buffer, std::size_t size, AccessKind, AccessError&)
{
    m_memory.write(address, buffer, size);
    if (m_behaviour) {
        m_behaviour->afterWrite(m_memory, address, size);
    }
    return true;
}

} // namespace zqcameralib
