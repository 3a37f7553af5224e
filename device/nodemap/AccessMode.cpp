#include "nodemap/AccessMode.h"

#include "featurebrowser/FeatureItem.h"

namespace zqcameralib {

using namespace featurebrowser;

namespace {

struct Access {
    bool read = true;
    bool write = true;
};

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
    if (node.isRegister()) {
        std::string_view mode = childText(node.element, "AccessMode");
        if (mode.empty() && node.kind == "StructEntry") {
            mode = childText(node.element.parent(), "AccessMode");
        }
        access = parse(mode, { true, false });
    } else if (node.kind == "SwissKnife" || node.kind == "IntSwissKnife") {
        access = { true, false };
    }
    const Access imposed = parse(childText(node.element, "ImposedAccessMode"), {});
    return { access.read && imposed.read, access.write && imposed.write };
}

Access accessOf(const Description& description, std::size_t index, int left)
{
    const DescriptionNode& node = description.node(index);
    Access access = ownAccess(node);
    for (const Reference& reference : node.references) {
        if (reference.tag == "pValue" && reference.target != Description::absent && left > 0) {
            const Access behind = accessOf(description, reference.target, left - 1);
            access = { access.read && behind.read, access.write && behind.write };
            break;
        }
    }
    return access;
}

} // namespace

std::uint16_t staticAccess(const Description& description, std::size_t node)
{
    const Access access = accessOf(description, node, maxChain);
    if (access.read && access.write) {
        return ACCESS_READ_WRITE;
    }
    if (access.read) {
        return ACCESS_READ_ONLY;
    }
    return access.write ? ACCESS_WRITE_ONLY : ACCESS_NOT_AVAILABLE;
}

} // namespace zqcameralib
