// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "validation/NodeFault.h"

#include "base/NumberText.h"
#include "description/RegisterPlace.h"
#include "nodemap/FormulaProgram.h"
#include "words/Words.h"

#include <algorithm>
#include <array>

namespace zqcameralib {

namespace {

constexpr std::size_t maxNameLength = 1000;

/// An integer child: `fallback` when absent; -1 when it is no number.
std::int64_t integerChild(const pugi::xml_node& element, const char* tag, std::int64_t fallback)
{
    const pugi::xml_node child = element.child(tag);
    return child ? wholeInteger(elementText(child)).value_or(-1) : fallback;
}

bool isPossibleLength(NodeKind kind, std::int64_t length)
{
    if (kind == NodeKind::FloatReg) {
        return length == 4 || length == 8;
    }
    return length >= 1 && length <= (isIntegerRegister(kind) ? 8 : maxRegisterLength);
}

/// The length of a register as far as the description fixes it; `told` when the camera tells it.
constexpr std::int64_t told = -2;

std::int64_t registerLength(const Description& description, const pugi::xml_node& reg)
{
    const pugi::xml_node reference = reg.child("pLength");
    if (!reference) {
        return integerChild(reg, "Length", 4);
    }
    const std::size_t target = description.find(elementText(reference));
    if (target == Description::absent) {
        return told;
    }
    const DescriptionNode& node = description.node(target);
    return node.kind == NodeKind::Integer && node.element.child("Value")
        ? integerChild(node.element, "Value", -1)
        : told;
}

bool hasPort(const Description& description, const pugi::xml_node& reg)
{
    const std::size_t port = description.find(childText(reg, "pPort"));
    return port != Description::absent && description.node(port).kind == NodeKind::Port;
}

bool hasImpossibleBits(const pugi::xml_node& element, std::int64_t length)
{
    constexpr std::array<const char*, 3> tags { "LSB", "MSB", "Bit" };
    return std::any_of(tags.begin(), tags.end(), [&](const char* tag) {
        const std::int64_t bit = integerChild(element, tag, 0);
        return bit < 0 || bit >= 8 * length;
    });
}

/// Why the address of a register cannot be told.
Words placeFault(const pugi::xml_node& reg)
{
    bool hasPlace = false;
    for (const pugi::xml_node& child : reg.children()) {
        const std::string_view tag = child.name();
        const bool isFormula = nodeKind(tag) == NodeKind::IntSwissKnife;
        if (isFormula && attributeText(child, "Name").empty()) {
            return translated("its address has a formula without a name");
        }
        hasPlace
            = hasPlace || isFormula || tag == "Address" || tag == "pAddress" || tag == "pIndex";
    }
    return hasPlace ? Words() : translated("its register has no address");
}

Words registerFault(const Description& description, const DescriptionNode& node)
{
    const pugi::xml_node reg = node.registerElement();
    if (node.kind == NodeKind::StructEntry && nodeKind(reg.name()) != NodeKind::StructReg) {
        return translated("it stands outside of a register");
    }
    if (!hasPort(description, reg)) {
        return translated("its register has no port");
    }
    if (Words fault = placeFault(reg); !fault.empty()) {
        return fault;
    }
    const std::int64_t length = registerLength(description, reg);
    if (!isPossibleLength(node.kind, length) && !(isByteRegister(node.kind) && length == told)) {
        return translated("its register has an impossible length");
    }
    return isBitField(node.kind) && hasImpossibleBits(node.element, length)
        ? translated("its bits lie outside of its register")
        : Words();
}

/// Whether there is anything that holds the value of a node.
bool hasSource(const DescriptionNode& node)
{
    const pugi::xml_node& element = node.element;
    const bool canBeIndexed = node.kind == NodeKind::Integer || node.kind == NodeKind::Float;
    return element.child("pValue") || (!isConverter(node.kind) && element.child("Value"))
        || (canBeIndexed && (element.child("ValueIndexed") || element.child("pValueIndexed")));
}

/// What is wrong with a node that is neither a register nor a formula.
Words sourceFault(const DescriptionNode& node)
{
    if (node.kind == NodeKind::Command && !node.element.child("CommandValue")
        && !node.element.child("pCommandValue")) {
        return translated("it has no value to write");
    }
    return isFormula(node.kind) || hasSource(node) ? Words() : translated("it has no value");
}

Words formulaFault(const Description& description, const DescriptionNode& node)
{
    if (!isFormula(node.kind) && !isConverter(node.kind)) {
        return {};
    }
    return FormulaProgram::compile(description, description.indexOf(node)).status().words();
}

Words referenceFault(const Description& description, const DescriptionNode& node)
{
    for (const Reference& reference : node.references) {
        if (!isValueReference(reference.tag)) {
            continue;
        }
        if (!reference.isResolved()) {
            return worded("it refers to %s, which does not exist",
                std::string(elementText(reference.element)).c_str());
        }
        const DescriptionNode& target = description.node(reference.target);
        const bool isText = node.kind == NodeKind::String && reference.tag == ReferenceTag::Value;
        const bool isState
            = reference.tag == ReferenceTag::Variable && target.kind == NodeKind::Command;
        if (isText ? !hasText(target.kind) : !hasNumber(target.kind) && !isState) {
            return worded(
                "it refers to %s, which has no such value", std::string(target.name).c_str());
        }
    }
    return {};
}

} // namespace

Words nodeFault(const Description& description, const DescriptionNode& node)
{
    if (!hasValue(node.kind)) {
        return {};
    }
    if (node.name.size() > maxNameLength) {
        return translated("its name is too long");
    }
    Words fault = isRegister(node.kind) ? registerFault(description, node) : sourceFault(node);
    fault = fault.empty() ? formulaFault(description, node) : fault;
    return fault.empty() ? referenceFault(description, node) : fault;
}

} // namespace zqcameralib
