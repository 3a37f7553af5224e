// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/ZQImage.h"

#include <memory>
#include <mutex>
#include <optional>

namespace featurebrowser {

/// The bytes of copied images, used again when the images are gone. Any thread.
class BytesPool;

/// Holds the newest image from any thread until the user-interface thread takes it. Any thread.
class FrameSlot {
public:
    FrameSlot();

    /// An image that owns its bytes: `image` itself, or a copy.
    ZQImage owned(const ZQImage& image);
    /// Puts an image that owns its bytes in place of the one there. True when there was none, so
    /// that the user-interface thread has to be told.
    bool put(ZQImage image);
    std::optional<ZQImage> take();
    void countReplaced();
    std::uint64_t replaced() const;

private:
    std::shared_ptr<BytesPool> m_pool;
    mutable std::mutex m_mutex;
    std::optional<ZQImage> m_newest;
    std::uint64_t m_replaced = 0;
};

} // namespace featurebrowser
