// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>

namespace zqcameralib {

/// What the library below keeps in globals and does not guard: its XML parser, which opening a real
/// camera uses, and the lists of its interfaces, which discovery and opening by id use.
enum class LibraryPart { Parser, Interfaces };

/// Enters such a part, one thread at a time, and leaves it at the end. Who needs both enters
/// Parser first.
///
/// Opening a camera that answers "wait" for ever does not end, so nobody waits here without limit.
class LibraryLock {
public:
    using Clock = std::chrono::steady_clock;

    /// Waits for the part until `until`, or until `isCancelled` (may be empty) says so.
    LibraryLock(
        LibraryPart part, Clock::time_point until, const std::function<bool()>& isCancelled = {});
    LibraryLock(const LibraryLock&) = delete;
    LibraryLock& operator=(const LibraryLock&) = delete;
    ~LibraryLock();

    /// Whether the part was entered; otherwise it may not be used.
    explicit operator bool() const { return m_isHeld; }

private:
    LibraryPart m_part;
    bool m_isHeld = false;
};

} // namespace zqcameralib
