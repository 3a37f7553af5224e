// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "description/RegisterPlace.h"

#include "base/NumberText.h"

#include <algorithm>

namespace zqcameralib {

namespace {

std::uint64_t childNumber(const pugi::xml_node& element, const char* tag)
{
    return leadingUnsigned(childText(element, tag));
}

std::uint64_t ownBits(const pugi::xml_node& element)
{
    const bool isOneBit = !childText(element, "Bit").empty();
    const std::uint64_t lsb = childNumber(element, isOneBit ? "Bit" : "LSB");
    const std::uint64_t msb = childNumber(element, isOneBit ? "Bit" : "MSB");
    const std::uint64_t low = std::min({ lsb, msb, std::uint64_t(63) });
    const std::uint64_t width = std::min(std::max(lsb, msb) - std::min(lsb, msb) + 1, 64 - low);
    return width == 64 ? UINT64_MAX : ((std::uint64_t(1) << width) - 1) << low;
}

bool isFixed(const pugi::xml_node& reg)
{
    return reg.child("Address") && !reg.child("pAddress") && !reg.child("pIndex")
        && !reg.child("IntSwissKnife");
}

} // namespace

bool RegisterPlace::overlaps(const RegisterPlace& other) const
{
    if (first > other.last || other.first > last) {
        return false;
    }
    // Bits are counted within a register: they only compare when both are the same one.
    const bool isSameRegister = first == other.first && last == other.last;
    return !isSameRegister || (bits & other.bits) != 0;
}

std::optional<RegisterPlace> fixedPlace(const DescriptionNode& node)
{
    const pugi::xml_node reg = node.registerElement();
    if (!isRegister(node.kind) || !isFixed(reg)) {
        return std::nullopt;
    }
    RegisterPlace place;
    for (const pugi::xml_node& address : reg.children("Address")) {
        place.first += leadingUnsigned(elementText(address)); // several add up
    }
    place.last = place.first + std::max<std::uint64_t>(childNumber(reg, "Length"), 1) - 1;
    place.bits = isBitField(node.kind) ? ownBits(node.element) : UINT64_MAX;
    return place.last >= place.first ? std::optional(place) : std::nullopt;
}

bool isReadableByOthers(const Description& description, std::size_t node)
{
    const auto place = fixedPlace(description.node(node));
    return place
        && std::any_of(
            description.nodes().begin(), description.nodes().end(), [&](const auto& other) {
                const auto shared = fixedPlace(other);
                const std::string_view mode = childText(other.registerElement(), "AccessMode");
                return shared && shared->first == place->first && shared->last == place->last
                    && (mode == "RW" || mode == "RO");
            });
}

bool isOnChunkOrEventPort(const Description& description, const DescriptionNode& node)
{
    bool isFilled = false;
    node.forEachTarget(only(ReferenceTag::Port), [&](std::size_t target) {
        const pugi::xml_node port = description.node(target).element;
        isFilled = isFilled || port.child("ChunkID") || port.child("EventID")
            || port.child("pChunkID") || port.child("pEventID");
    });
    return isFilled;
}

} // namespace zqcameralib
