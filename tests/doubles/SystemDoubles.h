// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdio>

namespace doubles {

/// While it lives, what is written to `stderr` goes to the journal: one line per flush with exactly
/// the bytes written since the last one, so that a missing flush shows.
class StderrDouble {
public:
    StderrDouble();
    StderrDouble(const StderrDouble&) = delete;
    StderrDouble& operator=(const StderrDouble&) = delete;
    ~StderrDouble();

private:
    std::FILE* m_original;
};

} // namespace doubles
