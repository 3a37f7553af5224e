// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Register.h"
#include "memory/CameraBehaviour.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zqcameralib {

/// A camera of which nothing but the description is known: it remembers what is written, and its
/// commands are done at once, which their bits tell by being zero again.
class CommandBehaviour : public CameraBehaviour {
public:
    /// Both have as many bytes as the register: `bits` ones where the command's bits are, `value`
    /// what runs it.
    void addCommand(
        const Register& place, std::vector<std::uint8_t> bits, std::vector<std::uint8_t> value);

    void start(RegisterMemory& memory) override;
    void beforeRead(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;
    void afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;

private:
    struct Command {
        Register place;
        std::vector<std::uint8_t> bits;
        std::vector<std::uint8_t> value;
    };

    std::vector<Command> m_commands;
};

} // namespace zqcameralib
