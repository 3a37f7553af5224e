// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "description/NodeKind.h"

namespace zqcameralib {

namespace {

constexpr std::array<Word<NodeKind>, 21> words { {
    { NodeKind::Integer, "Integer" },
    { NodeKind::IntReg, "IntReg" },
    { NodeKind::MaskedIntReg, "MaskedIntReg" },
    { NodeKind::StructEntry, "StructEntry" },
    { NodeKind::IntSwissKnife, "IntSwissKnife" },
    { NodeKind::IntConverter, "IntConverter" },
    { NodeKind::Float, "Float" },
    { NodeKind::FloatReg, "FloatReg" },
    { NodeKind::SwissKnife, "SwissKnife" },
    { NodeKind::Converter, "Converter" },
    { NodeKind::Boolean, "Boolean" },
    { NodeKind::Enumeration, "Enumeration" },
    { NodeKind::String, "String" },
    { NodeKind::StringReg, "StringReg" },
    { NodeKind::Register, "Register" },
    { NodeKind::Command, "Command" },
    { NodeKind::Category, "Category" },
    { NodeKind::Port, "Port" },
    { NodeKind::StructReg, "StructReg" },
    { NodeKind::Group, "Group" },
    { NodeKind::RegisterDescription, "RegisterDescription" },
} };

} // namespace

NodeKind nodeKind(std::string_view name)
{
    return termOf(words, name, NodeKind::Other);
}

} // namespace zqcameralib
