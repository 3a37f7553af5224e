#pragma once

#include "FeatureRow.h"

namespace featurebrowser {

/// A place in the row's list of entries.
struct EntryIndex {
    int index;
};

/// What a user entered.
using EditValue = std::variant<qint64, double, EntryIndex, std::string>;

/// Whether the row holds, and shows, this value already.
bool holds(const FeatureRow& row, const EditValue& value);

} // namespace featurebrowser
