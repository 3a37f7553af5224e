// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "nodemap/RegisterCodec.h"

#include <algorithm>
#include <cstring>

namespace zqcameralib {

namespace {

struct Bits {
    unsigned low = 0; ///< counted from the least significant one
    unsigned width = 64;

    std::uint64_t mask() const { return width == 64 ? UINT64_MAX : (1ULL << width) - 1; }
};

Bits bitsOf(const RegisterFacts& facts, std::size_t length)
{
    const auto all = static_cast<unsigned>(8 * length);
    if (!facts.isBitField) {
        return { 0, all };
    }
    const unsigned first = std::min(facts.lsb, facts.msb);
    const unsigned last = std::max(facts.lsb, facts.msb);
    return { facts.isBigEndian ? all - 1 - last : first, last - first + 1 };
}

std::uint64_t load(const RegisterFacts& facts, const std::uint8_t* bytes, std::size_t length)
{
    std::uint64_t word = 0;
    for (std::size_t i = 0; i < length; ++i) {
        word = word << 8U | bytes[facts.isBigEndian ? i : length - 1 - i];
    }
    return word;
}

void store(const RegisterFacts& facts, std::uint64_t word, std::uint8_t* bytes, std::size_t length)
{
    for (std::size_t i = 0; i < length; ++i, word >>= 8U) {
        bytes[facts.isBigEndian ? length - 1 - i : i] = static_cast<std::uint8_t>(word);
    }
}

} // namespace

bool holdsInteger(const RegisterFacts& facts, std::size_t length)
{
    return length >= 1 && (!facts.isBitField || std::max(facts.lsb, facts.msb) < 8 * length);
}

bool holdsReal(std::size_t length)
{
    return length == sizeof(float) || length == sizeof(double);
}

IntegerRange integerRange(const RegisterFacts& facts, std::size_t length)
{
    const unsigned width = bitsOf(facts, length).width;
    const unsigned digits = facts.isSigned || width == 64 ? width - 1 : width;
    const auto most = static_cast<std::int64_t>((1ULL << digits) - 1);
    return { facts.isSigned ? -most - 1 : 0, most };
}

std::int64_t decodeInteger(
    const RegisterFacts& facts, const std::uint8_t* bytes, std::size_t length)
{
    const Bits bits = bitsOf(facts, length);
    std::uint64_t value = load(facts, bytes, length) >> bits.low & bits.mask();
    const std::uint64_t sign = 1ULL << (bits.width - 1);
    if (facts.isSigned && (value & sign) != 0) {
        value |= ~bits.mask();
    }
    return static_cast<std::int64_t>(value);
}

void encodeInteger(
    const RegisterFacts& facts, std::int64_t value, std::uint8_t* bytes, std::size_t length)
{
    const Bits bits = bitsOf(facts, length);
    const std::uint64_t others = load(facts, bytes, length) & ~(bits.mask() << bits.low);
    const std::uint64_t own = (static_cast<std::uint64_t>(value) & bits.mask()) << bits.low;
    store(facts, others | own, bytes, length);
}

double decodeReal(const RegisterFacts& facts, const std::uint8_t* bytes, std::size_t length)
{
    const std::uint64_t word = load(facts, bytes, length);
    if (length == sizeof(float)) {
        float value = 0;
        const auto narrow = static_cast<std::uint32_t>(word);
        std::memcpy(&value, &narrow, sizeof value);
        return double(value);
    }
    double value = 0;
    std::memcpy(&value, &word, sizeof value);
    return value;
}

void encodeReal(const RegisterFacts& facts, double value, std::uint8_t* bytes, std::size_t length)
{
    std::uint64_t word = 0;
    if (length == sizeof(float)) {
        const auto narrow = static_cast<float>(value);
        std::uint32_t bits = 0;
        std::memcpy(&bits, &narrow, sizeof bits);
        word = bits;
    } else {
        std::memcpy(&word, &value, sizeof word);
    }
    store(facts, word, bytes, length);
}

} // namespace zqcameralib
