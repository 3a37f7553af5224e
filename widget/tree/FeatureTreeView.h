// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "model/FeatureModel.h"
#include "model/RowFilter.h"
#include "model/TypedName.h"
#include "tree/ChangeMarks.h"
#include "tree/RowHider.h"
#include "tree/RowsOnScreen.h"

#include <QTreeView>

#include <unordered_set>

namespace featurebrowser {

class FeatureDelegate;
class ValueWriter;

/// The tree on the screen: hides what level and filter leave out, and keeps updates cheap, since
/// QTreeView searches all its rows for every one that changed.
class FeatureTreeView : public QTreeView {
    Q_OBJECT

public:
    /// `model` and `writer` are not owned and have to outlive the view.
    FeatureTreeView(FeatureModel* model, ValueWriter* writer, QWidget* parent);

    FeatureModel& features() const { return *m_features; }
    FeatureDelegate& delegate() const { return *m_delegate; }
    const RowFilter& filter() const { return m_filter; }
    /// Shows and hides rows at once.
    void setFilter(const RowFilter& filter);
    /// What the filter's text finds.
    const FilterHits& hits() const { return m_hits; }
    /// Place of the current row among the hits, from 0; -1 when it is none.
    int currentHit() const;
    /// Makes the next hit (or the one before) current: first the one whose name the text is.
    void goToHit(bool forward);
    /// The row of the current index; null when there is none.
    FeatureRow* currentRow() const;
    /// Makes the row current, its ancestors expanded, and scrolls to it.
    void showRow(const FeatureRow& row);
    ChangeMarks& marks() const { return *m_marks; }
    /// Collapses all categories but the ones that the row stands in.
    void collapseOthers(const std::string& name);
    /// Scrolls to that place once the rows that are being added are all there.
    void scrollLater(int place);
    /// Takes the focus, on the first feature that the filter shows when the current row is hidden.
    void focusFirstHit();
    /// Opens the row's editor, presses its button, toggles it, or opens and closes a category.
    void activate(const FeatureRow& row);
    /// Commands whose names fit one of these wildcard patterns are not run before
    /// confirmationWanted has been answered by the user.
    QStringList confirmedCommands;
    /// Goes to the next (or previous) row that can be edited and opens its editor.
    void editNeighbour(const FeatureRow& row, bool forward);
    /// Where the row is on the screen over all columns; empty when it is not there.
    QRect rowRect(const FeatureRow& row);

    /// Where the longest value of the rows in an area ends, from the leading edge of the viewport.
    int valueWidth(const QRect& area);

    void doItemsLayout() override;
    void reset() override;
    void dataChanged(const QModelIndex& topLeft, const QModelIndex& bottomRight,
        const QVector<int>& roles = {}) override;

Q_SIGNALS:
    void scrollWanted(int place);
    /// The user has given a column another width.
    void columnChosen(int column, int width);
    /// Another row became current through the user; null = none.
    void currentRowChanged(featurebrowser::FeatureRow* row);
    /// The user wants to run a command that throws work away.
    void confirmationWanted(const featurebrowser::FeatureRow& row);
    /// Escape, where it has nothing else to end.
    void dismissed();
    /// The rows on the screen have moved.
    void moved();

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void keyboardSearch(const QString& typed) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void rowsInserted(const QModelIndex& parent, int start, int end) override;
    void paintEvent(QPaintEvent* event) override;
    void drawBranches(
        QPainter* painter, const QRect& rect, const QModelIndex& index) const override;
    void scrollContentsBy(int dx, int dy) override;
    void updateGeometries() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void applyFilter();
    void shareColumns();
    void columnResized(int column, int width);
    void chooseNameWidth(int width);
    void openHits();
    void closeHits();
    void leaveHiddenRow();
    void returnToLeftRow();
    void leaveRowsBelow(const QModelIndex& category);
    bool isRepeated(const QKeyEvent& event) const;
    bool activateByKey(const QKeyEvent& event);
    bool editByKey(const QKeyEvent& event);
    void explain(const FeatureRow& row);
    bool isOnButton(const QModelIndex& index, const QPoint& position) const;
    void updateRow(const FeatureRow& row);

    FeatureModel* m_features;
    ValueWriter* m_writer;
    ChangeMarks* m_marks;
    FeatureDelegate* m_delegate;
    QPersistentModelIndex m_pressed; ///< where the mouse button went down
    bool m_isQuiet = false; ///< a row becomes current without the user
    RowFilter m_filter;
    FilterHits m_hits;
    std::string m_left; ///< the current row before the filter hid it
    TypedName m_typed;
    int m_releasedKey = 0;
    ulong m_releasedAt = 0; ///< the window system's time
    bool m_isTyping = false; ///< a row becomes current by its typed name
    std::unordered_set<std::string> m_openedForHits; ///< categories that were closed before
    bool m_filterStale = false; ///< rows were added that have not been filtered
    bool m_layoutPending = true; ///< everything is painted again soon
    double m_nameShare = 0.46; ///< of the name column in the width
    int m_nameWidth = 0; ///< wanted before the view had a place; 0 = none
    bool m_isSharing = false; ///< columns follow the width, by themselves
    RowsOnScreen m_onScreen;
};

} // namespace featurebrowser
