// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "model/FeatureModel.h"
#include "row/EditValue.h"

namespace featurebrowser {

/// Where a selector stands, or stood.
struct Stand {
    std::string selector;
    QString text; ///< its value as shown

    bool operator==(const Stand& other) const
    {
        return selector == other.selector && text == other.text;
    }
};
using Stands = std::vector<Stand>;

/// Where all selectors stand that decide what the row's value is: those that select it, and those
/// that select these.
Stands standsOf(const FeatureModel& model, const FeatureRow& row);

/// Those of them that stand elsewhere now, or are gone.
Stands movedSince(const FeatureModel& model, const Stands& stands);

/// "GainSelector = Red, ChannelSelector = 3".
QString standsText(const Stands& stands);

/// What has to be entered so that the row holds this value again; nothing when the row is of
/// another kind now or does not have the entry any more.
std::optional<EditValue> enteredAgain(const FeatureRow& row, const RowValue& held);

} // namespace featurebrowser
