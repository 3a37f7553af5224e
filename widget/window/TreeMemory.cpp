// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#include "window/TreeMemory.h"

#include "tree/FeatureTreeView.h"

#include <QScrollBar>

namespace featurebrowser {

void TreeMemory::store(FeatureTreeView& tree)
{
    FeatureModel& model = tree.features();
    if (model.root().children.empty()) {
        return; // emptied twice: what it looked like before still holds
    }
    *this = TreeMemory();
    m_scroll = tree.verticalScrollBar()->value();
    if (const FeatureRow* row = tree.currentRow()) {
        m_current = row->name;
        m_currentColumn = tree.currentIndex().column();
        m_description = row->extras().description;
    }
    model.forEachCategory([&](const FeatureRow& category) {
        m_known.insert(category.name);
        if (tree.isExpanded(model.indexOf(&category))) {
            m_expanded.insert(category.name);
        }
    });
}

void TreeMemory::restore(FeatureTreeView& tree, FeatureRow& row)
{
    constexpr int smallTree = 1000;
    FeatureModel& model = tree.features();
    if (row.isCategory()) {
        const bool isNew = m_known.count(row.name) == 0;
        const bool isTop = row.parent == &model.root();
        const bool opens
            = isNew ? isTop && model.rowCountTotal() <= smallTree : m_expanded.count(row.name) != 0;
        if (opens) {
            tree.expand(model.indexOf(&row));
        }
    }
    if (m_current.empty() || row.name != m_current) {
        return;
    }
    m_current.clear();
    model.setDescription(row, m_description);
    tree.setCurrentIndex(model.indexOf(&row, m_currentColumn));
    tree.scrollLater(m_scroll);
}

} // namespace featurebrowser
