// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QHash>
#include <QRect>

#include <vector>

QT_BEGIN_NAMESPACE
class QTreeView;
QT_END_NAMESPACE

namespace featurebrowser {

struct FeatureRow;

/// Where the rows in the viewport are. QTreeView searches all its rows for the place of one; here
/// it is looked up, so that an update costs the same in every tree.
class RowsOnScreen {
public:
    /// `view` is not owned and has rows of one height.
    explicit RowsOnScreen(QTreeView& view)
        : m_view(view)
    {
    }

    /// The rows may have moved: they are looked for again before the next answer.
    void invalidate() { m_isStale = true; }
    /// No row of before is there any more.
    void clear();
    /// The row over all columns, in the viewport's coordinates; empty when it is not there.
    QRect rectOf(const FeatureRow& row);
    /// The rows that stand, at least partly, in an area of the viewport.
    std::vector<const FeatureRow*> rowsIn(const QRect& area);

private:
    void findRows();

    QTreeView& m_view;
    QHash<const FeatureRow*, int> m_tops;
    int m_height = 0; ///< of every row
    bool m_isStale = true;
};

} // namespace featurebrowser
