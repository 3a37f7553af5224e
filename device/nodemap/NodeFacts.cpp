// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "nodemap/NodeFacts.h"

#include "base/NumberText.h"
#include "description/RegisterPlace.h"

namespace zqcameralib {

namespace {

std::optional<Number> numberIn(const pugi::xml_node& element)
{
    return parseNumber(elementText(element));
}

std::int64_t integerIn(const pugi::xml_node& element, std::int64_t whenAbsent)
{
    const std::optional<Number> number = element ? numberIn(element) : std::nullopt;
    return number ? number->rounded().value_or(whenAbsent) : whenAbsent;
}

/// By a reference if there is one, else by a number.
NumberSource sourceIn(const Description& description, const pugi::xml_node& element,
    const char* reference, const char* number)
{
    NumberSource source;
    if (const pugi::xml_node referring = element.child(reference)) {
        source.node = description.find(elementText(referring));
    } else if (const pugi::xml_node given = element.child(number)) {
        source.constant = numberIn(given);
    }
    return source;
}

void addIndexed(const Description& description, const pugi::xml_node& element, ValueFacts& facts)
{
    facts.index = description.find(childText(element, "pIndex"));
    for (const char* tag : { "ValueIndexed", "pValueIndexed" }) {
        for (const pugi::xml_node& child : element.children(tag)) {
            NumberSource source;
            if (tag[0] == 'p') {
                source.node = description.find(elementText(child));
            } else {
                source.constant = numberIn(child);
            }
            const auto number = parseNumber(attributeText(child, "Index"));
            facts.indexed.emplace(number ? number->integer : 0, source);
        }
    }
    facts.otherwise = sourceIn(description, element, "pValueDefault", "ValueDefault");
}

void addCopies(const Description& description, const pugi::xml_node& element, ValueFacts& facts)
{
    for (const pugi::xml_node& copy : element.children("pValueCopy")) {
        const std::size_t node = description.find(elementText(copy));
        if (node != Description::absent) {
            facts.copies.push_back(node);
        }
    }
}

void addNumericValues(const pugi::xml_node& element, ValueFacts& facts)
{
    for (const pugi::xml_node& entry : element.children("EnumEntry")) {
        const std::optional<Number> numeric = numberIn(entry.child("NumericValue"));
        if (numeric) {
            facts.numeric.emplace(integerIn(entry.child("Value"), 0), numeric->asReal());
        }
    }
}

bool swapsBytes(const Description& description, const pugi::xml_node& reg)
{
    const std::size_t port = description.find(childText(reg, "pPort"));
    return port != Description::absent
        && childText(description.node(port).element, "SwapEndianess") == "Yes";
}

/// Ids of chunks stand there as hexadecimal digits.
NumberSource chunkIdIn(const Description& description, const pugi::xml_node& reg)
{
    NumberSource id;
    const std::size_t port = description.find(childText(reg, "pPort"));
    if (port == Description::absent) {
        return id;
    }
    const pugi::xml_node& element = description.node(port).element;
    id.node = description.find(childText(element, "pChunkID"));
    if (const std::string_view digits = childText(element, "ChunkID"); !digits.empty()) {
        constexpr unsigned hexadecimal = 16;
        id.constant = Number::of(static_cast<std::int64_t>(leadingUnsigned(digits, hexadecimal)));
    }
    return id;
}

void addPlace(const Description& description, const pugi::xml_node& reg, RegisterFacts& facts)
{
    for (const pugi::xml_node& child : reg.children()) {
        const std::string_view tag = child.name();
        if (tag == "Address") {
            facts.address += static_cast<std::uint64_t>(integerIn(child, 0));
        } else if (tag == "pAddress") {
            facts.addends.push_back(description.find(elementText(child)));
        } else if (nodeKind(tag) == NodeKind::IntSwissKnife) {
            facts.addends.push_back(description.find(child.attribute("Name").value()));
        } else if (tag == "pIndex") {
            RegisterFacts::Step step { description.find(elementText(child)), {} };
            step.size.constant = parseNumber(attributeText(child, "Offset"));
            step.size.node = description.find(attributeText(child, "pOffset"));
            facts.steps.push_back(step);
        }
    }
}

} // namespace

bool isIndexed(const DescriptionNode& node)
{
    return (node.kind == NodeKind::Integer || node.kind == NodeKind::Float)
        && node.element.child("pIndex");
}

ValueFacts valueFacts(const Description& description, std::size_t node)
{
    const pugi::xml_node& element = description.node(node).element;
    ValueFacts facts;
    facts.value = sourceIn(description, element, "pValue", "Value");
    facts.text = childText(element, "Value");
    addCopies(description, element, facts);
    if (isIndexed(description.node(node))) {
        addIndexed(description, element, facts);
    }
    facts.minimum = sourceIn(description, element, "pMin", "Min");
    facts.maximum = sourceIn(description, element, "pMax", "Max");
    facts.increment = sourceIn(description, element, "pInc", "Inc");
    facts.on = integerIn(element.child("OnValue"), 1);
    facts.off = integerIn(element.child("OffValue"), 0);
    facts.command = sourceIn(description, element, "pCommandValue", "CommandValue");
    if (description.node(node).kind == NodeKind::Enumeration) {
        addNumericValues(element, facts);
    }
    return facts;
}

RegisterFacts registerFacts(const Description& description, std::size_t node)
{
    const DescriptionNode& owner = description.node(node);
    const pugi::xml_node reg = owner.registerElement();
    // An entry of a register may say these for itself.
    const auto own = [&](const char* tag) {
        const std::string_view text = childText(owner.element, tag);
        return text.empty() ? childText(reg, tag) : text;
    };
    RegisterFacts facts;
    addPlace(description, reg, facts);
    facts.length = sourceIn(description, reg, "pLength", "Length");
    facts.isBigEndian = (own("Endianess") == "BigEndian") != swapsBytes(description, reg);
    facts.isSigned = own("Sign") == "Signed";
    facts.isBitField = isBitField(owner.kind);
    facts.isReadable = own("AccessMode") != "WO";
    facts.isChunkOrEventData = isOnChunkOrEventPort(description, owner);
    facts.chunkId = chunkIdIn(description, reg);
    const pugi::xml_node bit = owner.element.child("Bit");
    facts.lsb = static_cast<unsigned>(integerIn(bit ? bit : owner.element.child("LSB"), 0));
    facts.msb = static_cast<unsigned>(integerIn(bit ? bit : owner.element.child("MSB"), 0));
    return facts;
}

} // namespace zqcameralib
