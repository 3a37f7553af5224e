// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/TextLines.h"

#include "words/Words.h"

#include <glib.h>

#include <algorithm>
#include <cstdlib>

namespace zqcameralib {

namespace {

/// Longer lines are none of settings.
constexpr std::size_t longestLine = 65536;
constexpr std::size_t longestShown = 60;

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isPlain(char c)
{
    return g_ascii_isalnum(c) || std::string_view("_.:+-/").find(c) != std::string_view::npos;
}

/// What a word of a text written by hand may hold.
bool isOfWord(char c)
{
    return !isBlank(c) && std::string_view("\"\\[]#=,").find(c) == std::string_view::npos;
}

bool isControl(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte < 0x20U && c != '\t') || byte == 0x7FU;
}

bool isUtf8(std::string_view text)
{
    return g_utf8_validate_len(text.data(), text.size(), nullptr) != FALSE;
}

std::string hexByte(char c)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    return { digits[byte >> 4U], digits[byte & 0xFU] };
}

/// `special`: what else is escaped.
std::string escaped(std::string_view text, std::string_view special)
{
    const bool isText = isUtf8(text);
    std::string result;
    for (const char c : text) {
        if (special.find(c) != std::string_view::npos) {
            result += { '\\', c };
        } else if (c == '\n') {
            result += "\\n";
        } else if (isControl(c) || c == '\t' || (!isText && (static_cast<int>(c) & 0x80) != 0)) {
            result += "\\x" + hexByte(c);
        } else {
            result += c;
        }
    }
    return result;
}

std::string inQuotes(std::string_view text)
{
    return escaped(text, "\"\\");
}

} // namespace

std::string oneLine(std::string_view text)
{
    return escaped(text, {});
}

std::string_view trimmedText(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::string quotedWhereNeeded(std::string_view text)
{
    const bool isPlainWord = !text.empty() && std::all_of(text.begin(), text.end(), isPlain);
    return isPlainWord ? std::string(text) : '"' + inQuotes(text) + '"';
}

std::string shown(std::string_view text)
{
    const bool isCut = text.size() > longestShown;
    std::size_t end = std::min(text.size(), longestShown);
    while (isCut && end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) {
        --end; // not within a character
    }
    return '"' + inQuotes(text.substr(0, end)) + (isCut ? "...\"" : "\"");
}

TextLines::TextLines(std::string_view text)
    : m_text(text)
{
    if (m_text.substr(0, byteOrderMark.size()) == byteOrderMark) {
        m_text.remove_prefix(byteOrderMark.size());
    }
    rewind();
}

void TextLines::rewind()
{
    m_rest = m_text;
    m_number = 0;
}

bool TextLines::fail(const std::string& what, std::size_t number)
{
    if (m_fault.empty()) {
        m_fault = worded("line %zu", std::max<std::size_t>(number, 1)) + ": " + what;
    }
    return false;
}

std::optional<std::string_view> TextLines::next()
{
    if (m_rest.empty() || !m_fault.empty()) {
        return std::nullopt;
    }
    ++m_number;
    const std::size_t end = m_rest.find('\n');
    m_isEnded = end != std::string_view::npos;
    std::string_view line = m_rest.substr(0, end);
    m_rest.remove_prefix(m_isEnded ? end + 1 : m_rest.size());
    if (!line.empty() && line.back() == '\r') {
        line.remove_suffix(1);
    }
    return check(line) ? std::optional(line) : std::nullopt;
}

bool TextLines::check(std::string_view line)
{
    if (m_number == 1 && (line.substr(0, 2) == "\xFF\xFE" || line.substr(0, 2) == "\xFE\xFF")) {
        return fail(translated("the text is UTF-16; it has to be UTF-8"));
    }
    if (line.size() > longestLine) {
        return fail(worded("longer than %zu bytes", longestLine));
    }
    const auto control = std::find_if(line.begin(), line.end(), isControl);
    if (control != line.end()) {
        return fail(
            worded("holds a control character, 0x%s", std::string(hexByte(*control)).c_str()));
    }
    return isUtf8(line) || fail(translated("is not UTF-8 text"));
}

void LineCursor::skipBlanks()
{
    while (!m_rest.empty() && isBlank(m_rest.front())) {
        m_rest.remove_prefix(1);
    }
}

bool LineCursor::take(char c)
{
    skipBlanks();
    const bool isNext = !m_rest.empty() && m_rest.front() == c;
    m_rest.remove_prefix(isNext ? 1 : 0);
    return isNext;
}

bool LineCursor::isAtEnd()
{
    skipBlanks();
    return m_rest.empty();
}

std::optional<std::string> LineCursor::word()
{
    if (take('"')) {
        return quoted();
    }
    const auto* const end = std::find_if_not(m_rest.begin(), m_rest.end(), isOfWord);
    const std::string found(m_rest.begin(), end);
    m_rest.remove_prefix(found.size());
    return found.empty() ? std::nullopt : std::optional(found);
}

bool LineCursor::isQuoteNext()
{
    skipBlanks();
    return !m_rest.empty() && m_rest.front() == '"';
}

std::optional<std::string> LineCursor::phrase()
{
    if (isQuoteNext()) {
        return word();
    }
    std::string text;
    while (!isQuoteNext()) {
        const auto next = word();
        if (!next) {
            return text.empty() ? std::nullopt : std::optional(text);
        }
        text += (text.empty() ? "" : " ") + *next;
    }
    return std::nullopt;
}

/// Behind the first quote.
std::optional<std::string> LineCursor::quoted()
{
    std::string text;
    while (!m_rest.empty() && m_rest.front() != '"') {
        char c = m_rest.front();
        m_rest.remove_prefix(1);
        if (c == '\\' && !m_rest.empty()) {
            const char kind = m_rest.front();
            m_rest.remove_prefix(1);
            const bool isHex = kind == 'x' && m_rest.size() >= 2 && g_ascii_isxdigit(m_rest[0])
                && g_ascii_isxdigit(m_rest[1]);
            if (isHex) {
                c = static_cast<char>(
                    g_ascii_xdigit_value(m_rest[0]) * 16 + g_ascii_xdigit_value(m_rest[1]));
                m_rest.remove_prefix(2);
            } else if (kind == 'n') {
                c = '\n';
            } else if (kind == '"' || kind == '\\') {
                c = kind;
            } else {
                return std::nullopt;
            }
        }
        text += c;
    }
    return take('"') ? std::optional(text) : std::nullopt;
}

} // namespace zqcameralib
