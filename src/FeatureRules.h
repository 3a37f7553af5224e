// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/FeatureItem.h"

namespace featurebrowser {

/// How an integer record is shown.
enum class IntegerForm { number, macAddress, ipv4Address };

/// Whether a record is shown read-only; the same when it is added and when it is updated.
inline bool isReadOnly(const FeatureItem& item)
{
    if (item.type == FEATURE_READ_ONLY_STRING || item.lockedFlag == 1) {
        return true;
    }
    if (item.accessMode == ACCESS_UNKNOWN || item.accessMode == ACCESS_READ_ONLY) {
        return true;
    }
    return item.type == FEATURE_INTEGER && item.intWritable == 0;
}

/// The display flag handed to the widget: exactly 1 sets it, other non-zero values do not.
inline bool isDisplayFlagSet(const FeatureItem& item)
{
    return item.displayFlag == 1;
}

/// The form of an integer record. A hint for "some address" leaves the kind to the name, in which
/// "MAC" goes before "Gev": GevMACAddress is a MAC address.
inline IntegerForm integerForm(const FeatureItem& item)
{
    if (item.representation == REPRESENTATION_IPV4) {
        return IntegerForm::ipv4Address;
    }
    if (item.representation != REPRESENTATION_ADDRESS) {
        return IntegerForm::number;
    }
    if (item.name.find("MAC") != std::string::npos) {
        return IntegerForm::macAddress;
    }
    if (item.name.find("Gev") != std::string::npos) {
        return IntegerForm::ipv4Address;
    }
    return IntegerForm::number;
}

} // namespace featurebrowser
