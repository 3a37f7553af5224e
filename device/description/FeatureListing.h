// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

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
    /// featurebrowser::TYPE_LEVEL of a feature; a category has that of what is in it.
    std::uint8_t level;
};

/// The features below the root category in the order of the categories, each once, at the first
/// place that names it. The root itself is not listed, unless it holds features directly: then it
/// stands first, as a top-level category with those features. References to nodes that do not
/// exist, and of categories to themselves, are left out, as are Invisible features.
std::vector<ListedNode> listFeatures(const Description& description);

/// The features below the root category that are not listed, for programs: nobody is to see them.
std::vector<ListedNode> unlistedFeatures(
    const Description& description, const std::vector<ListedNode>& listed);

/// TYPE_LEVEL of a node or an enumeration's entry, 0 for an Invisible one.
std::uint8_t levelOf(const pugi::xml_node& element);

} // namespace zqcameralib
