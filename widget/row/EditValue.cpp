// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "row/EditValue.h"

namespace featurebrowser {

namespace {

template <typename Kind, typename Value>
bool put(RowValue& held, Value Kind::*member, const Value* entered)
{
    auto* kind = std::get_if<Kind>(&held);
    if (kind == nullptr || entered == nullptr) {
        return false;
    }
    kind->*member = *entered;
    return true;
}

} // namespace

std::optional<RowValue> withEntered(RowValue held, const EditValue& entered)
{
    const auto* entry = std::get_if<EntryIndex>(&entered);
    const bool isPut = put(held, &IntegerValue::value, std::get_if<qint64>(&entered))
        || put(held, &FloatValue::value, std::get_if<double>(&entered))
        || put(held, &TextValue::text, std::get_if<std::string>(&entered))
        || put(held, &ChoiceValue::index, entry != nullptr ? &entry->index : nullptr);
    return isPut ? std::optional<RowValue>(std::move(held)) : std::nullopt;
}

bool fits(const FeatureRow& row, const EditValue& value)
{
    const auto* choice = std::get_if<ChoiceValue>(&row.value);
    const auto* entry = std::get_if<EntryIndex>(&value);
    if (choice != nullptr && entry != nullptr) {
        return entry->index >= 0 && static_cast<std::size_t>(entry->index) < choice->entries.size();
    }
    return withEntered(row.value, value).has_value();
}

bool holds(const FeatureRow& row, const EditValue& value)
{
    const auto entered = withEntered(row.value, value);
    return row.hasValue && entered && sameValue(*entered, row.value);
}

} // namespace featurebrowser
