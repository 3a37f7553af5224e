// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "description/Description.h"
#include "description/FeatureListing.h"
#include "features/Conditions.h"
#include "features/EnumEntries.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zqcameralib {

/// What never changes about a feature (or category), looked up once when the camera is opened.
/// Points into the description, which has to outlive it.
struct Feature {
    const DescriptionNode* node = nullptr;
    std::size_t index = 0; ///< of the node in the description
    std::string name;
    std::uint8_t type = 0; ///< featurebrowser::FEATURE_TYPE
    std::uint8_t level = 1;
    std::uint8_t depth = 0;
    std::uint16_t access = 0; ///< featurebrowser::ACCESS_MODE as the description grants it at best
    std::uint16_t representation = 0; ///< featurebrowser::REPRESENTATION
    bool isSelector = false;
    std::string selectorParent;
    std::string description; ///< without what is true at the moment only
    std::string caption; ///< display name, else name
    std::vector<EnumEntry> entries; ///< in the order of the description
    /// Commands: the register that tells that they are done, or Description::absent.
    std::size_t commandRegister = Description::absent;
    /// Of the node, of those that its value comes from, and of the categories around it.
    AccessConditions conditions;
    /// Whether the node can be evaluated at all.
    bool isUsable() const;
    /// Whether the description lets its value be read.
    bool isReadable() const;
    bool isConditional() const
    {
        return !conditions.implementedIf.empty() || !conditions.availableIf.empty();
    }
    /// A formula stands between the value and its register.
    bool isConverted = false;
    /// Where the value comes from depends on an index.
    bool isIndexed = false;
    /// Nodes that tell limits or increments of the value.
    std::vector<std::size_t> limits;
    /// Texts: the register that holds them, or Description::absent.
    std::size_t textRegister = Description::absent;
    /// The value comes with images or events (chunk and event ports): no register can be read.
    bool isChunkOrEventData = false;
    /// Writing it ends in a register of the camera, not in a value kept in the node map.
    bool endsInRegister = false;
};

/// Everything that is listed with its facts, in the same order.
std::vector<Feature> collectFeatures(
    const Description& description, const std::vector<ListedNode>& listed);

} // namespace zqcameralib
