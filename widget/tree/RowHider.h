#pragma once

class QTreeView;

namespace featurebrowser {

class FeatureModel;
class RowFilter;

/// How many features a filter has found.
struct FilterHits {
    int shown = 0;
    int aboveLevel = 0; ///< found by the text, hidden by the level
};

/// Shows and hides the view's rows as the filter wants it; touches only those that change.
FilterHits showHits(QTreeView& view, FeatureModel& model, const RowFilter& filter);

} // namespace featurebrowser
