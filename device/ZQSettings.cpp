// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "featurebrowser/ZQSettings.h"

#include "settings/SettingsFile.h"
#include "settings/SettingsLayout.h"
#include "words/Words.h"

#include <algorithm>

namespace zqcameralib {

std::string ZQSettingsLine::label() const
{
    std::string text = quotedWhereNeeded(name);
    for (const ZQSelectorState& selector : selectors) {
        text += (&selector == selectors.data() ? "[" : ", ") + quotedWhereNeeded(selector.name)
            + "=" + quotedWhereNeeded(selector.value);
    }
    return selectors.empty() ? text : text + "]";
}

const std::string& ZQSettingsDifference::name() const
{
    return first ? first->name : second->name;
}

std::string ZQSettingsDifference::label() const
{
    return first ? first->label() : second->label();
}

std::string ZQSettingsDifference::text() const
{
    const auto valueOf = [](const std::optional<ZQSettingsLine>& line) {
        return line ? line->value + (line->unit.empty() ? "" : " [" + line->unit + "]")
                    : translated("(none)").text();
    };
    return label() + ": " + valueOf(first) + " | " + valueOf(second);
}

bool ZQSettings::Parse(const std::string& text, ZQSettings& settings, std::string& error)
{
    TextLines lines(text);
    auto parsed = parseSettings(lines);
    if (!parsed) {
        error = lines.fault();
        return false;
    }
    settings = std::move(*parsed);
    return true;
}

bool ZQSettings::ReadFile(const std::string& path, ZQSettings& settings, std::string& error)
{
    std::string why;
    const auto text = readSettingsFile(path, why);
    if (!text || !Parse(*text, settings, why)) {
        error = path + ": " + why;
        return false;
    }
    return true;
}

bool ZQSettings::WriteFile(const std::string& path, const std::string& text, std::string& error)
{
    return writeSettingsFile(path, text, error);
}

std::string ZQSettings::toText() const
{
    return ownText(*this);
}

std::string ZQSettings::toPersistenceText() const
{
    return persistenceText(*this);
}

const ZQSettingsLine* ZQSettings::find(const std::string& label) const
{
    const auto found = std::find_if(m_lines.begin(), m_lines.end(),
        [&label](const ZQSettingsLine& line) { return line.label() == label; });
    return found == m_lines.end() ? nullptr : &*found;
}

void ZQSettings::put(ZQSettingsLine line)
{
    const std::string label = line.label();
    const auto found = std::find_if(m_lines.begin(), m_lines.end(),
        [&label](const ZQSettingsLine& known) { return known.label() == label; });
    if (found != m_lines.end()) {
        *found = std::move(line);
    } else {
        m_lines.push_back(std::move(line));
    }
}

ZQSettings ZQSettings::only(const std::vector<std::string>& labels) const
{
    ZQSettings chosen = *this;
    chosen.m_leftOut.clear();
    chosen.m_lines.erase(std::remove_if(chosen.m_lines.begin(), chosen.m_lines.end(),
                             [&labels](const ZQSettingsLine& line) {
                                 return std::find(labels.begin(), labels.end(), line.label())
                                     == labels.end();
                             }),
        chosen.m_lines.end());
    return chosen;
}

} // namespace zqcameralib
