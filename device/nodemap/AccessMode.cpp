#include "nodemap/AccessMode.h"

#include "description/ReferenceWalk.h"

#include "featurebrowser/FeatureItem.h"

#include <algorithm>

namespace zqcameralib {

using namespace featurebrowser;

namespace {

struct Access {
    bool read = true;
    bool write = true;
};

Access operator&(const Access& a, const Access& b)
{
    return { a.read && b.read, a.write && b.write };
}

/// Nodes that a value passes through; a longer chain is not evaluated.
constexpr int maxChain = 450;
/// Nodes looked at that a value needs.
constexpr std::size_t maxWalked = 300;

/// Where a value comes from: one of them at a time, where there is an index.
constexpr ReferenceTags passesValueOn { ReferenceTag::Value, ReferenceTag::ValueIndexed,
    ReferenceTag::ValueDefault };

Access parse(std::string_view text, Access whenAbsent)
{
    if (text.empty()) {
        return whenAbsent;
    }
    return { text != "WO" && text != "NA" && text != "NI",
        text != "RO" && text != "NA" && text != "NI" };
}

Access ownAccess(const DescriptionNode& node)
{
    Access access;
    if (isRegister(node.kind)) {
        std::string_view mode = childText(node.element, "AccessMode");
        if (mode.empty()) {
            mode = childText(node.registerElement(), "AccessMode");
        }
        access = parse(mode, { true, false });
    } else if (isFormula(node.kind)) {
        access = { true, false };
    }
    return access & parse(childText(node.element, "ImposedAccessMode"), {});
}

Access operator|(const Access& a, const Access& b)
{
    return { a.read || b.read, a.write || b.write };
}

/// What is read on the way to a value, or to the place of it, has to be readable.
constexpr ReferenceTags isReadOnTheWay { ReferenceTag::Variable, ReferenceTag::Address,
    ReferenceTag::Index, ReferenceTag::Offset, ReferenceTag::Length };

bool canReadAll(const Description& description, const DescriptionNode& node)
{
    bool canRead = true;
    node.forEachTarget(isReadOnTheWay, [&](std::size_t target) {
        const auto behind = reachable(description, target, isAlwaysRead, maxWalked);
        canRead = canRead && std::all_of(behind.begin(), behind.end(), [&](std::size_t read) {
            return ownAccess(description.node(read)).read;
        });
    });
    return canRead;
}

/// Of the node and of those that its value passes through.
Access accessOf(const Description& description, std::size_t index, int depth = 0)
{
    const DescriptionNode& node = description.node(index);
    Access access = ownAccess(node);
    if (depth > maxChain || !canReadAll(description, node)) {
        return { false, false };
    }
    Access sources { false, false };
    bool hasSource = false;
    node.forEachTarget(passesValueOn, [&](std::size_t target) {
        hasSource = true;
        sources = sources | accessOf(description, target, depth + 1);
    });
    return hasSource ? access & sources : access;
}

} // namespace

std::uint16_t staticAccess(const Description& description, std::size_t node)
{
    const Access access = accessOf(description, node);
    if (access.read && access.write) {
        return ACCESS_READ_WRITE;
    }
    if (access.read) {
        return ACCESS_READ_ONLY;
    }
    return access.write ? ACCESS_WRITE_ONLY : ACCESS_NOT_AVAILABLE;
}

} // namespace zqcameralib
