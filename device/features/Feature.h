#pragma once

#include "description/Description.h"
#include "description/FeatureListing.h"
#include "features/Conditions.h"
#include "features/EnumEntries.h"

#include <arv.h>

#include <cstdint>
#include <string>
#include <vector>

namespace zqcameralib {

/// What never changes about a feature (or category), looked up once when the camera is opened.
/// Points into the description and the node map, which have to outlive it.
struct Feature {
    const DescriptionNode* node = nullptr;
    ArvGcFeatureNode* gc = nullptr; ///< null for a category and for a broken node
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
    /// Commands: what tells that they are done, by not holding commandValue any more; may be null.
    ArvGcFeatureNode* commandRegister = nullptr;
    std::int64_t commandValue = 0;
    /// The node itself and those that its value comes from, as far as they have such a condition.
    std::vector<Condition> implementedIf;
    std::vector<Condition> availableIf;
    std::vector<Condition> lockedIf;
    /// Whether the description lets its value be read.
    bool isReadable() const;
    bool isConditional() const { return !implementedIf.empty() || !availableIf.empty(); }
    /// What fits the register that holds the value.
    std::int64_t registerMin = INT64_MIN;
    std::int64_t registerMax = INT64_MAX;
    bool hasFloatIncrement = false;
    /// Texts: the register that holds them, null when none does.
    ArvGcRegister* textRegister = nullptr;
    /// The value comes with images or events (chunk and event ports): no register can be read.
    bool isChunkOrEventData = false;
    /// The value comes from an integer formula, which may be undefined (FormulaGuard.h).
    bool isIntegerFormula = false;
    /// Writing it ends in a register of the camera, not in a value kept in the node map.
    bool endsInRegister = false;
};

/// Everything that is listed with its facts, in the same order.
std::vector<Feature> collectFeatures(
    const Description& description, const std::vector<ListedNode>& listed, ArvGc* nodeMap);

} // namespace zqcameralib
