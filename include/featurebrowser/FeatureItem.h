// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <list>
#include <string>

namespace featurebrowser {

/// Kind of a record (FeatureItem::type).
enum FEATURE_TYPE : std::uint8_t {
    FEATURE_CATEGORY = 0,
    FEATURE_RESERVED = 1, ///< never shown
    FEATURE_INTEGER = 2,
    FEATURE_FLOAT = 3,
    FEATURE_STRING = 4,
    FEATURE_ENUMERATION = 5,
    FEATURE_COMMAND = 6,
    FEATURE_BOOLEAN = 7,
    FEATURE_READ_ONLY_STRING = 8
};

/// Access codes: two ASCII letters, the first in the high byte (FeatureItem::accessMode).
enum ACCESS_MODE : std::uint16_t {
    ACCESS_UNKNOWN = 0, ///< no access information; shown read-only
    ACCESS_READ_ONLY = 0x524F, ///< "RO"
    ACCESS_READ_WRITE = 0x5257, ///< "RW"
    ACCESS_WRITE_ONLY = 0x574F, ///< "WO"
    ACCESS_NOT_AVAILABLE = 0x4E41 ///< "NA"
};

/// Presentation hints for integers (FeatureItem::representation). Every other value is a plain
/// number.
enum REPRESENTATION : std::uint16_t {
    REPRESENTATION_NUMBER = 0,
    REPRESENTATION_ADDRESS = 4, ///< MAC or IPv4 when the feature's name says so, else a number
    REPRESENTATION_IPV4 = 6
};

/// One camera feature, or one category of the feature tree.
///
/// Records belong to the ZQCameraRepository that hands them out and are shared by
/// std::shared_ptr; ZQCameraRepository::ReadFeature changes them in place. Readers use them on the
/// thread that drives the repository.
struct FeatureItem {
    /// Unique name, the key in the repository, the device and the widget (GenICam node name).
    /// Bytes as the camera gives them, not necessarily valid UTF-8.
    std::string name;
    /// Names of the features that select this one, comma separated; empty when none does.
    std::string selectorParent;
    /// Free text for the user, with the unit where the camera names one.
    std::string description;
    /// Current value as text, independent of any locale. Integer: decimal. Float: decimal number
    /// that reads back to the same double. Enumeration, boolean: decimal index into enumEntries.
    /// String: the text. Integer shown as an address: decimal. Command: caption of its button.
    std::string valueText;
    std::uint8_t displayFlag = 0; ///< 1 = valueText holds a value that can be shown
    std::uint16_t accessMode = ACCESS_UNKNOWN; ///< see ACCESS_MODE
    std::uint8_t lockedFlag = 0; ///< 1 = read-only at this moment, whatever accessMode says
    std::uint8_t type = FEATURE_RESERVED; ///< see FEATURE_TYPE
    std::uint8_t level = 1; ///< a TYPE_LEVEL value
    /// Place in the tree: 0 for a top-level category; a feature's depth is that of its category
    /// plus one.
    std::uint8_t depth = 0;
    std::uint16_t representation = REPRESENTATION_NUMBER; ///< see REPRESENTATION; integers only
    bool isSelector = false; ///< the feature chooses which instance other features address
    std::int64_t intMin = 0;
    std::int64_t intMax = 0;
    std::uint32_t intInc = 0; ///< grid is intMin + k * intInc; 0 = no grid known
    double floatMin = 0.0;
    double floatMax = 0.0;
    double floatInc = 0.0; ///< 0 = no grid
    std::uint32_t maxLength = 0; ///< longest string value in bytes; 0 = not known
    std::int32_t intWritable = 0; ///< integers only: 0 makes an otherwise writable one read-only
    std::list<std::string> enumEntries; ///< enumeration, boolean: entry names in display order
};

} // namespace featurebrowser
