// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "stream/ImagePart.h"

#include "base/AravisVersions.h"
#include "frames/FrameSize.h"

#include <algorithm>
#include <cstring>

namespace zqcameralib {

using featurebrowser::ZQFrame;

namespace {

bool keepWholeRows(ZQFrame& frame)
{
    // What the camera announces may be more than what it sends.
    frame.height
        = static_cast<int>(rowsWithin(frame.size, frame.width, frame.height, frame.pixelFormat));
    return frame.height > 0;
}

/// GigE Vision and USB3 Vision: lines may be longer than their pixels. Those of a frame are not;
/// the buffer is ours until it is given back.
void dropPadding(ZQFrame& frame, gint padding)
{
    const std::uint64_t bits = std::uint64_t(frame.width) * bitsPerPixel(frame.pixelFormat);
    const std::size_t row = bits / 8;
    const std::size_t line = row + static_cast<std::size_t>(std::max(padding, 0));
    const auto rows = static_cast<std::size_t>(frame.height);
    if (line == row || bits % 8 != 0 || (frame.size + line - row) / line < rows) {
        return;
    }
    auto* const data = const_cast<std::uint8_t*>(frame.data);
    for (std::size_t i = 1; i < rows; ++i) {
        std::memmove(data + i * row, data + i * line, row);
    }
    frame.size = rows * row;
}

/// Part lengths are what the camera announces, too. An image that chunks follow is itself the first
/// of them.
bool takePart(
    ArvBuffer* buffer, guint part, std::size_t allocated, const Chunks& chunks, ZQFrame& frame)
{
    std::size_t size = 0;
    const auto* all = static_cast<const std::uint8_t*>(arv_buffer_get_data(buffer, nullptr));
    frame.data = static_cast<const std::uint8_t*>(arv_buffer_get_part_data(buffer, part, &size));
    const auto offset = static_cast<std::size_t>(frame.data - all);
    if (offset >= allocated) {
        return false;
    }
    const bool isChunk = !chunks.empty() && chunks.front().data == frame.data;
    frame.size = isChunk ? chunks.front().size : std::min(size, allocated - offset);
    frame.width = arv_buffer_get_part_width(buffer, part);
    frame.height = arv_buffer_get_part_height(buffer, part);
    frame.pixelFormat = arv_buffer_get_part_pixel_format(buffer, part);
    if (frame.width > 0 && frame.height > 0) {
        gint padding = 0;
        arv_buffer_get_part_padding(buffer, part, &padding, nullptr);
        dropPadding(frame, padding);
    }
    return keepWholeRows(frame);
}

bool takeFirstImagePart(
    ArvBuffer* buffer, std::size_t allocated, const Chunks& chunks, ZQFrame& frame)
{
    for (guint part = 0; part < arv_buffer_get_n_parts(buffer); ++part) {
        if (arv_buffer_get_part_data_type(buffer, part) == ARV_BUFFER_PART_DATA_TYPE_2D_IMAGE) {
            return takePart(buffer, part, allocated, chunks, frame);
        }
    }
    return false;
}

/// The image is the first of them.
bool takeFirstChunk(const Chunks& chunks, const ImageFormat& format, ZQFrame& frame)
{
    if (chunks.empty()) {
        return false;
    }
    frame.data = chunks.front().data;
    frame.size = chunks.front().size;
    frame.width = static_cast<int>(format.width);
    frame.height = static_cast<int>(format.height);
    frame.pixelFormat = format.pixelFormat;
    return keepWholeRows(frame) && frame.height == format.height;
}

} // namespace

Chunks findChunks(ArvBuffer* buffer, std::size_t allocated, ChunkTags tags)
{
    const bool isChunks = arv_buffer_get_payload_type(buffer) == ARV_BUFFER_PAYLOAD_TYPE_CHUNK_DATA;
    if (!isChunks && !arv_buffer_has_chunks(buffer)) {
        return {};
    }
    std::size_t size = 0;
    const auto* data = static_cast<const std::uint8_t*>(arv_buffer_get_data(buffer, &size));
    return splitChunks(data, std::min(size, allocated), tags);
}

bool findImage(ArvBuffer* buffer, std::size_t allocated, const Chunks& chunks,
    const ImageFormat& format, ZQFrame& frame)
{
    // Not every version knows all of them.
    const int type = arv_buffer_get_payload_type(buffer);
    switch (type) {
    case ARV_BUFFER_PAYLOAD_TYPE_IMAGE:
    case ARV_BUFFER_PAYLOAD_TYPE_EXTENDED_CHUNK_DATA:
        return takeFirstImagePart(buffer, allocated, chunks, frame);
    case ARV_BUFFER_PAYLOAD_TYPE_MULTIPART:
        return takeFirstImagePart(buffer, allocated, {}, frame);
    case ARV_BUFFER_PAYLOAD_TYPE_CHUNK_DATA:
        return takeFirstChunk(chunks, format, frame);
    default:
        return false;
    }
}

} // namespace zqcameralib
