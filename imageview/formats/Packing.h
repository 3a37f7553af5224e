// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "formats/PixelFormat.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace featurebrowser {

/// Each reads component `n` of a run of components, and no byte that does not belong to it.
struct ByteReader {
    static std::uint16_t at(const std::uint8_t* data, std::size_t n) { return data[n]; }
};

/// A camera may send more than its format's maximum, which counts as that.
template <unsigned bits> struct WordReader {
    static std::uint16_t at(const std::uint8_t* data, std::size_t n)
    {
        constexpr int maximum = (1 << bits) - 1;
        return static_cast<std::uint16_t>(std::min(data[2 * n] | data[2 * n + 1] << 8, maximum));
    }
};

template <unsigned bits> struct LsbReader {
    static std::uint16_t at(const std::uint8_t* data, std::size_t n)
    {
        const std::size_t first = n * bits;
        const std::uint8_t* bytes = data + first / 8;
        const auto shift = static_cast<unsigned>(first % 8);
        auto value = static_cast<unsigned>(bytes[0] | bytes[1] << 8);
        // Steps of 10 and 12 bits always end within two bytes, those of 14 not.
        if (bits == 14 && shift > 2) {
            value |= static_cast<unsigned>(bytes[2]) << 16;
        }
        return static_cast<std::uint16_t>(value >> shift & ((1U << bits) - 1));
    }
};

template <unsigned bits> struct PairReader {
    static std::uint16_t at(const std::uint8_t* data, std::size_t n)
    {
        const std::uint8_t* triple = data + n / 2 * 3;
        const unsigned odd = n % 2;
        const unsigned low = unsigned { triple[1] } >> 4 * odd & ((1U << (bits - 8)) - 1);
        const unsigned high = triple[2 * odd];
        return static_cast<std::uint16_t>(high << (bits - 8) | low);
    }
};

template <class Visit> auto withWordReader(int bits, Visit visit)
{
    switch (bits) {
    case 10:
        return visit(WordReader<10>());
    case 12:
        return visit(WordReader<12>());
    case 14:
        return visit(WordReader<14>());
    default:
        return visit(WordReader<16>());
    }
}

/// Calls `visit` with a format's reader, so that the choice is made once for many pixels.
template <class Visit> auto withReader(const PixelFormat& format, Visit visit)
{
    switch (format.packing) {
    case Packing::Words:
        return withWordReader(format.bits, visit);
    case Packing::Lsb10:
        return visit(LsbReader<10>());
    case Packing::Lsb12:
        return visit(LsbReader<12>());
    case Packing::Lsb14:
        return visit(LsbReader<14>());
    case Packing::Pair10:
        return visit(PairReader<10>());
    case Packing::Pair12:
        return visit(PairReader<12>());
    case Packing::Bytes:
        break;
    }
    return visit(ByteReader());
}

} // namespace featurebrowser
