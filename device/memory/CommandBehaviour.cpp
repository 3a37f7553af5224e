// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "memory/CommandBehaviour.h"

#include "memory/RegisterMemory.h"

namespace zqcameralib {

void CommandBehaviour::addCommand(
    const Register& place, std::vector<std::uint8_t> bits, std::vector<std::uint8_t> value)
{
    m_commands.push_back({ place, std::move(bits), std::move(value) });
}

void CommandBehaviour::start(RegisterMemory&) { }

void CommandBehaviour::beforeRead(RegisterMemory&, std::uint64_t, std::size_t) { }

void CommandBehaviour::afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t size)
{
    for (const Command& command : m_commands) {
        const Register& place = command.place;
        if (place.address < address || place.address + place.size > address + size) {
            continue; // only a write to all of it runs it
        }
        std::vector<std::uint8_t> bytes(place.size);
        memory.read(place.address, bytes.data(), bytes.size());
        std::vector<std::uint8_t> others(place.size);
        bool isRunning = true;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            isRunning = isRunning && (bytes[i] & command.bits[i]) == command.value[i];
            others[i] = static_cast<std::uint8_t>(bytes[i] & ~command.bits[i]);
        }
        if (isRunning) {
            memory.write(place.address, others.data(), others.size());
        }
    }
}

} // namespace zqcameralib
