// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "model/FeatureModel.h"
#include "text/RowFacts.h"

namespace featurebrowser {

/// As rowFacts, with what selects the row, and where that stands ("GainSelector = Red"), and what
/// the row selects.
std::vector<RowFact> allFacts(const FeatureModel& model, const FeatureRow& row);

} // namespace featurebrowser
