#include "memory/RegisterValues.h"

#include "memory/RegisterMemory.h"

#include <array>
#include <cstring>
#include <vector>

namespace zqcameralib {

namespace {

template <typename Unsigned> Unsigned readBigEndian(const RegisterMemory& memory, std::uint64_t at)
{
    std::array<std::uint8_t, sizeof(Unsigned)> bytes {};
    memory.read(at, bytes.data(), bytes.size());
    Unsigned value = 0;
    for (const std::uint8_t byte : bytes) {
        value = static_cast<Unsigned>((value << 8U) | byte);
    }
    return value;
}

template <typename Unsigned>
void writeBigEndian(RegisterMemory& memory, std::uint64_t at, Unsigned value)
{
    std::array<std::uint8_t, sizeof(Unsigned)> bytes {};
    for (std::size_t i = bytes.size(); i-- > 0; value = static_cast<Unsigned>(value >> 8U)) {
        bytes[i] = static_cast<std::uint8_t>(value & 0xffU);
    }
    memory.write(at, bytes.data(), bytes.size());
}

template <typename To, typename From> To sameBits(From from)
{
    static_assert(sizeof(To) == sizeof(From));
    To to {};
    std::memcpy(&to, &from, sizeof to);
    return to;
}

} // namespace

std::uint32_t readWord(const RegisterMemory& memory, std::uint64_t address)
{
    return readBigEndian<std::uint32_t>(memory, address);
}

void writeWord(RegisterMemory& memory, std::uint64_t address, std::uint32_t value)
{
    writeBigEndian(memory, address, value);
}

void writeLong(RegisterMemory& memory, std::uint64_t address, std::uint64_t value)
{
    writeBigEndian(memory, address, value);
}

float readFloat(const RegisterMemory& memory, std::uint64_t address)
{
    return sameBits<float>(readBigEndian<std::uint32_t>(memory, address));
}

void writeFloat(RegisterMemory& memory, std::uint64_t address, float value)
{
    writeBigEndian(memory, address, sameBits<std::uint32_t>(value));
}

double readDouble(const RegisterMemory& memory, std::uint64_t address)
{
    return sameBits<double>(readBigEndian<std::uint64_t>(memory, address));
}

void writeDouble(RegisterMemory& memory, std::uint64_t address, double value)
{
    writeBigEndian(memory, address, sameBits<std::uint64_t>(value));
}

void writeText(RegisterMemory& memory, std::uint64_t address, std::string_view text)
{
    std::vector<std::uint8_t> bytes(text.begin(), text.end());
    bytes.push_back(0);
    memory.write(address, bytes.data(), bytes.size());
}

} // namespace zqcameralib
