#include "features/RegisterRange.h"

#include "base/NumberText.h"

#include <algorithm>
#include <cstdlib>

namespace zqcameralib {

namespace {

std::int64_t childNumber(const DescriptionNode& node, const char* tag)
{
    return leadingInteger(childText(node.element, tag));
}

/// Bits of the register that holds an integer; 0 when it is none or its width is not fixed.
int registerBits(const DescriptionNode& node)
{
    if (!isIntegerRegister(node.kind)) {
        return 0;
    }
    if (!isBitField(node.kind)) {
        const std::int64_t length = childNumber(node, "Length");
        return length >= 1 && length <= 8 ? static_cast<int>(8 * length) : 0;
    }
    if (node.element.child("Bit")) {
        return 1;
    }
    const std::int64_t width = std::abs(childNumber(node, "MSB") - childNumber(node, "LSB")) + 1;
    return width >= 1 && width <= 64 ? static_cast<int>(width) : 0;
}

} // namespace

RegisterRange registerRange(const DescriptionNode& node)
{
    const int bits = registerBits(node);
    if (bits == 0 || bits == 64) {
        return {};
    }
    const bool isSigned = childText(node.element, "Sign") == "Signed";
    const std::int64_t span = (std::int64_t(1) << (isSigned ? bits - 1 : bits)) - 1;
    return { isSigned ? -span - 1 : 0, span };
}

bool isInValueSet(const DescriptionNode& node, std::int64_t value)
{
    const std::string_view list = childText(node.element, "ValidValueSet");
    for (std::size_t at = 0; at <= list.size();) {
        const std::size_t end = std::min(list.find(';', at), list.size());
        if (leadingInteger(list.substr(at, end - at)) == value) {
            return true;
        }
        at = end + 1;
    }
    return list.empty();
}

} // namespace zqcameralib
