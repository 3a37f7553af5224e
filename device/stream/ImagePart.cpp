// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "stream/ImagePart.h"

#include "base/BigEndian.h"
#include "frames/FrameSize.h"

#include <algorithm>

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

/// Part lengths are what the camera announces, too.
bool takePart(ArvBuffer* buffer, guint part, std::size_t allocated, ZQFrame& frame)
{
    std::size_t size = 0;
    const auto* all = static_cast<const std::uint8_t*>(arv_buffer_get_data(buffer, nullptr));
    frame.data = static_cast<const std::uint8_t*>(arv_buffer_get_part_data(buffer, part, &size));
    const auto offset = static_cast<std::size_t>(frame.data - all);
    if (offset >= allocated) {
        return false;
    }
    frame.size = std::min(size, allocated - offset);
    frame.width = arv_buffer_get_part_width(buffer, part);
    frame.height = arv_buffer_get_part_height(buffer, part);
    frame.pixelFormat = arv_buffer_get_part_pixel_format(buffer, part);
    return keepWholeRows(frame);
}

bool takeFirstImagePart(ArvBuffer* buffer, std::size_t allocated, ZQFrame& frame)
{
    for (guint part = 0; part < arv_buffer_get_n_parts(buffer); ++part) {
        if (arv_buffer_get_part_data_type(buffer, part) == ARV_BUFFER_PART_DATA_TYPE_2D_IMAGE) {
            return takePart(buffer, part, allocated, frame);
        }
    }
    return false;
}

bool takeFirstChunk(
    ArvBuffer* buffer, std::size_t allocated, const ImageFormat& format, ZQFrame& frame)
{
    std::size_t size = 0;
    frame.data = static_cast<const std::uint8_t*>(arv_buffer_get_data(buffer, &size));
    frame.size = firstChunk(frame.data, std::min(size, allocated));
    frame.width = static_cast<int>(format.width);
    frame.height = static_cast<int>(format.height);
    frame.pixelFormat = format.pixelFormat;
    return keepWholeRows(frame) && frame.height == format.height;
}

} // namespace

std::size_t firstChunk(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t tag = 8; // four bytes of id, four of length
    while (size > tag) {
        const std::size_t length = fromBigEndian<std::uint32_t>(data + size - 4);
        if (length > size - tag) {
            return 0;
        }
        if (length == size - tag) {
            return length;
        }
        size -= tag + length;
    }
    return 0;
}

bool findImage(ArvBuffer* buffer, std::size_t allocated, const ImageFormat& format, ZQFrame& frame)
{
    switch (arv_buffer_get_payload_type(buffer)) {
    case ARV_BUFFER_PAYLOAD_TYPE_IMAGE:
    case ARV_BUFFER_PAYLOAD_TYPE_EXTENDED_CHUNK_DATA:
    case ARV_BUFFER_PAYLOAD_TYPE_MULTIPART:
        return takeFirstImagePart(buffer, allocated, frame);
    case ARV_BUFFER_PAYLOAD_TYPE_CHUNK_DATA:
        return takeFirstChunk(buffer, allocated, format, frame);
    default:
        return false;
    }
}

} // namespace zqcameralib
