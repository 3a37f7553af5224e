// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "stream/ChunkLayout.h"

#include "base/BigEndian.h"

#include <algorithm>
#include <array>

namespace zqcameralib {

namespace {

std::uint32_t wordAt(const std::uint8_t* bytes, ChunkTags tags)
{
    std::array<std::uint8_t, sizeof(std::uint32_t)> copy {};
    std::copy(bytes, bytes + copy.size(), copy.begin());
    if (tags == ChunkTags::LittleEndian) {
        std::reverse(copy.begin(), copy.end());
    }
    return fromBigEndian<std::uint32_t>(copy.data());
}

} // namespace

std::vector<featurebrowser::ZQFrameChunk> splitChunks(
    const std::uint8_t* data, std::size_t size, ChunkTags tags)
{
    constexpr std::size_t tag = 8; // four bytes of id, four of length
    std::vector<featurebrowser::ZQFrameChunk> chunks;
    while (size >= tag) {
        const std::uint8_t* const behind = data + size - tag;
        const std::size_t length = wordAt(behind + 4, tags);
        if (length > size - tag) {
            return {};
        }
        chunks.push_back({ wordAt(behind, tags), behind - length, length });
        size -= tag + length;
    }
    std::reverse(chunks.begin(), chunks.end());
    return size == 0 ? chunks : decltype(chunks)();
}

} // namespace zqcameralib
