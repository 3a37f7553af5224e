// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "base/Register.h"
#include "memory/CameraBehaviour.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace zqcameralib {

/// A camera of which nothing but the description is known: it remembers what is written, and its
/// commands are done at once, which their bits tell by being zero again.
class CommandBehaviour : public CameraBehaviour {
public:
    /// `bits`: as many bytes as the command's register has, with ones where its bits are.
    void addCommand(const std::string& name, std::vector<std::uint8_t> bits);

    void start(RegisterMemory& memory) override;
    void beforeRead(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;
    void afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t size) override;

    void executed(RegisterMemory& memory, const std::string& command) override;

private:
    std::unordered_map<std::string, std::vector<std::uint8_t>> m_bits; ///< by command
    Register m_written; ///< the last register that was
};

} // namespace zqcameralib
