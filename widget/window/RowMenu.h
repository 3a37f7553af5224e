// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include <QMenu>

namespace featurebrowser {

struct FeatureRow;

/// What can be done with one row, or with the tree around it. Copies by itself and asks for
/// everything else; deletes itself when it is closed.
class RowMenu : public QMenu {
    Q_OBJECT

public:
    /// What depends on more than the row.
    struct Offer {
        bool isPinned = false;
        bool hasMatrix = false; ///< the row is a selector whose entries can be shown
        QString undo; ///< the step that undo would take, in words; empty = none, as the next
        QString redo;
    };

    RowMenu(const FeatureRow& row, const Offer& offer, QWidget* parent);

Q_SIGNALS:
    void pinWanted(bool pinned);
    void matrixWanted();
    void undoWanted();
    void redoWanted();
    void changesWanted();
    void collapseOthersWanted();
    void expandAllWanted();
    void collapseAllWanted();

private:
    void addCopyActions(const FeatureRow& row);
    void addFeatureActions(const Offer& offer);
    void addHistoryActions(const Offer& offer);
    void addTreeActions();
};

} // namespace featurebrowser
