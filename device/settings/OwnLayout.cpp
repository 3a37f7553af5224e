// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsBuilding.h"
#include "settings/SettingsLayout.h"
#include "words/Words.h"

#include <array>
#include <utility>

namespace zqcameralib {

namespace {

constexpr std::string_view titleBegin = "[camera settings ";
constexpr std::string_view title = "[camera settings 1]";
constexpr std::string_view beginOfLines = "[lines]";
constexpr std::string_view beginOfPlacedLines = "[lines, all positions]";
constexpr std::string_view endOfLines = "[end]";

using HeaderEntry = std::pair<const char*, std::string ZQSettingsHeader::*>;
constexpr std::array<HeaderEntry, 7> headerEntries { {
    { "vendor", &ZQSettingsHeader::vendor },
    { "model", &ZQSettingsHeader::model },
    { "serial number", &ZQSettingsHeader::serialNumber },
    { "firmware", &ZQSettingsHeader::firmware },
    { "description version", &ZQSettingsHeader::descriptionVersion },
    { "description checksum", &ZQSettingsHeader::descriptionChecksum },
    { "date", &ZQSettingsHeader::date },
} };

std::string printedLine(const ZQSettingsLine& line)
{
    return line.label() + " = " + quotedWhereNeeded(line.value)
        + (line.unit.empty() ? "" : " [" + quotedWhereNeeded(line.unit) + "]") + "\n";
}

std::string printedComment(const ZQSettingsLeftOut& leftOut)
{
    return "# not saved: " + oneLine(leftOut.label + ": " + leftOut.reason) + "\n";
}

/// The next line that says something.
std::optional<std::string_view> nextContent(TextLines& lines)
{
    while (const auto line = lines.next()) {
        const std::string_view text = trimmedText(*line);
        if (!text.empty() && text.front() != '#') {
            return text;
        }
    }
    return std::nullopt;
}

bool parseSelectors(LineCursor& cursor, ZQSettingsLine& line)
{
    do {
        const auto name = cursor.word();
        const auto value = name && cursor.take('=') ? cursor.word() : std::nullopt;
        if (!value) {
            return false;
        }
        line.selectors.push_back({ *name, *value });
    } while (cursor.take(','));
    return cursor.take(']');
}

bool parseUnit(LineCursor& cursor, ZQSettingsLine& line)
{
    const auto unit = cursor.phrase();
    line.unit = unit.value_or("");
    return unit && cursor.take(']');
}

bool parseLine(std::string_view text, ZQSettingsLine& line, TextLines& lines)
{
    LineCursor cursor(text);
    const auto name = cursor.word();
    if (!name) {
        return lines.fail(
            translated("does not begin with the name of a feature") + ": " + shown(text));
    }
    line.name = *name;
    line.number = lines.number();
    if (cursor.take('[') && !parseSelectors(cursor, line)) {
        return lines.fail(translated("the selectors are not told as [Name=value, Name=value]")
            + ": " + shown(text));
    }
    if (!cursor.take('=')) {
        return lines.fail(translated("has no \"=\" behind the name") + ": " + shown(text));
    }
    const auto value = cursor.phrase();
    if (!value) {
        return lines.fail(
            translated("has no value, or one with other characters that is not in quotes") + ": "
            + shown(text));
    }
    line.value = *value;
    if (cursor.take('[') && !parseUnit(cursor, line)) {
        return lines.fail(translated("the unit is not told as [unit]") + ": " + shown(text));
    }
    return cursor.isAtEnd() || cursor.take('#')
        || lines.fail(translated("goes on behind the value") + ": " + shown(text));
}

/// "key = value"
bool parseHeaderLine(std::string_view text, ZQSettingsHeader& header, TextLines& lines)
{
    const std::size_t equals = text.find('=');
    const std::string_view key = trimmedText(text.substr(0, equals));
    for (const auto& [name, member] : headerEntries) {
        if (key != name || equals == std::string_view::npos) {
            continue;
        }
        LineCursor cursor(text.substr(equals + 1));
        const auto value = cursor.phrase();
        if (!value || !cursor.isAtEnd()) {
            return lines.fail(
                translated("has no value, or one that is not in quotes") + ": " + shown(text));
        }
        if (!(header.*member).empty()) {
            return lines.fail(worded("%s stands there twice", name));
        }
        header.*member = *value;
        return true;
    }
    return lines.fail(translated("is no line of the header") + ": " + shown(text));
}

bool parseHeader(ZQSettings::Access& settings, TextLines& lines)
{
    while (const auto text = nextContent(lines)) {
        if (*text == beginOfLines || *text == beginOfPlacedLines) {
            settings.setAllPositions(*text == beginOfPlacedLines);
            return true;
        }
        if (!parseHeaderLine(*text, settings.header(), lines)) {
            return false;
        }
    }
    return lines.fail(worded("the text ends here, without %s", std::string(beginOfLines).c_str()));
}

bool parseLines(ZQSettings::Access& settings, TextLines& lines)
{
    while (const auto text = nextContent(lines)) {
        if (*text == endOfLines) {
            return true;
        }
        ZQSettingsLine line;
        if (!parseLine(*text, line, lines)) {
            return false;
        }
        settings.lines().push_back(std::move(line));
    }
    return lines.fail(worded("the text ends here, without %s", std::string(endOfLines).c_str()));
}

} // namespace

std::string ownText(const ZQSettings& settings)
{
    std::string text = std::string(title) + "\n";
    for (const auto& [name, member] : headerEntries) {
        const std::string& value = settings.header().*member;
        text += value.empty() ? "" : name + (" = " + quotedWhereNeeded(value)) + "\n";
    }
    text += "\n" + std::string(settings.hasAllPositions() ? beginOfPlacedLines : beginOfLines)
        + "\n";
    for (const ZQSettingsLine& line : settings.lines()) {
        text += printedLine(line);
    }
    for (const ZQSettingsLeftOut& leftOut : settings.leftOut()) {
        text += printedComment(leftOut);
    }
    return text + std::string(endOfLines) + "\n";
}

std::optional<ZQSettings> parseOwnText(TextLines& lines)
{
    ZQSettings settings;
    ZQSettings::Access access(settings);
    const auto first = nextContent(lines);
    if (first && *first != title) {
        const bool isOther = first->substr(0, titleBegin.size()) == titleBegin;
        lines.fail(isOther ? worded("the layout %s is not known here", shown(*first).c_str())
                           : worded("is not %s", std::string(title).c_str()));
    }
    if (!parseHeader(access, lines) || !parseLines(access, lines)) {
        return std::nullopt;
    }
    if (nextContent(lines)) {
        lines.fail(worded("stands behind %s", std::string(endOfLines).c_str()));
    }
    const bool isGood = lines.fault().empty() && areDistinct(settings.lines(), lines);
    return isGood ? std::optional(settings) : std::nullopt;
}

std::optional<ZQSettings> parseSettings(TextLines& lines)
{
    const auto first = nextContent(lines);
    if (lines.number() == 0) {
        lines.fail(translated("the text is empty"));
    }
    lines.rewind();
    return first && first->front() == '[' ? parseOwnText(lines) : parsePersistenceText(lines);
}

} // namespace zqcameralib
