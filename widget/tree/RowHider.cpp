// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "tree/RowHider.h"

#include "model/FeatureModel.h"
#include "model/RowFilter.h"

#include <QTreeView>

#include <utility>

namespace featurebrowser {

namespace {

struct Hider {
    QTreeView& view;
    const FeatureModel& model;
    const RowFilter& filter;
    FilterHits hits;

    // `missing`: the words of the text that no category around the row has in its name.
    bool showsFeature(const FeatureRow& row, RowFilter::Words missing)
    {
        const bool passes = filter.passesLevel(row);
        if (filter.text().isEmpty()) {
            return passes;
        }
        if (missing != 0 && filter.inRow(row, missing) != missing) {
            return false;
        }
        if (passes) {
            hits.shown.push_back(&row);
        } else {
            ++hits.aboveLevel;
        }
        return passes;
    }

    bool shows(FeatureRow& row, RowFilter::Words missing)
    {
        if (!row.isCategory()) {
            return showsFeature(row, missing);
        }
        const bool some = applyBelow(row, missing & ~filter.inName(row, missing));
        const bool isEmpty = row.children.empty() && filter.text().isEmpty();
        return some || (isEmpty && filter.passesLevel(row));
    }

    // Returns whether one of the rows below is to be seen.
    bool applyBelow(FeatureRow& parent, RowFilter::Words missing)
    {
        bool some = false;
        for (const auto& child : parent.children) {
            const bool shown = shows(*child, missing);
            some = some || shown;
            if (std::exchange(child->hidden, !shown) == shown) {
                view.setRowHidden(child->position, model.indexOf(&parent), !shown);
            }
        }
        return some;
    }
};

} // namespace

FilterHits showHits(QTreeView& view, FeatureModel& model, const RowFilter& filter)
{
    Hider hider { view, model, filter, {} };
    hider.applyBelow(model.root(), filter.allWords());
    return hider.hits;
}

} // namespace featurebrowser
