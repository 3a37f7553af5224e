// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

namespace featurebrowser {

/// Writes `text` to the standard error stream in one piece, up to its first NUL, and flushes. A
/// line end is the caller's business: some messages have none on purpose.
void traceText(const char* text);

/// As traceText, but writes every byte, NULs included.
void traceBytes(const std::string& text);

} // namespace featurebrowser
