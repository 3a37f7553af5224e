// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "view/FrameSlot.h"

#include <utility>
#include <vector>

namespace featurebrowser {

using Bytes = std::vector<std::uint8_t>;

class BytesPool {
public:
    // One each that is shown, that waits and that is being copied.
    BytesPool() { m_spare.reserve(most); }

    Bytes take()
    {
        const std::lock_guard lock(m_mutex);
        if (m_spare.empty()) {
            return {};
        }
        Bytes bytes = std::move(m_spare.back());
        m_spare.pop_back();
        return bytes;
    }
    void giveBack(Bytes bytes)
    {
        const std::lock_guard lock(m_mutex);
        if (m_spare.size() < most) {
            m_spare.push_back(std::move(bytes));
        }
    }

private:
    static constexpr std::size_t most = 3;
    std::mutex m_mutex;
    std::vector<Bytes> m_spare;
};

namespace {

/// Bytes that go back to their pool.
class PooledBytes {
public:
    PooledBytes(std::shared_ptr<BytesPool> pool, const ZQImage& image)
        : m_pool(std::move(pool))
        , m_bytes(m_pool->take())
    {
        m_bytes.assign(image.data, image.data + image.size);
    }
    PooledBytes(const PooledBytes&) = delete;
    PooledBytes& operator=(const PooledBytes&) = delete;
    ~PooledBytes() { m_pool->giveBack(std::move(m_bytes)); }
    const std::uint8_t* data() const { return m_bytes.data(); }

private:
    std::shared_ptr<BytesPool> m_pool;
    Bytes m_bytes;
};

} // namespace

FrameSlot::FrameSlot()
    : m_pool(std::make_shared<BytesPool>())
{
}

ZQImage FrameSlot::owned(const ZQImage& image)
{
    if (image.owner || !image.data) {
        return image;
    }
    const auto bytes = std::make_shared<const PooledBytes>(m_pool, image);
    ZQImage copy = image;
    copy.data = bytes->data();
    copy.owner = bytes;
    return copy;
}

// What is replaced is destroyed after the lock has been left: its owner may be the application's.
bool FrameSlot::put(ZQImage image)
{
    std::optional<ZQImage> replaced(std::move(image));
    const std::lock_guard lock(m_mutex);
    m_newest.swap(replaced);
    if (replaced) {
        ++m_replaced;
    }
    return !replaced.has_value();
}

std::optional<ZQImage> FrameSlot::take()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_newest, std::nullopt);
}

void FrameSlot::countReplaced()
{
    const std::lock_guard lock(m_mutex);
    ++m_replaced;
}

std::uint64_t FrameSlot::replaced() const
{
    const std::lock_guard lock(m_mutex);
    return m_replaced;
}

} // namespace featurebrowser
