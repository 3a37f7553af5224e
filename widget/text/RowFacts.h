// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/FeatureRow.h"

#include <QString>

#include <vector>

namespace featurebrowser {

/// Why the row cannot be changed now, or shows no value: one sentence, the same wherever it is
/// read. Empty when there is no such reason.
QString rowReason(const FeatureRow& row);

/// One line of what is known of a row.
struct RowFact {
    QString label; ///< "Range"
    QString text; ///< "16 … 4096 px"
    bool isBrief = true; ///< fits into a tool tip, and says there what nothing else does
};

/// The reason, range, step, unit, access, length and entries, as far as the row has them.
std::vector<RowFact> rowFacts(const FeatureRow& row, const QString& reason);

/// Everything that the row itself may not have the room to show: its full name and value, the brief
/// facts and the message, one to a line. Plain text.
QString rowExplanation(const FeatureRow& row, const std::vector<RowFact>& facts);

} // namespace featurebrowser
