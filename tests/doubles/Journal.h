// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/FeatureItem.h"

#include <array>
#include <charconv>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

/// Doubles of the camera side, the widget, the application's receiver, the standard error stream
/// and nanosleep. They answer from one script and write every call to one journal, because the
/// order between them is what the core promises.
namespace doubles {

void append(std::string& line, const std::string& text); ///< quoted, control characters escaped
void append(std::string& line, const std::shared_ptr<featurebrowser::FeatureItem>& item);

/// Numbers as the shortest text that reads back.
template <class Value, std::enable_if_t<std::is_arithmetic_v<Value>, int> = 0>
void append(std::string& line, Value value)
{
    if constexpr (std::is_same_v<Value, bool>) {
        line += value ? "true" : "false";
    } else {
        std::array<char, 32> text {};
        line.append(text.data(), std::to_chars(text.begin(), text.end(), value).ptr);
    }
}

template <class Enum, std::enable_if_t<std::is_enum_v<Enum>, int> = 0>
void append(std::string& line, Enum value)
{
    append(line, static_cast<int>(value));
}

template <class Key, class Value>
void append(std::string& line, const std::pair<const Key, Value>& entry)
{
    append(line, entry.first);
    line += ':';
    append(line, entry.second);
}

template <class Sequence, class = typename Sequence::value_type>
std::enable_if_t<!std::is_same_v<Sequence, std::string>> append(
    std::string& line, const Sequence& sequence)
{
    line += '[';
    for (const auto& element : sequence) {
        if (line.back() != '[') {
            line += ' ';
        }
        append(line, element);
    }
    line += ']';
}

/// The journal so far: one line per call, as in device.SetIntegerValue("Width", 10, 1).
std::string& journal();

/// The line that `note` writes.
template <class... Arguments> std::string line(const char* call, const Arguments&... arguments)
{
    std::string text = call;
    text += '(';
    [[maybe_unused]] const char* separator = "";
    ((text += separator, append(text, arguments), separator = ", "), ...);
    return text += ")\n";
}

template <class... Arguments> void note(const char* call, const Arguments&... arguments)
{
    journal() += line(call, arguments...);
}

} // namespace doubles
