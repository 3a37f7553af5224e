// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "memory/CommandBehaviour.h"

#include "memory/RegisterMemory.h"

namespace zqcameralib {

void CommandBehaviour::addCommand(const std::string& name, std::vector<std::uint8_t> bits)
{
    m_bits.emplace(name, std::move(bits));
}

void CommandBehaviour::start(RegisterMemory&) { }

void CommandBehaviour::beforeRead(RegisterMemory&, std::uint64_t, std::size_t) { }

void CommandBehaviour::afterWrite(RegisterMemory&, std::uint64_t address, std::size_t size)
{
    m_written = { address, size };
}

/// Which register it is may depend on a selector: it is the one just written.
void CommandBehaviour::executed(RegisterMemory& memory, const std::string& command)
{
    const auto known = m_bits.find(command);
    if (known == m_bits.end() || known->second.size() != m_written.size) {
        return;
    }
    std::vector<std::uint8_t> bytes(m_written.size);
    memory.read(m_written.address, bytes.data(), bytes.size());
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<std::uint8_t>(bytes[i] & ~known->second[i]);
    }
    memory.write(m_written.address, bytes.data(), bytes.size());
}

} // namespace zqcameralib
