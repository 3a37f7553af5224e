// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zqcameralib {

/// The lines of a text, each checked: UTF-8, no control characters but tabs, of bounded length.
class TextLines {
public:
    /// `text` has to outlive this.
    explicit TextLines(std::string_view text);

    /// The next line without its end; nothing at the end of the text or after a fault.
    std::optional<std::string_view> next();
    /// Back to the first line.
    void rewind();
    /// Of the last line, counted from 1.
    std::size_t number() const { return m_number; }
    /// Whether the last line had an end.
    bool isEnded() const { return m_isEnded; }

    /// Notes what is wrong with the last line, or with another one; the first fault counts. False.
    bool fail(const std::string& what) { return fail(what, m_number); }
    bool fail(const std::string& what, std::size_t number);
    /// "line 7: what is wrong"; empty when nothing is.
    const std::string& fault() const { return m_fault; }

private:
    bool check(std::string_view line);

    std::string_view m_text;
    std::string_view m_rest;
    std::size_t m_number = 0;
    bool m_isEnded = true;
    std::string m_fault;
};

std::string_view trimmedText(std::string_view text);
/// As it stands in a settings file: plain where it can, else in quotes, with escapes for what is no
/// text of one line.
std::string quotedWhereNeeded(std::string_view text);
/// One line of UTF-8 text, whatever it held.
std::string oneLine(std::string_view text);
/// For a message of one line: escaped, in quotes, and cut where it is long.
std::string shown(std::string_view text);

/// Takes a line apart from its left end.
class LineCursor {
public:
    explicit LineCursor(std::string_view line)
        : m_rest(line)
    {
    }

    void skipBlanks();
    /// Whether this comes next, after blanks; then it is taken.
    bool take(char c);
    bool isAtEnd();
    /// A word, or a text in quotes; nothing when there is none, or its end is missing.
    std::optional<std::string> word();
    /// The same, where a text without quotes may be of several words.
    std::optional<std::string> phrase();

private:
    bool isQuoteNext();
    std::optional<std::string> quoted();

    std::string_view m_rest;
};

} // namespace zqcameralib
