// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "camera/Camera.h"
#include "frames/FrameChunks.h"

#include <memory>
#include <vector>

namespace zqcameralib {

/// The features of a camera that come with its images, over a node map of their own: it sees the
/// chunks of one image, and of the camera's registers those that the values need, as they were when
/// this was made. Then it needs the camera no more: any thread may use it, one at a time.
class ChunkNodes {
public:
    /// A feature, and the registers in chunks that its value comes from.
    struct ChunkFeature {
        Feature feature;
        std::vector<std::size_t> registers;
    };

    /// Reads registers of the camera on the thread that drives it. `isFollowed` leads to the nodes
    /// that are needed.
    ChunkNodes(ZQCamera::Impl& camera, ReferenceTags isFollowed);
    ChunkNodes(const ChunkNodes&) = delete;
    ChunkNodes& operator=(const ChunkNodes&) = delete;
    ~ChunkNodes();

    const Description& description() const { return *m_description; }
    /// In the order of the tree.
    const std::vector<ChunkFeature>& features() const { return m_features; }
    NodeMap& nodes() { return *m_nodes; }
    ChunkBytes& bytes() { return m_bytes; }

private:
    class KnownRegisters;

    std::shared_ptr<const Description> m_description;
    std::vector<ChunkFeature> m_features;
    ChunkBytes m_bytes;
    std::unique_ptr<RegisterPort> m_port;
    std::unique_ptr<NodeMap> m_nodes;
};

} // namespace zqcameralib
