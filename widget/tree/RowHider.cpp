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

    bool showsFeature(const FeatureRow& row)
    {
        if (filter.passesLevel(row)) {
            const bool isHit = filter.isHit(row);
            hits.shown += isHit ? 1 : 0;
            return isHit;
        }
        if (!filter.text().isEmpty() && filter.isHit(row)) {
            ++hits.aboveLevel;
        }
        return false;
    }

    bool shows(FeatureRow& row)
    {
        if (!row.isCategory()) {
            return showsFeature(row);
        }
        const bool some = applyBelow(row);
        const bool isEmpty = row.children.empty() && filter.text().isEmpty();
        return some || (isEmpty && filter.passesLevel(row));
    }

    // Returns whether one of the rows below is to be seen.
    bool applyBelow(FeatureRow& parent)
    {
        bool some = false;
        for (const auto& child : parent.children) {
            const bool shown = shows(*child);
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
    hider.applyBelow(model.root());
    return hider.hits;
}

} // namespace featurebrowser
