// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Trace.h"

#include <cstdio>

namespace featurebrowser {

void traceText(const char* text)
{
    std::fputs(text, stderr);
    std::fflush(stderr);
}

void traceBytes(const std::string& text)
{
    std::fwrite(text.data(), 1, text.size(), stderr);
    std::fflush(stderr);
}

} // namespace featurebrowser
