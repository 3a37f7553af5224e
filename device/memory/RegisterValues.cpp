// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "memory/RegisterValues.h"

#include "base/BigEndian.h"
#include "memory/RegisterMemory.h"

#include <vector>

namespace zqcameralib {

namespace {

template <typename Number> Number read(const RegisterMemory& memory, std::uint64_t address)
{
    std::array<std::uint8_t, sizeof(Number)> bytes {};
    memory.read(address, bytes.data(), bytes.size());
    return fromBigEndian<Number>(bytes);
}

template <typename Number> void write(RegisterMemory& memory, std::uint64_t address, Number value)
{
    const auto bytes = toBigEndian(value);
    memory.write(address, bytes.data(), bytes.size());
}

} // namespace

std::uint32_t readWord(const RegisterMemory& memory, std::uint64_t address)
{
    return read<std::uint32_t>(memory, address);
}

void writeWord(RegisterMemory& memory, std::uint64_t address, std::uint32_t value)
{
    write(memory, address, value);
}

void writeLong(RegisterMemory& memory, std::uint64_t address, std::uint64_t value)
{
    write(memory, address, value);
}

float readFloat(const RegisterMemory& memory, std::uint64_t address)
{
    return read<float>(memory, address);
}

void writeFloat(RegisterMemory& memory, std::uint64_t address, float value)
{
    write(memory, address, value);
}

double readDouble(const RegisterMemory& memory, std::uint64_t address)
{
    return read<double>(memory, address);
}

void writeDouble(RegisterMemory& memory, std::uint64_t address, double value)
{
    write(memory, address, value);
}

void writeText(RegisterMemory& memory, std::uint64_t address, std::string_view text)
{
    std::vector<std::uint8_t> bytes(text.begin(), text.end());
    bytes.push_back(0);
    memory.write(address, bytes.data(), bytes.size());
}

} // namespace zqcameralib
