#pragma once

#include <string_view>

namespace zqcameralib {

/// What becomes of an element of a description in the node map's XML.
struct ElementRule {
    enum class Use {
        None, ///< evaluating does not need it
        Text,
        Formula,
        Reference,
        Length, ///< a reference that tells a length
        Element, ///< has elements of its own
    };
    Use use = Use::None;
    bool isOnce = true; ///< of several in one node, only one has a meaning
};

ElementRule elementRule(std::string_view name);

} // namespace zqcameralib
