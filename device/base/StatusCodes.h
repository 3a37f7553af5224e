// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "words/Words.h"

#include <string>

namespace zqcameralib {

/// Status codes of the camera side beside those of featurebrowser::DEVICE_STATUS. None is 0, also
/// not those of the libraries below, whose own codes start at 0 and are offset here.
constexpr int statusBase(unsigned code)
{
    return static_cast<int>(code);
}

constexpr int unknownFeature = statusBase(0x80310001U); ///< no feature of that name
constexpr int wrongKind = statusBase(0x80310002U); ///< the operation does not fit the feature
constexpr int notAvailable = statusBase(0x80310003U); ///< not in the present configuration
constexpr int notReadable = statusBase(0x80310004U); ///< write-only or broken in the description
constexpr int notWritable = statusBase(0x80310005U); ///< read-only
constexpr int featureLocked = statusBase(0x80310006U); ///< writable, but not at the moment
constexpr int unknownEntry = statusBase(0x80310007U); ///< no such entry, or not available now
constexpr int textTooLong = statusBase(0x80310008U); ///< longer than the feature holds
constexpr int invalidArgument = statusBase(0x80310009U); ///< a null pointer or not a number
constexpr int commandTimeout = statusBase(0x8031000AU); ///< did not report done in time
constexpr int notLoaded = statusBase(0x8031000BU); ///< the camera cannot be read
constexpr int notInValueSet = statusBase(0x8031000CU); ///< not one of the values of a list
constexpr int noImage = statusBase(0x8031000DU); ///< no image size that could be acquired
constexpr int notConvertible = statusBase(0x8031000EU); ///< a formula on its way cannot take it
constexpr int notEvaluable = statusBase(0x8031000FU); ///< the description gives no value now
constexpr int refused = statusBase(0x80310010U); ///< the camera reports an error after a write
constexpr int injectedFault = statusBase(0x80350001U); ///< only in tests
constexpr int cameraLost = statusBase(0x80350002U); ///< the camera does not answer any more
constexpr int accessDenied = statusBase(0x80350003U); ///< another application controls the camera
constexpr int cameraSlow = statusBase(0x80350004U); ///< no answer in the time of one operation
constexpr int stillWorking = statusBase(0x80350005U); ///< what was begun goes on; to be asked again
constexpr int notSent = statusBase(0x80350007U); ///< no time was left for a write
constexpr int notReadYet = statusBase(0x80350006U); ///< internal: to be read beside the caller

/// Offsets of the error codes of the library below: device errors and node map errors.
constexpr int deviceErrorBase = statusBase(0x80360000U);
constexpr int nodeMapErrorBase = statusBase(0x80370000U);
constexpr int otherErrorBase = statusBase(0x80380000U);

/// Short name of a code, such as "FEATURE_LOCKED".
std::string statusName(int code);
/// A general sentence for a code, for when nothing more precise is known.
Words statusText(int code);

} // namespace zqcameralib
