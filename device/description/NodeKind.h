// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/TermSet.h"

#include <cstdint>
#include <string_view>

namespace zqcameralib {

/// What a node of a description is, named as its element is.
enum class NodeKind : std::uint8_t {
    Integer,
    IntReg,
    MaskedIntReg,
    StructEntry,
    IntSwissKnife,
    IntConverter,
    Float,
    FloatReg,
    SwissKnife,
    Converter,
    Boolean,
    Enumeration,
    String,
    StringReg,
    Register,
    Command,
    Category,
    Port,
    StructReg,
    Group,
    RegisterDescription,
    Other, ///< any other element
};

/// The kind of an element of that name.
NodeKind nodeKind(std::string_view name);

using NodeKinds = TermSet<NodeKind>;

/// Whether its value is some bits of a register.
inline constexpr NodeKinds isBitField { NodeKind::MaskedIntReg, NodeKind::StructEntry };
/// Whether it is an integer in a register, or in some bits of one.
inline constexpr NodeKinds isIntegerRegister = isBitField | NodeKinds { NodeKind::IntReg };
/// Whether it is a register of many bytes, whose length the camera may tell.
inline constexpr NodeKinds isByteRegister { NodeKind::StringReg, NodeKind::Register };
/// Whether its value is kept in the camera, whole or as some bits.
inline constexpr NodeKinds isRegister
    = isIntegerRegister | isByteRegister | NodeKinds { NodeKind::FloatReg };
/// Whether its value is only calculated.
inline constexpr NodeKinds isFormula { NodeKind::IntSwissKnife, NodeKind::SwissKnife };
/// Whether values are calculated on their way through it.
inline constexpr NodeKinds isConverter { NodeKind::IntConverter, NodeKind::Converter };
/// Whether it can stand where a number is needed.
inline constexpr NodeKinds hasNumber = isIntegerRegister | isFormula | isConverter
    | NodeKinds { NodeKind::Integer, NodeKind::Float, NodeKind::FloatReg, NodeKind::Boolean,
          NodeKind::Enumeration };
inline constexpr NodeKinds hasText { NodeKind::String, NodeKind::StringReg };
/// Whether it has a value of any type, or is a command: it can be a feature then.
inline constexpr NodeKinds hasValue
    = hasNumber | hasText | NodeKinds { NodeKind::Register, NodeKind::Command };
/// Whether what it holds counts as standing beside it.
inline constexpr NodeKinds isContainer { NodeKind::StructReg, NodeKind::Group,
    NodeKind::RegisterDescription };

} // namespace zqcameralib
