// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/FeatureRow.h"

#include <optional>

namespace featurebrowser {

/// A place in the row's list of entries.
struct EntryIndex {
    int index;
};

/// What a user entered.
using EditValue = std::variant<qint64, double, EntryIndex, std::string>;

/// `held` with the entered value in it; nothing when that is none for this kind.
std::optional<RowValue> withEntered(RowValue held, const EditValue& entered);

/// Whether the value is one for this kind of row; an entry has to be one of the row's.
bool fits(const FeatureRow& row, const EditValue& value);

/// Whether the row holds, and shows, this value already.
bool holds(const FeatureRow& row, const EditValue& value);

} // namespace featurebrowser
