#pragma once

#include "description/Description.h"

#include <cstdint>
#include <vector>

namespace zqcameralib {

/// A category or feature in the order in which they are listed.
struct ListedNode {
    std::size_t node; ///< index in the description
    std::uint8_t depth; ///< 0 for a top-level category
    bool isCategory;
};

/// The features below the root category in tree order, each once, at the first place that names it.
/// The root itself is no row, unless it holds features directly: then it stands first, as a
/// top-level category with those features. References to nodes that do not exist, and of
/// categories to themselves, are left out, as are Invisible features.
std::vector<ListedNode> listFeatures(const Description& description);

/// Whether a node of this kind can be a feature.
bool isFeatureKind(std::string_view kind);

/// TYPE_LEVEL of a node, 0 for an Invisible one.
std::uint8_t featureLevel(const DescriptionNode& node);

} // namespace zqcameralib
