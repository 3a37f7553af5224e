#pragma once

#include "FeatureModel.h"
#include "RowFilter.h"

#include <QHash>
#include <QTreeView>

namespace featurebrowser {

/// The tree on the screen: hides what level and filter leave out, and keeps updates cheap, since
/// QTreeView searches all its rows for every one that changed.
class FeatureTree : public QTreeView {
    Q_OBJECT

public:
    explicit FeatureTree(FeatureModel* model, QWidget* parent = nullptr);

    FeatureModel& features() const { return *m_features; }
    const RowFilter& filter() const { return m_filter; }
    /// Shows and hides rows at once.
    void setFilter(const RowFilter& filter);
    /// Rows that the filter text finds but the level hides.
    int hitsAboveLevel() const { return m_hitsAboveLevel; }
    /// The row of the current index; null when there is none.
    FeatureRow* currentRow() const;
    /// Makes the row current, its ancestors expanded, and scrolls to it.
    void showRow(const FeatureRow& row);
    /// Where the row is on the screen over all columns; empty when it is not there.
    QRect rowRect(const FeatureRow& row);

    void doItemsLayout() override;
    void reset() override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
        const QVector<int>& roles = {}) override;

Q_SIGNALS:
    /// Another row became current through the user; null = none.
    void currentRowChanged(featurebrowser::FeatureRow* row);
    /// The rows on the screen have moved.
    void moved();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void drawBranches(
        QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;

private:
    void applyFilter();
    void updateRow(const FeatureRow& row);
    void findRowsOnScreen();

    FeatureModel* m_features;
    RowFilter m_filter;
    int m_hitsAboveLevel = 0;
    bool m_filterStale = false; ///< rows were added that have not been filtered
    bool m_layoutPending = true; ///< everything is painted again soon
    QHash<const FeatureRow*, int> m_onScreen; ///< top of the rows in the viewport
    bool m_onScreenStale = true;
    int m_rowHeight = 0;
};

} // namespace featurebrowser
