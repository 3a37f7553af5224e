// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "tree/RowsOnScreen.h"

#include "model/FeatureModel.h"

#include <QTreeView>

namespace featurebrowser {

void RowsOnScreen::clear()
{
    m_tops.clear();
    invalidate();
}

QRect RowsOnScreen::rectOf(const FeatureRow& row)
{
    if (m_isStale) {
        findRows();
    }
    const auto found = m_tops.constFind(&row);
    if (found == m_tops.constEnd()) {
        return {};
    }
    return { 0, *found, m_view.viewport()->width(), m_height };
}

std::vector<const FeatureRow*> RowsOnScreen::rowsIn(const QRect& area)
{
    if (m_isStale) {
        findRows();
    }
    std::vector<const FeatureRow*> rows;
    for (auto row = m_tops.cbegin(); row != m_tops.cend(); ++row) {
        if (row.value() <= area.bottom() && row.value() + m_height > area.top()) {
            rows.push_back(row.key());
        }
    }
    return rows;
}

void RowsOnScreen::findRows()
{
    m_tops.clear();
    m_isStale = false;
    const int bottom = m_view.viewport()->height();
    QModelIndex index = m_view.indexAt(QPoint(m_view.viewport()->width() / 2, 0));
    if (!index.isValid()) {
        return;
    }
    index = index.siblingAtColumn(NameColumn);
    const QRect first = m_view.visualRect(index);
    m_height = first.height();
    for (int top = first.top(); index.isValid() && top < bottom; top += m_height) {
        m_tops.insert(FeatureModel::row(index), top);
        index = m_view.indexBelow(index);
    }
}

} // namespace featurebrowser
