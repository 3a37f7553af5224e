// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/TermSet.h"

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
ReferenceTag referenceTag(std::string_view element);

using ReferenceTags = TermSet<ReferenceTag>;

/// Whether the value comes from there, directly or through a formula.
inline constexpr ReferenceTags isValueSource { ReferenceTag::Value, ReferenceTag::Variable };
/// Whether it is followed whenever the value is read.
inline constexpr ReferenceTags isAlwaysRead = isValueSource
    | ReferenceTags { ReferenceTag::Address, ReferenceTag::Index, ReferenceTag::Offset,
          ReferenceTag::Length };
/// Whether it is followed when the value is evaluated: beside what is always read one of the
/// indexed values, and what a command writes.
inline constexpr ReferenceTags isValueReference = isAlwaysRead
    | ReferenceTags { ReferenceTag::ValueIndexed, ReferenceTag::ValueDefault,
          ReferenceTag::CommandValue };
/// Whether a value written to the node goes there.
inline constexpr ReferenceTags passesWriteOn { ReferenceTag::Value, ReferenceTag::ValueCopy,
    ReferenceTag::ValueIndexed, ReferenceTag::ValueDefault };
inline constexpr ReferenceTags isLimit { ReferenceTag::Min, ReferenceTag::Max, ReferenceTag::Inc };
/// Whether it decides if the node is implemented, available or locked.
inline constexpr ReferenceTags isCondition { ReferenceTag::IsImplemented, ReferenceTag::IsAvailable,
    ReferenceTag::IsLocked };
/// Whether it says nothing about values: the node does not change when the other does.
inline constexpr ReferenceTags isOnlyNaming { ReferenceTag::Port, ReferenceTag::Feature,
    ReferenceTag::Alias, ReferenceTag::CastAlias, ReferenceTag::Terminal };

/// For walks that follow the references of one tag.
constexpr ReferenceTags only(ReferenceTag tag)
{
    return { tag };
}

} // namespace zqcameralib
