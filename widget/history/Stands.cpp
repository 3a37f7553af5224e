// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "history/Stands.h"

#include "text/ValueText.h"

#include <QStringList>

#include <algorithm>

namespace featurebrowser {

// A selector may be selected itself. A description can also make them select each other.
Stands standsOf(const FeatureModel& model, const FeatureRow& row)
{
    Stands stands;
    std::vector<const FeatureRow*> open { &row };
    while (!open.empty()) {
        const FeatureRow* selected = open.back();
        open.pop_back();
        for (const std::string& name : selectorNames(*selected)) {
            const FeatureRow* selector = model.find(name);
            const bool isKnown = name == row.name
                || std::any_of(stands.begin(), stands.end(),
                    [&](const Stand& stand) { return stand.selector == name; });
            if (selector != nullptr && !isKnown) {
                stands.push_back({ name, valueText(*selector) });
                open.push_back(selector);
            }
        }
    }
    return stands;
}

Stands movedSince(const FeatureModel& model, const Stands& stands)
{
    Stands moved;
    std::copy_if(
        stands.begin(), stands.end(), std::back_inserter(moved), [&model](const Stand& stand) {
            const FeatureRow* selector = model.find(stand.selector);
            return selector == nullptr || valueText(*selector) != stand.text;
        });
    return moved;
}

QString standsText(const Stands& stands)
{
    QStringList parts;
    for (const Stand& stand : stands) {
        parts.append(toText(stand.selector) + QStringLiteral(" = ") + stand.text);
    }
    return parts.join(QStringLiteral(", "));
}

std::optional<EditValue> enteredAgain(const FeatureRow& row, const RowValue& held)
{
    if (row.value.index() != held.index()) {
        return std::nullopt;
    }
    if (const auto* integer = std::get_if<IntegerValue>(&held)) {
        return integer->value;
    }
    if (const auto* number = std::get_if<FloatValue>(&held)) {
        return number->value;
    }
    if (const auto* text = std::get_if<TextValue>(&held)) {
        return text->text;
    }
    if (std::holds_alternative<ChoiceValue>(held)) { // its place may have changed since
        const auto index = static_cast<int>(entryTexts(row).indexOf(heldText(held)));
        return index < 0 ? std::nullopt : std::optional<EditValue>(EntryIndex { index });
    }
    return std::nullopt;
}

} // namespace featurebrowser
