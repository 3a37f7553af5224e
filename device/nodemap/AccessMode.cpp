#include "nodemap/AccessMode.h"

#include "featurebrowser/FeatureItem.h"

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

/// Nodes that a value passes through.
constexpr int maxChain = 100;

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

/// Of the node and of those that its value passes through.
Access accessOf(const Description& description, std::size_t index)
{
    Access access;
    for (int link = 0; link <= maxChain && index != Description::absent; ++link) {
        const DescriptionNode& node = description.node(index);
        access = access & ownAccess(node);
        index = node.target(ReferenceTag::Value);
    }
    return access;
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
