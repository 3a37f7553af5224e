// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQChunkDecoder.h"

#include "chunks/ChunkNodes.h"
#include "chunks/ChunkText.h"

#include <mutex>
#include <utility>

namespace featurebrowser {

using namespace zqcameralib;

class ZQChunkDecoder::Impl {
public:
    explicit Impl(ZQCamera& camera)
        : m_chunks(camera.impl(), isValueReference)
    {
    }

    std::vector<ZQChunkValue> values(const ZQFrame& frame)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        take(frame);
        std::vector<ZQChunkValue> values;
        for (const ChunkNodes::ChunkFeature& one : m_chunks.features()) {
            Result<std::string> text = chunkText(m_chunks.nodes(), one.feature);
            if (text.isOk()) {
                values.push_back({ one.feature.name, std::move(text.value()),
                    std::string(childText(one.feature.node->element, "Unit")) });
            }
        }
        return values;
    }

private:
    void take(const ZQFrame& frame)
    {
        ChunkBytes& bytes = m_chunks.bytes();
        bytes.clear();
        for (std::size_t i = 0; i < frame.chunkCount; ++i) {
            const ZQFrameChunk& chunk = frame.chunks[i];
            bytes[chunk.id].assign(chunk.data, chunk.data + chunk.size);
        }
    }

    std::mutex m_mutex;
    ChunkNodes m_chunks;
};

ZQChunkDecoder::ZQChunkDecoder(ZQCamera* camera)
    : m_impl(std::make_unique<Impl>(*camera))
{
}

ZQChunkDecoder::~ZQChunkDecoder() = default;

std::vector<ZQChunkValue> ZQChunkDecoder::values(const ZQFrame& frame) const
{
    return frame.chunkCount == 0 ? std::vector<ZQChunkValue>() : m_impl->values(frame);
}

} // namespace featurebrowser
