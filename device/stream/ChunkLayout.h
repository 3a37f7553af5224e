// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQAcquisition.h"

#include <vector>

namespace zqcameralib {

/// How numbers lie in the tags of chunks: as GigE Vision or as USB3 Vision has them.
enum class ChunkTags { BigEndian, LittleEndian };

/// The chunks that data consists of, first one first, each with its id and length behind it; none
/// where it does not.
std::vector<featurebrowser::ZQFrameChunk> splitChunks(
    const std::uint8_t* data, std::size_t size, ChunkTags tags);

} // namespace zqcameralib
