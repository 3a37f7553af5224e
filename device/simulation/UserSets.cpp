// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "simulation/UserSets.h"

#include "simulation/SimulatedCameraRegisters.h"

#include <initializer_list>
#include <vector>

namespace zqcameralib {

namespace {

struct Range {
    std::uint64_t address;
    std::size_t size;
};

constexpr std::initializer_list<Range> settings = {
    { simulated::width, 24 }, // size, binning, gain
    { simulated::exposureTime, 4 },
    { simulated::pixelFormat, 20 }, // format, acquisition mode, offsets, frame period
    { simulated::triggerMode, 12 },
    { simulated::triggerMode + 0x20, 12 },
    { 0x1000, 0x300 },
    { simulated::lookUpTables, 0x1000 },
};

constexpr std::initializer_list<Range> kept = {
    { simulated::deviceUserId, 16 },
    { simulated::persistentIpAddress, 4 },
    { simulated::persistentSubnetMask, 4 },
    { simulated::persistentGateway, 4 },
    { simulated::userSetDefault, 4 },
    { simulated::userSetDescription, 96 },
};

void copy(std::initializer_list<Range> ranges, const RegisterMemory& from, RegisterMemory& to)
{
    for (const Range& range : ranges) {
        std::vector<std::uint8_t> bytes(range.size);
        from.read(range.address, bytes.data(), bytes.size());
        to.write(range.address, bytes.data(), bytes.size());
    }
}

} // namespace

void UserSets::initialise(const RegisterMemory& memory)
{
    for (RegisterMemory& set : m_sets) {
        copy(settings, memory, set);
    }
}

void UserSets::load(std::size_t set, RegisterMemory& memory) const
{
    if (set < m_sets.size()) {
        copy(settings, m_sets.at(set), memory);
    }
}

void UserSets::save(std::size_t set, const RegisterMemory& memory)
{
    if (set > 0 && set < m_sets.size()) {
        copy(settings, memory, m_sets.at(set));
    }
}

void UserSets::copyKept(const RegisterMemory& from, RegisterMemory& to)
{
    copy(kept, from, to);
}

} // namespace zqcameralib
