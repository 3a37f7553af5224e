// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "description/ReferenceTag.h"

namespace zqcameralib {

namespace {

constexpr std::array<Word<ReferenceTag>, 24> words { {
    { ReferenceTag::Value, "pValue" },
    { ReferenceTag::ValueCopy, "pValueCopy" },
    { ReferenceTag::ValueIndexed, "pValueIndexed" },
    { ReferenceTag::ValueDefault, "pValueDefault" },
    { ReferenceTag::CommandValue, "pCommandValue" },
    { ReferenceTag::Address, "pAddress" },
    { ReferenceTag::Index, "pIndex" },
    { ReferenceTag::Offset, "pOffset" },
    { ReferenceTag::Length, "pLength" },
    { ReferenceTag::Variable, "pVariable" },
    { ReferenceTag::Min, "pMin" },
    { ReferenceTag::Max, "pMax" },
    { ReferenceTag::Inc, "pInc" },
    { ReferenceTag::IsImplemented, "pIsImplemented" },
    { ReferenceTag::IsAvailable, "pIsAvailable" },
    { ReferenceTag::IsLocked, "pIsLocked" },
    { ReferenceTag::Port, "pPort" },
    { ReferenceTag::Feature, "pFeature" },
    { ReferenceTag::Selected, "pSelected" },
    { ReferenceTag::Invalidator, "pInvalidator" },
    { ReferenceTag::Alias, "pAlias" },
    { ReferenceTag::CastAlias, "pCastAlias" },
    { ReferenceTag::Error, "pError" },
    { ReferenceTag::Terminal, "pTerminal" },
} };

} // namespace

ReferenceTag referenceTag(std::string_view element)
{
    return termOf(words, element, ReferenceTag::Other);
}

} // namespace zqcameralib
