// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "nodemap/AccessMode.h"

#include "description/ReferenceWalk.h"

#include "featurebrowser/FeatureItem.h"

#include <algorithm>
#include <unordered_map>

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

/// What nodes grant together with those that their values pass through; each node once.
class AccessWalk {
public:
    explicit AccessWalk(const Description& description)
        : m_description(description)
    {
    }

    Access of(std::size_t index)
    {
        const auto known = m_known.find(index);
        if (known != m_known.end()) {
            return known->second;
        }
        m_known[index] = {}; // it may lead back to itself
        const Access access = find(index);
        m_known[index] = access;
        return access;
    }

private:
    Access find(std::size_t index)
    {
        const DescriptionNode& node = m_description.node(index);
        const Access own = ownAccess(node);
        if (node.isBroken()) {
            return own;
        }
        if (!canReadAll(m_description, node)) {
            return { false, false };
        }
        Access sources { false, false };
        bool hasSource = false;
        node.forEachTarget(passesValueOn, [&](std::size_t target) {
            hasSource = true;
            sources = sources | of(target);
        });
        return hasSource ? own & sources : own;
    }

    const Description& m_description;
    std::unordered_map<std::size_t, Access> m_known;
};

} // namespace

std::uint16_t staticAccess(const Description& description, std::size_t node)
{
    const Access access = AccessWalk(description).of(node);
    if (access.read && access.write) {
        return ACCESS_READ_WRITE;
    }
    if (access.read) {
        return ACCESS_READ_ONLY;
    }
    return access.write ? ACCESS_WRITE_ONLY : ACCESS_NOT_AVAILABLE;
}

} // namespace zqcameralib
