#include "description/ReferenceTag.h"

#include "description/TermTable.h"

namespace zqcameralib {

namespace {

enum Trait : unsigned {
    value = 1U << 0U,
    always = 1U << 1U, ///< of values
    source = 1U << 2U, ///< of values
    written = 1U << 3U,
    limit = 1U << 4U,
    condition = 1U << 5U,
    port = 1U << 6U,
    repeatable = 1U << 7U,
    name = 1U << 8U, ///< names another node, whatever its value
};

constexpr TermTable<ReferenceTag, 25> table { { {
    { ReferenceTag::Value, "pValue", value | always | source | written },
    { ReferenceTag::ValueCopy, "pValueCopy", written },
    { ReferenceTag::ValueIndexed, "pValueIndexed", value | written | repeatable },
    { ReferenceTag::ValueDefault, "pValueDefault", value | written },
    { ReferenceTag::CommandValue, "pCommandValue", value },
    { ReferenceTag::Address, "pAddress", value | always | repeatable },
    { ReferenceTag::Index, "pIndex", value | always | repeatable },
    { ReferenceTag::Offset, "pOffset", value | always },
    { ReferenceTag::Length, "pLength", value | always },
    { ReferenceTag::Variable, "pVariable", value | always | source | repeatable },
    { ReferenceTag::Min, "pMin", limit },
    { ReferenceTag::Max, "pMax", limit },
    { ReferenceTag::Inc, "pInc", limit },
    { ReferenceTag::IsImplemented, "pIsImplemented", condition },
    { ReferenceTag::IsAvailable, "pIsAvailable", condition },
    { ReferenceTag::IsLocked, "pIsLocked", condition },
    { ReferenceTag::Port, "pPort", port | name },
    { ReferenceTag::Feature, "pFeature", name },
    { ReferenceTag::Selected, "pSelected", 0 },
    { ReferenceTag::Invalidator, "pInvalidator", 0 },
    { ReferenceTag::Alias, "pAlias", name },
    { ReferenceTag::CastAlias, "pCastAlias", name },
    { ReferenceTag::Error, "pError", name },
    { ReferenceTag::Terminal, "pTerminal", name },
    { ReferenceTag::Other, "", 0 },
} } };

static_assert(table.isInOrder(ReferenceTag::Other));

} // namespace

ReferenceTag referenceTag(std::string_view element)
{
    return table.find(element);
}

bool isValueReference(ReferenceTag tag)
{
    return table.hasAny(tag, value);
}

bool isAlwaysRead(ReferenceTag tag)
{
    return table.hasAny(tag, always);
}

bool isValueSource(ReferenceTag tag)
{
    return table.hasAny(tag, source);
}

bool passesWriteOn(ReferenceTag tag)
{
    return table.hasAny(tag, written);
}

bool isLimit(ReferenceTag tag)
{
    return table.hasAny(tag, limit);
}

bool isCondition(ReferenceTag tag)
{
    return table.hasAny(tag, condition);
}

bool isEvaluated(ReferenceTag tag)
{
    return table.hasAny(tag, value | limit | condition | port);
}

bool isRepeatable(ReferenceTag tag)
{
    return table.hasAny(tag, repeatable);
}

bool isDependency(ReferenceTag tag)
{
    return !table.hasAny(tag, name);
}

} // namespace zqcameralib
