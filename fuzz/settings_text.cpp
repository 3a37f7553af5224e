// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// Random text as settings: it is refused with the number of a line, or written so that it reads
// back the same, in both layouts.

#include "featurebrowser/ZQSettings.h"

#include <cstdlib>

using namespace zqcameralib;

namespace {

void require(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

/// In one line, which begins with the line that is meant.
void requireWords(const std::string& error)
{
    require(error.compare(0, 5, "line ") == 0 && error.find('\n') == std::string::npos);
    require(error.size() < 400);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(data, data + size);
    ZQSettings settings;
    std::string error;
    if (!ZQSettings::Parse(text, settings, error)) {
        requireWords(error);
        return 0;
    }
    ZQSettings again;
    require(ZQSettings::Parse(settings.toText(), again, error));
    require(again.toText() == settings.toText());
    require(ZQSettings::Compare(settings, again).empty());
    if (!ZQSettings::Parse(settings.toPersistenceText(), again, error)) {
        requireWords(error);
    }
    return 0;
}
