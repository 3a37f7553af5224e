// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

/// Codes that the camera side, the feature browser and the widget exchange. The numeric values are
/// part of the binary contract; none of them may change.
namespace featurebrowser {

/// Who a feature is meant for (SFNC visibility). A browser at one level shows that level and all
/// levels below it.
enum TYPE_LEVEL : int {
    LEVEL_BEGINNER = 1, ///< printed as "Beginner"
    LEVEL_EXPERT = 2, ///< printed as "Expert"
    LEVEL_GURU = 3 ///< printed as "Guru"
};

/// Scale of the slider beside a floating-point editor.
enum TYPE_SLIDER : int { SLIDER_LINEAR = 0, SLIDER_LOGARITHMIC = 1 };

/// What the text of a string entry stands for.
enum TYPE_ADDRESS : int {
    ADDRESS_NONE = 0, ///< plain text
    ADDRESS_IPV4 = 1, ///< dotted IPv4 address; edits are reported by FeatureIPModified
    /// MAC address as returned by convertToMACAddress; edits are reported by FeatureIntModified,
    /// with the 48 bits as the value.
    ADDRESS_MAC = 2
};

/// Role of a feature in a selector relation (SFNC: GainSelector selects Gain).
enum TYPE_SELECTOR : int {
    SELECTOR_NONE = 0,
    SELECTOR_SELECTOR = 1, ///< chooses which instance other features address
    SELECTOR_SELECTED = 2, ///< addressed through at least one selector
    SELECTOR_BOTH = 3
};

/// Kind of value that the text form of CameraFeatureBrowser::modifyFeature carries.
enum CAM_TYPE_VALUE : int {
    CAM_TYPE_NONE = 0,
    CAM_TYPE_STRING = 3,
    CAM_TYPE_FLOAT = 4,
    CAM_TYPE_INTEGER = 5,
    CAM_TYPE_ENUMERATION = 6,
    CAM_TYPE_COMMAND = 7,
    CAM_TYPE_BOOLEAN = 8,
    CAM_TYPE_READ_ONLY_STRING = 9
};

/// What a user can do with a feature at this moment.
enum FEATURE_STATE : int {
    FEATURE_AVAILABLE = 0,
    FEATURE_LOCKED = 1, ///< may not be written now, for example while the camera acquires
    FEATURE_NOT_AVAILABLE = 2, ///< exists, but not in the camera's present configuration
    FEATURE_READ_FAILED = 3 ///< could not be read from the camera when it was last tried
};

/// Status codes of the device's own checks, as the write operations of ICameraDevice return them.
/// 0 is success; every value not named here is a device error with a text of its own
/// (ICameraDevice::GetErrorText).
enum DEVICE_STATUS : int {
    STATUS_OK = 0,
    ERROR_VALUE_OUT_OF_RANGE = static_cast<int>(0x80320000U), ///< integer outside intMin..intMax
    ERROR_VALUE_NOT_ON_INCREMENT = static_cast<int>(0x80330000U), ///< not intMin + k * intInc
    ERROR_FLOAT_OUT_OF_RANGE = static_cast<int>(0x80340000U) ///< outside floatMin..floatMax
};

/// Size in bytes of each of the two text buffers of ICameraDevice::GetErrorText.
constexpr std::size_t errorTextSize = 256;

} // namespace featurebrowser
