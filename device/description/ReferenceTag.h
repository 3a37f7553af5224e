#pragma once

#include <cstdint>
#include <string_view>

namespace zqcameralib {

/// What one node refers to another for: the name of the element without its "p".
enum class ReferenceTag : std::uint8_t {
    Value,
    ValueCopy,
    ValueIndexed,
    ValueDefault,
    CommandValue,
    Address,
    Index,
    Offset, ///< also the attribute of a pIndex
    Length,
    Variable,
    Min,
    Max,
    Inc,
    IsImplemented,
    IsAvailable,
    IsLocked,
    Port,
    Feature,
    Selected,
    Invalidator,
    Alias,
    CastAlias,
    Error,
    Terminal,
    Other, ///< any other element
};

/// The tag of an element of that name: Value for "pValue".
ReferenceTag referenceTag(std::string_view name);

/// Whether it is followed when the value of the node that makes it is evaluated.
bool isValueReference(ReferenceTag tag);
/// Whether it is followed whenever the value is read: of indexed values only one is, and none of a
/// command.
bool isAlwaysRead(ReferenceTag tag);
/// Whether the value comes from there, directly or through a formula.
bool isValueSource(ReferenceTag tag);
/// Whether a value written to the node goes there.
bool passesWriteOn(ReferenceTag tag);
bool isLimit(ReferenceTag tag);
/// Whether it decides if the node is implemented, available or locked.
bool isCondition(ReferenceTag tag);
/// Whether the node map follows it: values, limits, conditions and ports.
bool isEvaluated(ReferenceTag tag);
/// Whether several of them in one node have a meaning.
bool isRepeatable(ReferenceTag tag);
/// Whether the node can change, as a value or in its limits and conditions, when the other does.
bool isDependency(ReferenceTag tag);

/// For walks that follow the references of one tag.
inline auto only(ReferenceTag followed)
{
    return [followed](ReferenceTag tag) { return tag == followed; };
}

} // namespace zqcameralib
