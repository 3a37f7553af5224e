// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

// What search and level show and hide, and how the user gets about in it.
#include "tree/FeatureTreeView.h"

#include "tree/FeatureDelegate.h"

#include <algorithm>
#include <utility>

namespace featurebrowser {

namespace {

/// Itself, or what it stands in.
bool isOut(const FeatureRow& row)
{
    return row.hidden || (row.parent != nullptr && isOut(*row.parent));
}

} // namespace

void FeatureTreeView::setFilter(const RowFilter& filter)
{
    m_filter = filter;
    m_delegate->setFilterWords(filter.words());
    applyFilter();
    viewport()->update(); // the same rows may show longer hits
    if (filter.text().isEmpty()) {
        returnToLeftRow();
        closeHits();
    } else {
        openHits();
    }
    if (const FeatureRow* row = currentRow(); row != nullptr && !row->hidden) {
        scrollTo(currentIndex());
    }
}

// Categories with hits are opened for as long as the filter lasts.
void FeatureTreeView::openHits()
{
    m_features->forEachCategory([this](const FeatureRow& category) {
        const QModelIndex index = m_features->indexOf(&category);
        if (category.hidden || isExpanded(index)) {
            return;
        }
        m_openedForHits.insert(category.name);
        expand(index);
    });
}

// What holds the current row stays open: the user has found it.
void FeatureTreeView::closeHits()
{
    for (const FeatureRow* row = currentRow(); row != nullptr; row = row->parent) {
        m_openedForHits.erase(row->name);
    }
    for (const std::string& name : std::exchange(m_openedForHits, {})) {
        collapse(m_features->indexOf(m_features->find(name)));
    }
}

int FeatureTreeView::currentHit() const
{
    const auto found = std::find(m_hits.shown.begin(), m_hits.shown.end(), currentRow());
    return found == m_hits.shown.end() ? -1 : static_cast<int>(found - m_hits.shown.begin());
}

void FeatureTreeView::goToHit(bool forward)
{
    const auto& hits = m_hits.shown;
    if (hits.empty()) {
        return;
    }
    const int count = static_cast<int>(hits.size());
    const int current = currentHit();
    int next
        = current < 0 ? (forward ? 0 : count - 1) : (current + (forward ? 1 : -1) + count) % count;
    if (current < 0 && forward) {
        const auto named = std::find_if(hits.begin(), hits.end(),
            [this](const FeatureRow* row) { return m_filter.isNameOf(*row); });
        next = named == hits.end() ? 0 : static_cast<int>(named - hits.begin());
    }
    showRow(*hits[static_cast<std::size_t>(next)]);
}

void FeatureTreeView::focusFirstHit()
{
    setFocus(Qt::ShortcutFocusReason);
    const FeatureRow* current = currentRow();
    if (current != nullptr && !current->isCategory()) {
        return;
    }
    if (!m_filter.text().isEmpty()) {
        goToHit(true);
        return;
    }
    QModelIndex index = indexAt(QPoint(viewport()->width() / 2, 0));
    while (index.isValid() && FeatureModel::row(index)->isCategory()) {
        index = indexBelow(index);
    }
    if (index.isValid()) {
        setCurrentIndex(index.siblingAtColumn(ValueColumn));
    }
}

// A row that is not to be seen is never current: keys would act on it.
void FeatureTreeView::leaveHiddenRow()
{
    const FeatureRow* current = currentRow();
    if (current != nullptr && isOut(*current)) {
        m_delegate->revert();
        const std::string left = current->name;
        setCurrentIndex({});
        m_left = left;
    }
}

void FeatureTreeView::returnToLeftRow()
{
    const FeatureRow* left = m_left.empty() ? nullptr : m_features->find(m_left);
    if (left != nullptr && !isOut(*left) && !currentIndex().isValid()) {
        showRow(*left);
    }
}

void FeatureTreeView::leaveRowsBelow(const QModelIndex& category)
{
    const FeatureRow* const closed = FeatureModel::row(category);
    const FeatureRow* row = currentRow();
    while (row != nullptr && row != closed) {
        row = row->parent;
    }
    if (row != nullptr && row != currentRow()) {
        m_delegate->revert();
        setCurrentIndex(category);
    }
}

void FeatureTreeView::applyFilter()
{
    m_filterStale = false;
    m_hits = showHits(*this, *m_features, m_filter);
    leaveHiddenRow();
}

} // namespace featurebrowser
