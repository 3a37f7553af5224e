// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "features/EnumEntries.h"

#include "description/FeatureListing.h"

namespace zqcameralib {

namespace {

/// Of several conditions of a kind the first one counts.
void addCondition(EnumEntry& entry, const Description& description, std::size_t owner,
    const pugi::xml_node& reference)
{
    const std::size_t target
        = reference ? description.find(elementText(reference)) : Description::absent;
    if (target != Description::absent) {
        entry.availableIf.push_back({ referenceTag(reference.name()), owner, target, false });
    }
}

} // namespace

std::vector<EnumEntry> enumEntries(const Description& description, std::size_t enumeration)
{
    std::vector<EnumEntry> entries;
    for (const pugi::xml_node& element :
        description.node(enumeration).element.children("EnumEntry")) {
        const std::string_view text = childText(element, "Value");
        const auto number = parseNumber(text);
        const auto value = number ? number->rounded() : std::nullopt;
        if (!value) {
            continue;
        }
        EnumEntry entry;
        entry.name = element.attribute("Name").value();
        entry.value = *value;
        entry.isInvisible = levelOf(element) == 0;
        addCondition(entry, description, enumeration, element.child("pIsImplemented"));
        addCondition(entry, description, enumeration, element.child("pIsAvailable"));
        entries.push_back(std::move(entry));
    }
    return entries;
}

} // namespace zqcameralib
