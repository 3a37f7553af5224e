// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "frames/FrameSource.h"
#include "stream/ChunkLayout.h"

#include <arv.h>

namespace zqcameralib {

using Chunks = std::vector<featurebrowser::ZQFrameChunk>;

/// The chunks that a complete buffer of so many bytes consists of, the image first; none where it
/// has none.
Chunks findChunks(ArvBuffer* buffer, std::size_t allocated, ChunkTags tags);

/// Finds the image in such a buffer: as such, in the first part that is one, or as the first of its
/// chunks, which has the format of the start where it tells none. Sets data, size, width, height
/// and pixelFormat; the height is that of the rows that are there. False when there is none.
bool findImage(ArvBuffer* buffer, std::size_t allocated, const Chunks& chunks,
    const ImageFormat& format, featurebrowser::ZQFrame& frame);

} // namespace zqcameralib
