#include "nodemap/ElementRule.h"

#include "description/ReferenceTag.h"

#include <unordered_map>

namespace zqcameralib {

namespace {

using Use = ElementRule::Use;

ElementRule referenceRule(ReferenceTag tag)
{
    if (!isEvaluated(tag) || tag == ReferenceTag::Offset) { // an offset is an attribute
        return {};
    }
    return { tag == ReferenceTag::Length ? Use::Length : Use::Reference, !isRepeatable(tag) };
}

} // namespace

ElementRule elementRule(std::string_view name)
{
    static const std::unordered_map<std::string_view, ElementRule> rules {
        { "Value", { Use::Text, true } },
        { "ValueIndexed", { Use::Text, false } },
        { "ValueDefault", { Use::Text, true } },
        { "CommandValue", { Use::Text, true } },
        { "OnValue", { Use::Text, true } },
        { "OffValue", { Use::Text, true } },
        { "NumericValue", { Use::Text, true } },
        { "Min", { Use::Text, true } },
        { "Max", { Use::Text, true } },
        { "Inc", { Use::Text, true } },
        { "Representation", { Use::Text, true } },
        { "AccessMode", { Use::Text, true } },
        { "ImposedAccessMode", { Use::Text, true } },
        { "Cachable", { Use::Text, true } },
        { "Address", { Use::Text, false } },
        { "Length", { Use::Text, true } },
        { "Endianess", { Use::Text, true } },
        { "Sign", { Use::Text, true } },
        { "LSB", { Use::Text, true } },
        { "MSB", { Use::Text, true } },
        { "Bit", { Use::Text, true } },
        { "ChunkID", { Use::Text, true } },
        { "EventID", { Use::Text, true } },
        { "IsLinear", { Use::Text, true } },
        { "Slope", { Use::Text, true } },
        { "Constant", { Use::Text, false } },
        { "Expression", { Use::Formula, false } },
        { "Formula", { Use::Formula, true } },
        { "FormulaTo", { Use::Formula, true } },
        { "FormulaFrom", { Use::Formula, true } },
        { "EnumEntry", { Use::Element, false } },
        { "IntSwissKnife", { Use::Element, false } },
        { "SwissKnife", { Use::Element, false } },
    };
    const auto found = rules.find(name);
    return found == rules.end() ? referenceRule(referenceTag(name)) : found->second;
}

} // namespace zqcameralib
