// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/SettingsBuilding.h"
#include "settings/SettingsLayout.h"
#include "words/Words.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace zqcameralib {

namespace {

/// What other tools know such texts by.
constexpr std::string_view mark = "{05D8C294-F295-4dfb-9D01-096BD04049F4}";

using Fields = std::vector<std::string_view>;
using Positions = std::vector<ZQSelectorState>;

Fields fieldsOf(std::string_view line)
{
    Fields fields;
    for (std::size_t at = 0; at <= line.size();) {
        const std::size_t end = std::min(line.find('\t', at), line.size());
        fields.push_back(line.substr(at, end - at));
        at = end + 1;
    }
    return fields;
}

bool isContent(std::string_view line)
{
    const std::string_view text = trimmedText(line);
    return !text.empty() && text.front() != '#';
}

bool isName(std::string_view text)
{
    return !text.empty() && quotedWhereNeeded(text) == text;
}

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

/// Without a camera, only names tell.
bool soundsLikeSelector(std::string_view name)
{
    return endsWith(name, "Selector") || endsWith(name, "Index");
}

void setPosition(Positions& positions, std::string_view name, std::string_view value)
{
    const auto known = std::find_if(positions.begin(), positions.end(),
        [name](const ZQSelectorState& position) { return position.name == name; });
    if (known != positions.end()) {
        known->value = value;
    } else {
        positions.push_back({ std::string(name), std::string(value) });
    }
}

/// "{GainSelector=Red}", of several one after the other or separated.
bool parseBraces(std::string_view text, Positions& positions)
{
    if (text.size() < 2 || text.front() != '{' || text.back() != '}') {
        return false;
    }
    while (!text.empty()) {
        const std::size_t begin = text.find_first_not_of("{},; ");
        if (begin == std::string_view::npos) {
            break;
        }
        const std::string_view one
            = text.substr(begin, std::min(text.find_first_of("},;", begin), text.size()) - begin);
        const std::size_t equals = one.find('=');
        if (equals == std::string_view::npos || !isName(one.substr(0, equals))) {
            return false;
        }
        setPosition(positions, one.substr(0, equals), one.substr(equals + 1));
        text.remove_prefix(begin + one.size());
    }
    return !positions.empty();
}

/// What a comment such as "# Device = Vendor::Model -- ... -- Device version = 1.0.0 -- ..." tells.
void parseComment(std::string_view line, ZQSettingsHeader& header)
{
    const auto told = [line](std::string_view key) {
        const std::size_t at = line.find(key);
        const std::size_t begin = at + key.size();
        return at == std::string_view::npos
            ? std::string_view()
            : trimmedText(line.substr(begin, line.find(" -- ", begin) - begin));
    };
    const std::string_view device = told("# Device = ");
    const std::size_t colons = device.find("::");
    if (colons != std::string_view::npos) {
        header.vendor = device.substr(0, colons);
        header.model = device.substr(colons + 2);
        header.descriptionVersion = told("Device version = ");
    }
}

class Parser {
public:
    explicit Parser(TextLines& lines)
        : m_lines(lines)
    {
    }

    std::optional<ZQSettings> parse()
    {
        learnNames();
        ZQSettings settings;
        ZQSettings::Access access(settings);
        while (const auto text = m_lines.next()) {
            if (!isContent(*text)) {
                parseComment(*text, access.header());
            } else if (!parseLine(*text, access.lines())) {
                return std::nullopt;
            }
        }
        access.setAllPositions(!m_hasBraces && !m_positions.empty());
        if (access.lines().empty()) {
            m_lines.fail(translated("there is no setting in the text"));
        }
        const bool isGood = m_lines.fault().empty() && areDistinct(settings.lines(), m_lines);
        return isGood ? std::optional(settings) : std::nullopt;
    }

private:
    /// How often each name stands there, and which lines are the last ones, tells which lines only
    /// move selectors.
    void learnNames()
    {
        while (const auto text = m_lines.next()) {
            const Fields fields = fieldsOf(*text);
            if (!isContent(*text)) {
                continue;
            }
            m_hasBraces = m_hasBraces || fields.size() == 3;
            ++m_times[std::string(fields.front())];
            m_lastValue = soundsLikeSelector(fields.front()) ? m_lastValue : m_lines.number();
        }
        m_lines.rewind();
    }

    bool parseLine(std::string_view text, std::vector<ZQSettingsLine>& settings)
    {
        const Fields fields = fieldsOf(text);
        ZQSettingsLine line;
        if (fields.size() < 2 || fields.size() > 3) {
            return m_lines.fail(translated("is not a name and a value with a tab between them")
                + ": " + shown(text));
        }
        if (!isName(fields.front())) {
            return m_lines.fail(
                translated("does not begin with the name of a feature") + ": " + shown(text));
        }
        if (!m_lines.isEnded()) {
            return m_lines.fail(translated("the text ends within this line") + ": " + shown(text));
        }
        if (fields.size() == 3 && !parseBraces(fields[1], line.selectors)) {
            return m_lines.fail(
                translated("the selectors are not told as {Name=value}") + ": " + shown(text));
        }
        line.name = fields.front();
        line.value = fields.back();
        line.number = m_lines.number();
        if (!m_hasBraces && soundsLikeSelector(line.name)) {
            setPosition(m_positions, line.name, line.value);
            if (m_times[line.name] > 1 && m_lines.number() < m_lastValue) {
                return true;
            }
        } else if (!m_hasBraces) {
            line.selectors = m_positions;
        }
        settings.push_back(std::move(line));
        return true;
    }

    TextLines& m_lines;
    Positions m_positions; ///< where the lines so far have moved selectors to
    std::map<std::string, int> m_times;
    std::size_t m_lastValue = 0; ///< number of the last line that is not about a selector
    bool m_hasBraces = false; ///< the selectors of a line stand in it
};

/// One line each: what tabs and line ends would break is left to the own layout.
std::string printable(const std::string& text)
{
    std::string result = text;
    std::replace_if(
        result.begin(), result.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; },
        ' ');
    return result;
}

/// Booleans are numbers there.
std::string printedValue(const std::string& value)
{
    if (value == "True" || value == "False") {
        return value == "True" ? "1" : "0";
    }
    return printable(value);
}

} // namespace

std::string persistenceText(const ZQSettings& settings)
{
    const ZQSettingsHeader& header = settings.header();
    std::string text = "# " + std::string(mark) + "\n# GenApi persistence file (version 3.1.0)\n"
        + "# Device = " + printable(header.vendor) + "::" + printable(header.model)
        + " -- Device version = " + printable(header.descriptionVersion) + "\n";
    std::set<std::string> selectors;
    for (const ZQSettingsLine& line : settings.lines()) {
        for (const ZQSelectorState& selector : line.selectors) {
            selectors.insert(selector.name);
        }
    }
    std::string positions;
    std::map<std::string, std::string> present;
    for (const ZQSettingsLine& line : settings.lines()) {
        const bool isSelector = selectors.count(line.name) != 0 && line.selectors.empty();
        for (const ZQSelectorState& selector : line.selectors) {
            if (present[selector.name] != selector.value) {
                present[selector.name] = selector.value;
                text += selector.name + "\t" + printedValue(selector.value) + "\n";
            }
        }
        if (selectors.count(line.name) != 0) {
            present.erase(line.name); // not told by a line about a position
        }
        // A selector's own position comes last, where no other line moves it any more.
        (isSelector ? positions : text) += line.name + "\t" + printedValue(line.value) + "\n";
    }
    return text + positions;
}

std::optional<ZQSettings> parsePersistenceText(TextLines& lines)
{
    return Parser(lines).parse();
}

} // namespace zqcameralib
