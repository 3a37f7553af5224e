#pragma once

#include "memory/CameraBehaviour.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace zqcameralib {

/// A camera of which nothing but the description is known: it remembers what is written, and its
/// commands are done at once, which their registers tell by being zero again.
class CommandBehaviour : public CameraBehaviour {
public:
    void addCommandRegister(std::uint64_t address, std::size_t size);

    void start(RegisterMemory& memory) override;
    void beforeRead(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;
    void afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;

private:
    std::vector<std::pair<std::uint64_t, std::size_t>> m_registers;
};

} // namespace zqcameralib
