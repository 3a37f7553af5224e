#include "description/NodeKind.h"

#include "description/TermTable.h"

namespace zqcameralib {

namespace {

enum Trait : unsigned {
    number = 1U << 0U,
    text = 1U << 1U,
    reg = 1U << 2U,
    integer = 1U << 3U, ///< of registers
    bits = 1U << 4U,
    bytes = 1U << 5U,
    formula = 1U << 6U,
    converter = 1U << 7U,
    action = 1U << 8U,
    container = 1U << 9U,
};

constexpr TermTable<NodeKind, 22> table { { {
    { NodeKind::Integer, "Integer", number },
    { NodeKind::IntReg, "IntReg", number | reg | integer },
    { NodeKind::MaskedIntReg, "MaskedIntReg", number | reg | integer | bits },
    { NodeKind::StructEntry, "StructEntry", number | reg | integer | bits },
    { NodeKind::IntSwissKnife, "IntSwissKnife", number | formula },
    { NodeKind::IntConverter, "IntConverter", number | converter },
    { NodeKind::Float, "Float", number },
    { NodeKind::FloatReg, "FloatReg", number | reg },
    { NodeKind::SwissKnife, "SwissKnife", number | formula },
    { NodeKind::Converter, "Converter", number | converter },
    { NodeKind::Boolean, "Boolean", number },
    { NodeKind::Enumeration, "Enumeration", number },
    { NodeKind::String, "String", text },
    { NodeKind::StringReg, "StringReg", text | reg | bytes },
    { NodeKind::Register, "Register", reg | bytes },
    { NodeKind::Command, "Command", action },
    { NodeKind::Category, "Category", 0 },
    { NodeKind::Port, "Port", 0 },
    { NodeKind::StructReg, "StructReg", container },
    { NodeKind::Group, "Group", container },
    { NodeKind::RegisterDescription, "RegisterDescription", container },
    { NodeKind::Other, "", 0 },
} } };

static_assert(table.isInOrder(NodeKind::Other));

} // namespace

NodeKind nodeKind(std::string_view name)
{
    return table.find(name);
}

bool hasNumber(NodeKind kind)
{
    return table.hasAny(kind, number);
}

bool hasText(NodeKind kind)
{
    return table.hasAny(kind, text);
}

bool hasValue(NodeKind kind)
{
    return table.hasAny(kind, number | text | reg | action);
}

bool isRegister(NodeKind kind)
{
    return table.hasAny(kind, reg);
}

bool isIntegerRegister(NodeKind kind)
{
    return table.hasAny(kind, integer);
}

bool isBitField(NodeKind kind)
{
    return table.hasAny(kind, bits);
}

bool isByteRegister(NodeKind kind)
{
    return table.hasAny(kind, bytes);
}

bool isFormula(NodeKind kind)
{
    return table.hasAny(kind, formula);
}

bool isConverter(NodeKind kind)
{
    return table.hasAny(kind, converter);
}

bool isContainer(NodeKind kind)
{
    return table.hasAny(kind, container);
}

} // namespace zqcameralib
