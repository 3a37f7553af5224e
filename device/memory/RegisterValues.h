// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string_view>

namespace zqcameralib {

class RegisterMemory;

/// Values in a camera's big-endian registers.

std::uint32_t readWord(const RegisterMemory& memory, std::uint64_t address);
void writeWord(RegisterMemory& memory, std::uint64_t address, std::uint32_t value);
void writeLong(RegisterMemory& memory, std::uint64_t address, std::uint64_t value);
float readFloat(const RegisterMemory& memory, std::uint64_t address);
void writeFloat(RegisterMemory& memory, std::uint64_t address, float value);
double readDouble(const RegisterMemory& memory, std::uint64_t address);
void writeDouble(RegisterMemory& memory, std::uint64_t address, double value);
/// Writes the text and a NUL; the register has to be longer than the text.
void writeText(RegisterMemory& memory, std::uint64_t address, std::string_view text);

} // namespace zqcameralib
