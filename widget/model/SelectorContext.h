#pragma once

#include "model/FeatureModel.h"

namespace featurebrowser {

/// Names in `row`'s selector text, blanks around them removed.
std::vector<std::string> selectorNames(const FeatureRow& row);

/// For a feature that others select, what it is selected by at the moment, for example
/// "GainSelector = Red"; for a selector, how many features it selects; empty for all other rows.
QString selectorContext(const FeatureModel& model, const FeatureRow& row);

} // namespace featurebrowser
