// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQChunkDecoder.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace zqviewer {

/// What came along with the last images, so that it can be told for the one that is shown. Values
/// are made of it only when they are asked for. Any thread.
class KeptChunks {
public:
    using Values = std::vector<featurebrowser::ZQChunkValue>;

    /// For the images from now on; also for those that a recorder writes.
    void use(std::unique_ptr<featurebrowser::ZQChunkDecoder> decoder)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_decoder = std::move(decoder);
        m_kept.clear();
    }
    void add(const featurebrowser::ZQFrame& frame)
    {
        Kept kept { frame.frameId, {} };
        for (std::size_t i = 0; i < frame.chunkCount; ++i) {
            const featurebrowser::ZQFrameChunk& one = frame.chunks[i];
            kept.chunks.emplace_back(one.id, Bytes(one.data, one.data + one.size));
        }
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_kept.push_front(std::move(kept));
        m_kept.resize(std::min(m_kept.size(), most));
    }
    Values values(const featurebrowser::ZQFrame& frame) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_decoder ? m_decoder->values(frame) : Values();
    }
    /// Nothing of an image that came long ago.
    Values valuesOf(std::uint64_t frameId) const
    {
        std::vector<featurebrowser::ZQFrameChunk> chunks;
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto found = std::find_if(m_kept.begin(), m_kept.end(),
            [frameId](const Kept& kept) { return kept.frameId == frameId; });
        if (!m_decoder || found == m_kept.end()) {
            return {};
        }
        for (const auto& [id, bytes] : found->chunks) {
            chunks.push_back({ id, bytes.data(), bytes.size() });
        }
        featurebrowser::ZQFrame frame;
        frame.chunks = chunks.data();
        frame.chunkCount = chunks.size();
        return m_decoder->values(frame);
    }

private:
    using Bytes = std::vector<std::uint8_t>;
    struct Kept {
        std::uint64_t frameId = 0;
        std::vector<std::pair<std::uint64_t, Bytes>> chunks;
    };
    static constexpr std::size_t most = 64; ///< that can come until one of them is painted

    mutable std::mutex m_mutex;
    std::unique_ptr<featurebrowser::ZQChunkDecoder> m_decoder;
    std::deque<Kept> m_kept; ///< newest first
};

} // namespace zqviewer
