// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/FeatureRow.h"

#include <unordered_set>

namespace featurebrowser {

class FeatureTreeView;

/// Remembers by names how a tree looked, so that it looks the same when it is built anew.
class TreeMemory {
public:
    /// Before the tree is emptied.
    void store(FeatureTreeView& tree);
    /// Brings one row that was just added into the state it had. New categories of the first level
    /// are opened as long as the tree is small.
    void restore(FeatureTreeView& tree, FeatureRow& row);

private:
    std::unordered_set<std::string> m_known; ///< categories
    std::unordered_set<std::string> m_expanded;
    std::string m_current;
    std::string m_description; ///< of the current row
    int m_currentColumn = 0;
    int m_scroll = 0; ///< pixels
};

} // namespace featurebrowser
