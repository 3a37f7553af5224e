// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "memory/RegisterMemory.h"

#include <algorithm>

namespace zqcameralib {

void RegisterMemory::read(std::uint64_t address, std::uint8_t* buffer, std::size_t size) const
{
    while (size > 0) {
        const std::size_t offset = address % pageSize;
        const std::size_t count = std::min(size, pageSize - offset);
        const auto page = m_pages.find(address / pageSize);
        if (page == m_pages.end()) {
            std::fill_n(buffer, count, std::uint8_t { 0 });
        } else {
            std::copy_n(page->second.data() + offset, count, buffer);
        }
        address += count;
        buffer += count;
        size -= count;
    }
}

void RegisterMemory::write(std::uint64_t address, const std::uint8_t* buffer, std::size_t size)
{
    while (size > 0) {
        const std::size_t offset = address % pageSize;
        const std::size_t count = std::min(size, pageSize - offset);
        std::copy_n(buffer, count, m_pages[address / pageSize].data() + offset);
        address += count;
        buffer += count;
        size -= count;
    }
}

} // namespace zqcameralib
