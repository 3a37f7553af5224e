#pragma once

#include "model/FeatureModel.h"

namespace featurebrowser {

/// For a feature that others select, what it is selected by at the moment, for example
/// "GainSelector = Red"; for a selector, how many features it selects; empty for all other rows.
QString selectorContext(const FeatureModel& model, const FeatureRow& row);

} // namespace featurebrowser
