// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace zqcameralib {

class RegisterMemory;

/// What a camera that exists in process does beside remembering its registers.
///
/// Called by the register port on the camera's thread; a behaviour changes the memory directly, and
/// such changes are not reported back to it.
class CameraBehaviour {
public:
    CameraBehaviour() = default;
    CameraBehaviour(const CameraBehaviour&) = delete;
    CameraBehaviour& operator=(const CameraBehaviour&) = delete;
    virtual ~CameraBehaviour() = default;

    /// Puts the memory into its power-up state; called once, before any access.
    virtual void start(RegisterMemory& memory) = 0;
    /// Brings [address, address + size) up to date before it is read.
    virtual void beforeRead(RegisterMemory& memory, std::uint64_t address, std::size_t size) = 0;
    /// Reacts to a write to [address, address + size), which the memory holds already.
    virtual void afterWrite(RegisterMemory& memory, std::uint64_t address, std::size_t size) = 0;
    /// A command has been written, by its feature's name.
    virtual void executed(RegisterMemory& /*memory*/, const std::string& /*command*/) { }
    /// The images of an acquisition that ends by itself have been taken.
    virtual void afterLastImage(RegisterMemory& /*memory*/) { }
};

} // namespace zqcameralib
