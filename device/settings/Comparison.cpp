// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "settings/Comparison.h"

#include "settings/SettingsLayout.h"
#include "words/Words.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <set>
#include <utility>

namespace zqcameralib {

namespace {

using Line = ZQSettingsLine;
using Names = std::set<std::string>;

/// By the name of a feature: the selectors that tell its lines apart.
using Deciding = std::map<std::string, Names>;

/// Lines that tell all positions: those that are not the same for all lines of a feature.
void addDiffering(const ZQSettings& settings, Deciding& deciding)
{
    std::map<std::string, std::size_t> lines;
    std::map<std::pair<std::string, std::string>, std::multiset<std::string>> positions;
    for (const Line& line : settings.lines()) {
        ++lines[line.name];
        for (const ZQSelectorState& selector : line.selectors) {
            positions[{ line.name, selector.name }].insert(selector.value);
        }
    }
    for (const auto& [names, values] : positions) {
        if (values.count(*values.begin()) != lines[names.first]) {
            deciding[names.first].insert(names.second);
        }
    }
}

void addAll(const ZQSettings& settings, Deciding& deciding)
{
    for (const Line& line : settings.lines()) {
        for (const ZQSelectorState& selector : line.selectors) {
            deciding[line.name].insert(selector.name);
        }
    }
}

/// Where one side tells its selectors exactly, these count.
Deciding decidingSelectors(const ZQSettings& first, const ZQSettings& second)
{
    Deciding deciding;
    const bool isNoneExact = first.hasAllPositions() && second.hasAllPositions();
    for (const ZQSettings* settings : { &first, &second }) {
        if (!settings->hasAllPositions()) {
            addAll(*settings, deciding);
        } else if (isNoneExact) {
            addDiffering(*settings, deciding);
        }
    }
    return deciding;
}

Line restricted(const ZQSettings& settings, const Line& line, const Deciding& deciding)
{
    Line result = line;
    if (settings.hasAllPositions()) {
        const auto names = deciding.find(line.name);
        result.selectors.erase(std::remove_if(result.selectors.begin(), result.selectors.end(),
                                   [&](const ZQSelectorState& selector) {
                                       return names == deciding.end()
                                           || names->second.count(selector.name) == 0;
                                   }),
            result.selectors.end());
    }
    return result;
}

/// The same whatever the order of the selectors.
std::string keyOf(const Line& line)
{
    Line sorted = line;
    std::sort(sorted.selectors.begin(), sorted.selectors.end(),
        [](const auto& a, const auto& b) { return a.name < b.name; });
    return sorted.label();
}

std::optional<double> asDouble(std::string_view text)
{
    double value = 0.0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), value);
    return end.ec == std::errc() && end.ptr == text.data() + text.size() ? std::optional(value)
                                                                         : std::nullopt;
}

std::string_view withoutWords(std::string_view value)
{
    if (value == "True" || value == "true") {
        return "1";
    }
    return value == "False" || value == "false" ? "0" : value;
}

bool isSame(const Line& a, const Line& b)
{
    const bool isOtherUnit = !a.unit.empty() && !b.unit.empty() && !isSameUnit(a.unit, b.unit);
    return !isOtherUnit && isSameValue(a.value, b.value);
}

} // namespace

std::optional<std::int64_t> exactInteger(std::string_view text)
{
    const bool isNegative = !text.empty() && text.front() == '-';
    std::string_view digits = text.substr(isNegative ? 1 : 0);
    const bool isHex = digits.substr(0, 2) == "0x" || digits.substr(0, 2) == "0X";
    digits.remove_prefix(isHex ? 2 : 0);
    std::uint64_t value = 0;
    const char* const last = digits.data() + digits.size();
    const auto end = std::from_chars(digits.data(), last, value, isHex ? 16 : 10);
    if (end.ec != std::errc() || end.ptr != last) {
        return std::nullopt;
    }
    const std::uint64_t most = std::uint64_t(INT64_MAX) + (isNegative ? 1U : 0U);
    if (value > most && !(isHex && !isNegative)) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(isNegative ? 0 - value : value);
}

std::optional<double> exactDouble(std::string_view text)
{
    return asDouble(text);
}

bool isSameValue(std::string_view a, std::string_view b)
{
    a = withoutWords(a);
    b = withoutWords(b);
    if (a == b) {
        return true;
    }
    const auto integerA = exactInteger(a);
    const auto integerB = exactInteger(b);
    if (integerA && integerB) {
        return *integerA == *integerB;
    }
    const auto realA = asDouble(a);
    const auto realB = asDouble(b);
    return realA && realB && *realA == *realB;
}

bool isSameUnit(std::string_view a, std::string_view b)
{
    const auto plain = [](std::string_view unit) {
        std::string text(unit);
        for (const char* micro : { "\xC2\xB5", "\xCE\xBC" }) { // the sign and the Greek letter
            const std::size_t at = text.find(micro);
            if (at != std::string::npos) {
                text.replace(at, 2, "u");
            }
        }
        return text;
    };
    return plain(a) == plain(b);
}

bool areDistinct(const std::vector<ZQSettingsLine>& settings, TextLines& lines)
{
    std::map<std::string, const Line*> seen;
    for (const Line& line : settings) {
        const auto [known, isFirst] = seen.emplace(keyOf(line), &line);
        if (!isFirst) {
            const bool isSame = known->second->value == line.value;
            const std::string label = shown(line.label());
            const std::size_t first = known->second->number;
            return lines.fail(isSame ? worded("%s stands in line %zu already", label.c_str(), first)
                                     : worded("%s stands in line %zu already, with another value",
                                         label.c_str(), first),
                line.number);
        }
    }
    return true;
}

std::vector<ZQSettingsDifference> ZQSettings::Compare(
    const ZQSettings& first, const ZQSettings& second)
{
    const Deciding deciding = decidingSelectors(first, second);
    std::map<std::string, Line> others;
    for (const Line& line : second.lines()) {
        Line other = restricted(second, line, deciding);
        others.emplace(keyOf(other), other);
    }
    std::vector<ZQSettingsDifference> differences;
    Names matched;
    for (const Line& line : first.lines()) {
        const Line own = restricted(first, line, deciding);
        const std::string key = keyOf(own);
        const auto other = others.find(key);
        matched.insert(key);
        if (other == others.end()) {
            differences.push_back({ own, std::nullopt });
        } else if (!isSame(own, other->second)) {
            differences.push_back({ own, other->second });
        }
    }
    for (const Line& line : second.lines()) {
        const Line other = restricted(second, line, deciding);
        if (matched.insert(keyOf(other)).second) {
            differences.push_back({ std::nullopt, other });
        }
    }
    return differences;
}

} // namespace zqcameralib
