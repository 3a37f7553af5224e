// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "EventEar.h"

#include <functional>
#include <regex>
#include <sstream>
#include <utility>
#include <vector>

using Lines = std::vector<std::string>;

/// An application's receiver: writes down every event as one line, as in "Int Width 640", and then
/// does what the test wants to happen in it.
class EventJournal : public EventEar<EventJournal> {
public:
    Lines lines;
    std::function<void(const std::string& line)> answer;
    bool hearsSelection = false;

    /// The lines since the last call.
    Lines take() { return std::exchange(lines, {}); }

    template <class... T> void hear(const char* event, const T&... arguments)
    {
        static const std::regex filling("Feature|Modified|Exec|Item|Resized|Dialog|Send|Changed");
        std::ostringstream line;
        line.precision(17);
        line << std::regex_replace(event, filling, "");
        ((line << ' ' << arguments), ...);
        if (!hearsSelection && line.str().rfind("Selection", 0) == 0) {
            return;
        }
        lines.push_back(line.str());
        if (answer) {
            answer(line.str());
        }
    }
};
