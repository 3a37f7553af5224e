// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "frames/FrameSource.h"

#include <arv.h>

namespace zqcameralib {

/// Finds the image in a complete buffer of so many bytes: as such, in the first part that is one,
/// or as the first of several chunks, which has the format of the start. Sets data, size, width,
/// height and pixelFormat; the height is that of the rows that are there. False when there is none.
bool findImage(ArvBuffer* buffer, std::size_t allocated, const ImageFormat& format,
    featurebrowser::ZQFrame& frame);

/// Bytes of the first chunk of data that consist of chunks, each with its id and length (big
/// endian) behind it; 0 when they do not.
std::size_t firstChunk(const std::uint8_t* data, std::size_t size);

} // namespace zqcameralib
