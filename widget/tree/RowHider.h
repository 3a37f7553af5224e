// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <vector>

QT_BEGIN_NAMESPACE
class QTreeView;
QT_END_NAMESPACE

namespace featurebrowser {

class FeatureModel;
class RowFilter;
struct FeatureRow;

/// What the text of a filter has found; nothing when there is none.
struct FilterHits {
    std::vector<const FeatureRow*> shown; ///< features, in the order of the tree
    int aboveLevel = 0; ///< hidden by the level
};

/// Shows and hides the view's rows as the filter wants it; touches only those that change.
FilterHits showHits(QTreeView& view, FeatureModel& model, const RowFilter& filter);

} // namespace featurebrowser
