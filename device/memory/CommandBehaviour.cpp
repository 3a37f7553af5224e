#include "memory/CommandBehaviour.h"

#include "memory/RegisterMemory.h"

namespace zqcameralib {

void CommandBehaviour::addCommandRegister(std::uint64_t address, std::size_t size)
{
    m_registers.emplace_back(address, size);
}

void CommandBehaviour::start(RegisterMemory&) { }

void CommandBehaviour::beforeRead(RegisterMemory&, std::uint64_t, std::size_t) { }

void CommandBehaviour::afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t size)
{
    for (const auto& [first, length] : m_registers) {
        if (first == address && length == size) {
            const std::vector<std::uint8_t> zeros(length, 0);
            memory.write(first, zeros.data(), zeros.size());
        }
    }
}

} // namespace zqcameralib
