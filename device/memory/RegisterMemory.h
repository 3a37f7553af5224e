// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace zqcameralib {

/// Sparse register memory over all 64-bit addresses, for cameras that exist in process only.
///
/// Bytes never written read zero. A range that runs past the highest address continues at 0.
/// A copy is a snapshot of its own. One thread at a time.
class RegisterMemory {
public:
    void read(std::uint64_t address, std::uint8_t* buffer, std::size_t size) const;
    void write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size);

private:
    static constexpr std::size_t pageSize = 4096;
    using Page = std::array<std::uint8_t, pageSize>;

    /// By address / pageSize.
    std::unordered_map<std::uint64_t, Page> m_pages;
};

} // namespace zqcameralib
