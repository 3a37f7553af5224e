// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

namespace featurebrowser {

/// An image as a camera sends it: bytes, and what they mean. Cheap to copy; copies share the bytes.
struct ZQImage {
    /// First byte of the first line. Lines run from the top down, pixels from the left. Multi-byte
    /// components are little-endian; those of less than 16 bits stand in the low bits.
    const std::uint8_t* data = nullptr;
    std::size_t size = 0; ///< bytes of data; nothing beyond them is read
    /// Keeps `data` alive and unchanged for as long as it is held, on any thread. Null: the bytes
    /// are the caller's and are only used during the call that gets the image, which copies them
    /// once where it has to keep them.
    std::shared_ptr<const void> owner;
    int width = 0; ///< pixels, 1 to 1,000,000
    int height = 0; ///< pixels, 1 to 1,000,000
    /// Bytes from the start of a line to that of the next. 0: no padding; a line of a packed format
    /// then begins where the one before it ends, be it within a byte.
    std::size_t lineStride = 0;
    std::uint32_t pixelFormat = 0; ///< PFNC code, for example 0x01080001 for Mono8
    std::uint64_t frameId = 0; ///< as the camera counts
    std::uint64_t timestampNs = 0; ///< camera's clock, nanoseconds
};

/// One component of a pixel in the camera's own bits.
struct ZQPixelComponent {
    /// "Y" (grey or luma), "R", "G", "B", "a" (alpha), "U", "V", "Cb", "Cr"; lives for ever.
    const char* name = "";
    std::uint32_t value = 0;
};

} // namespace featurebrowser
