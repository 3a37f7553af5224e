#include "row/EditValue.h"

namespace featurebrowser {

bool fits(const FeatureRow& row, const EditValue& value)
{
    if (const auto* choice = std::get_if<ChoiceValue>(&row.value)) {
        const auto* entered = std::get_if<EntryIndex>(&value);
        return entered != nullptr && entered->index >= 0
            && static_cast<std::size_t>(entered->index) < choice->entries.size();
    }
    if (std::holds_alternative<IntegerValue>(row.value)) {
        return std::holds_alternative<qint64>(value);
    }
    if (std::holds_alternative<FloatValue>(row.value)) {
        return std::holds_alternative<double>(value);
    }
    return std::holds_alternative<TextValue>(row.value)
        && std::holds_alternative<std::string>(value);
}

bool holds(const FeatureRow& row, const EditValue& value)
{
    if (!row.hasValue) {
        return false;
    }
    if (const auto* integer = std::get_if<IntegerValue>(&row.value)) {
        const auto* entered = std::get_if<qint64>(&value);
        return entered != nullptr && *entered == integer->value;
    }
    if (const auto* number = std::get_if<FloatValue>(&row.value)) {
        const auto* entered = std::get_if<double>(&value);
        return entered != nullptr && *entered == number->value;
    }
    if (const auto* text = std::get_if<TextValue>(&row.value)) {
        const auto* entered = std::get_if<std::string>(&value);
        return entered != nullptr && *entered == text->text;
    }
    const auto* choice = std::get_if<ChoiceValue>(&row.value);
    const auto* entered = std::get_if<EntryIndex>(&value);
    return choice != nullptr && entered != nullptr && entered->index == choice->index;
}

} // namespace featurebrowser
