#include "description/DependencyGraph.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace zqcameralib {

namespace {

/// A register at a fixed place.
struct Place {
    std::uint64_t first;
    std::uint64_t last;
    std::uint64_t bits; ///< those of the register that belong to the node
    std::size_t node;
};

bool isOneOf(std::string_view tag, std::initializer_list<std::string_view> tags)
{
    return std::find(tags.begin(), tags.end(), tag) != tags.end();
}

/// References that say nothing about values.
bool isNoDependency(std::string_view tag)
{
    return isOneOf(tag, { "pFeature", "pPort", "pAlias", "pCastAlias", "pError", "pTerminal" });
}

bool passesWriteOn(std::string_view tag)
{
    return isOneOf(tag, { "pValue", "pValueCopy", "pValueIndexed", "pValueDefault" });
}

std::uint64_t number(std::string_view text)
{
    return std::strtoull(std::string(text).c_str(), nullptr, 0);
}

std::uint64_t ownBits(const pugi::xml_node& element)
{
    const std::string_view bit = childText(element, "Bit");
    const std::uint64_t lsb = bit.empty() ? number(childText(element, "LSB")) : number(bit);
    const std::uint64_t msb = bit.empty() ? number(childText(element, "MSB")) : number(bit);
    const std::uint64_t low = std::min({ lsb, msb, std::uint64_t(63) });
    const std::uint64_t width = std::min(std::max(lsb, msb) - std::min(lsb, msb) + 1, 64 - low);
    return width == 64 ? UINT64_MAX : ((std::uint64_t(1) << width) - 1) << low;
}

/// Whether the node is a register whose place the description fixes; fills `place`.
bool fixedPlace(const DescriptionNode& node, Place& place)
{
    const bool isMasked = node.kind == "MaskedIntReg" || node.kind == "StructEntry";
    if (!node.isRegister()) {
        return false;
    }
    const pugi::xml_node where = node.kind == "StructEntry" ? node.element.parent() : node.element;
    if (!where.child("Address") || where.child("pAddress") || where.child("pIndex")
        || where.child("IntSwissKnife")) {
        return false;
    }
    place.first = 0;
    for (const pugi::xml_node& address : where.children("Address")) {
        place.first += number(elementText(address)); // several add up
    }
    place.last = place.first + std::max<std::uint64_t>(number(childText(where, "Length")), 1) - 1;
    place.bits = isMasked ? ownBits(node.element) : UINT64_MAX;
    return place.last >= place.first;
}

bool overlap(const Place& a, const Place& b)
{
    if (a.first > b.last || b.first > a.last) {
        return false;
    }
    // Bits are counted within a register: they only compare when both are the same one.
    const bool sameRegister = a.first == b.first && a.last == b.last;
    return !sameRegister || (a.bits & b.bits) != 0;
}

/// A register overlaps with few others; a description with more is not believed.
constexpr std::size_t maxOverlaps = 256;

} // namespace

bool fixedRegister(const DescriptionNode& node, std::uint64_t& address, std::size_t& size)
{
    Place place {};
    if (!fixedPlace(node, place)) {
        return false;
    }
    address = place.first;
    size = place.last - place.first + 1;
    return true;
}

DependencyGraph::DependencyGraph(const Description& description)
    : m_description(description)
    , m_dependents(description.nodes().size())
    , m_written(description.nodes().size())
    , m_declared(description.nodes().size())
    , m_readsVariableAddress(description.nodes().size(), false)
{
    for (std::size_t node = 0; node < description.nodes().size(); ++node) {
        addReferences(node);
    }
    addOverlaps();
    findVariableAddresses();
}

void DependencyGraph::addReferences(std::size_t node)
{
    for (const Reference& reference : m_description.node(node).references) {
        if (reference.target == Description::absent || isNoDependency(reference.tag)) {
            continue;
        }
        if (reference.tag == "pSelected") {
            m_declared[node].push_back(reference.target);
            continue;
        }
        if (reference.tag == "pInvalidator") {
            m_declared[reference.target].push_back(node);
            continue;
        }
        m_dependents[reference.target].push_back(node);
        if (passesWriteOn(reference.tag)) {
            m_written[node].push_back(reference.target);
        }
    }
}

void DependencyGraph::addOverlaps()
{
    std::vector<Place> places;
    Place place {};
    for (std::size_t node = 0; node < m_description.nodes().size(); ++node) {
        if (fixedPlace(m_description.node(node), place)) {
            place.node = node;
            places.push_back(place);
        }
    }
    std::sort(places.begin(), places.end(),
        [](const Place& a, const Place& b) { return a.first < b.first; });
    for (std::size_t i = 0; i < places.size(); ++i) {
        const std::size_t end = std::min(places.size(), i + maxOverlaps);
        for (std::size_t j = i + 1; j < end && places[j].first <= places[i].last; ++j) {
            if (overlap(places[i], places[j])) {
                m_dependents[places[i].node].push_back(places[j].node);
                m_dependents[places[j].node].push_back(places[i].node);
            }
        }
    }
}

void DependencyGraph::findVariableAddresses()
{
    std::vector<std::size_t> pending;
    const auto mark = [&](std::size_t node) {
        if (!m_readsVariableAddress[node]) {
            m_readsVariableAddress[node] = true;
            pending.push_back(node);
        }
    };
    Place place {};
    for (std::size_t node = 0; node < m_dependents.size(); ++node) {
        const DescriptionNode& candidate = m_description.node(node);
        if (candidate.isRegister() && !fixedPlace(candidate, place)) {
            mark(node);
        }
    }
    while (!pending.empty()) {
        const std::size_t changed = pending.back();
        pending.pop_back();
        for (const std::size_t reader : m_dependents[changed]) {
            mark(reader);
        }
    }
}

std::vector<bool> DependencyGraph::affectedBy(std::size_t node) const
{
    return affectedBy(std::vector<std::size_t> { node });
}

std::vector<bool> DependencyGraph::affectedBy(const std::vector<std::size_t>& nodes) const
{
    std::vector<bool> affected(m_dependents.size(), false);
    std::vector<std::size_t> pending;
    const auto mark = [&](std::size_t node) {
        if (!affected[node]) {
            affected[node] = true;
            pending.push_back(node);
        }
    };
    // A node that changes in the camera changes with all that its value comes from.
    std::vector<bool> isThrough(m_dependents.size(), false);
    const auto markThrough = [&](std::size_t node) {
        std::vector<std::size_t> through { node };
        while (!through.empty()) {
            const std::size_t changed = through.back();
            through.pop_back();
            mark(changed);
            if (!isThrough[changed]) {
                isThrough[changed] = true;
                const std::vector<std::size_t>& behind = m_written[changed];
                through.insert(through.end(), behind.begin(), behind.end());
            }
        }
    };
    for (const std::size_t node : nodes) {
        markThrough(node);
    }
    while (!pending.empty()) {
        const std::size_t changed = pending.back();
        pending.pop_back();
        for (const std::size_t next : m_dependents[changed]) {
            mark(next);
        }
        for (const std::size_t next : m_declared[changed]) {
            markThrough(next);
        }
    }
    return affected;
}

} // namespace zqcameralib
