#pragma once

#include "row/FeatureRow.h"

#include <QVariant>

namespace featurebrowser {

/// What a row answers for a role of FeatureModel or of Qt.
QVariant rowData(const FeatureRow& row, int column, int role);

/// Why the row is as it looks, for its tool tip and for screen readers: full name, read-only, state
/// and message, one to a line. Plain text.
QString rowExplanation(const FeatureRow& row);

} // namespace featurebrowser
