#pragma once

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

/// Whether it can stand where a number is needed.
bool hasNumber(NodeKind kind);
bool hasText(NodeKind kind);
/// Whether it has a value of any type, or is a command: it can be a feature then.
bool hasValue(NodeKind kind);
/// Whether its value is kept in the camera, whole or as some bits.
bool isRegister(NodeKind kind);
/// Whether it is an integer in a register, or in some bits of one.
bool isIntegerRegister(NodeKind kind);
/// Whether its value is some bits of a register.
bool isBitField(NodeKind kind);
/// Whether it is a register of many bytes, whose length the camera may tell.
bool isByteRegister(NodeKind kind);
/// Whether its value is only calculated.
bool isFormula(NodeKind kind);
/// Whether values are calculated on their way through it.
bool isConverter(NodeKind kind);
/// Whether what it holds counts as standing beside it.
bool isContainer(NodeKind kind);

} // namespace zqcameralib
