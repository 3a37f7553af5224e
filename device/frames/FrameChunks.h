// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQAcquisition.h"

#include <cstdint>
#include <map>
#include <vector>

namespace zqcameralib {

/// The bytes of an image's chunks by their ids.
using ChunkBytes = std::map<std::uint64_t, std::vector<std::uint8_t>>;

/// What a simulated camera sends along with its images. Used on the thread of the images.
class FrameChunks {
public:
    FrameChunks() = default;
    FrameChunks(const FrameChunks&) = delete;
    FrameChunks& operator=(const FrameChunks&) = delete;
    virtual ~FrameChunks() = default;

    /// Those of an image of which all else is known; valid until the next call.
    virtual const std::vector<featurebrowser::ZQFrameChunk>& of(
        const featurebrowser::ZQFrame& frame)
        = 0;
};

} // namespace zqcameralib
