#pragma once

#include "formats/PixelFormat.h"

#include <cstddef>
#include <cstdint>

namespace featurebrowser {

/// Each reads component `n` of a run of components, and no byte that does not belong to it.
struct ByteReader {
    static std::uint16_t at(const std::uint8_t* data, std::size_t n) { return data[n]; }
};

struct WordReader {
    static std::uint16_t at(const std::uint8_t* data, std::size_t n)
    {
        return static_cast<std::uint16_t>(data[2 * n] | data[2 * n + 1] << 8);
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
        if (bits == 14 && shift > 2)
            value |= static_cast<unsigned>(bytes[2]) << 16;
        return static_cast<std::uint16_t>(value >> shift & ((1U << bits) - 1));
    }
};

template <unsigned bits> struct PairReader {
    static std::uint16_t at(const std::uint8_t* data, std::size_t n)
    {
        const std::uint8_t* triple = data + n / 2 * 3;
        const unsigned odd = n % 2;
        const unsigned low = triple[1] >> 4 * odd & ((1U << (bits - 8)) - 1);
        return static_cast<std::uint16_t>(triple[2 * odd] << (bits - 8) | low);
    }
};

/// Calls `visit` with the reader of a packing, so that the choice is made once for many pixels.
template <class Visit> auto withReader(Packing packing, Visit visit)
{
    switch (packing) {
    case Packing::Words:
        return visit(WordReader());
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
