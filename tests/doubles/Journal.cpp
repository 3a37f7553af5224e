// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "Journal.h"

#include <map>

namespace doubles {

std::string& journal()
{
    static std::string text;
    return text;
}

void append(std::string& line, const std::string& text)
{
    line += '"';
    for (const char c : text) {
        static const std::map<char, const char*> escapes { { '\n', "\\n" }, { '\r', "\\r" },
            { '\0', "\\0" } };
        const auto escape = escapes.find(c);
        line += escape == escapes.end() ? std::string(1, c) : escape->second;
    }
    line += '"';
}

void append(std::string& line, const std::shared_ptr<featurebrowser::FeatureItem>& item)
{
    append(line, item ? item->name : "(null)");
}

} // namespace doubles
