// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "Export.h"
#include "ZQAcquisition.h"

#include <memory>
#include <string>
#include <vector>

namespace featurebrowser {

/// A feature that came with an image.
struct ZQChunkValue {
    std::string name; ///< of the feature, for example "ChunkExposureTime"
    /// Its value, in every locale the same: numbers as decimals that read back to the same, entries
    /// and Booleans ("False", "True") by their names, bytes as hexadecimal digits. Bytes of text as
    /// the camera gives them.
    std::string text;
    std::string unit; ///< as the camera's description gives it; empty where it gives none
};

/// Tells the values that a camera sends along with its images (ChunkModeActive), by the camera's
/// description.
///
///     ZQChunkDecoder chunks(&camera);
///     acquisition.start([&](const ZQFrame& frame) {
///         for (const ZQChunkValue& value : chunks.values(frame)) { ... }
///     });
class ZQ_EXPORT ZQChunkDecoder {
public:
    /// On the thread that drives the camera. `camera` may not be null, and may be gone afterwards.
    /// Where values depend on more than chunks, say on a selector, those features of the camera are
    /// read once, here, which waits at most 1.2 s: make another one when they have changed, or when
    /// the camera was lost.
    explicit ZQChunkDecoder(zqcameralib::ZQCamera* camera);
    ZQChunkDecoder(const ZQChunkDecoder&) = delete;
    ZQChunkDecoder& operator=(const ZQChunkDecoder&) = delete;
    ~ZQChunkDecoder();

    /// What came with this frame, in the order of the feature tree; nothing where it has no chunks,
    /// and nothing of chunks that the description does not explain. Any thread, several too, during
    /// the call that hands the frame out. Asks the camera nothing.
    std::vector<ZQChunkValue> values(const ZQFrame& frame) const;

private:
    class Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace featurebrowser
