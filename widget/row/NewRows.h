// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/FeatureRow.h"

#include <utility>

namespace featurebrowser {

/// A row with everything that all kinds of features have; its value comes from the caller.
inline std::unique_ptr<FeatureRow> newRow(RowKind kind, std::string name, TYPE_LEVEL level,
    bool readOnly, bool hasValue, TYPE_SELECTOR selector, std::string selectors)
{
    auto row = std::make_unique<FeatureRow>();
    row->kind = kind;
    row->name = std::move(name);
    row->level = static_cast<std::uint8_t>(level);
    row->readOnly = readOnly;
    row->hasValue = hasValue;
    row->selector = static_cast<std::uint8_t>(selector);
    if (!selectors.empty()) {
        row->ownExtras().selectors = std::move(selectors);
    }
    return row;
}

} // namespace featurebrowser
