// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <tuple>
#include <vector>

namespace zqcameralib {

/// A place among a camera's registers: `size` bytes from `address` on.
struct Register {
    std::uint64_t address = 0;
    std::size_t size = 0;

    bool overlaps(const Register& other) const
    {
        return address < other.address + other.size && other.address < address + size;
    }
    bool operator==(const Register& other) const
    {
        return address == other.address && size == other.size;
    }
    bool operator<(const Register& other) const
    {
        return std::tie(address, size) < std::tie(other.address, other.size);
    }
};

using Registers = std::vector<Register>;

/// The same places, in order and each once.
inline Registers distinct(Registers registers)
{
    std::sort(registers.begin(), registers.end());
    registers.erase(std::unique(registers.begin(), registers.end()), registers.end());
    return registers;
}

struct RegisterHash {
    std::size_t operator()(const Register& place) const
    {
        return std::hash<std::uint64_t>()(place.address * 31U + place.size);
    }
};

} // namespace zqcameralib
