// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "row/FeatureRow.h"

#include <QFrame>

namespace featurebrowser {

class FeatureTreeView;

/// A frame that stands at a row of the tree and goes with it: beside the value where there is room,
/// otherwise below or above the row.
class RowCallout : public QFrame {
    Q_OBJECT

public:
    /// `tree` is not owned and has to outlive the callout.
    explicit RowCallout(FeatureTreeView* tree);

    /// Puts the callout where its row is now; hides it when the row is not there any more.
    void follow();

protected:
    /// Shows the callout at this row; null hides it.
    void setRow(const FeatureRow* row);
    const std::string& rowName() const { return m_rowName; }
    FeatureTreeView& tree() const { return *m_tree; }
    /// Room at the leading edge for the sign.
    int signWidth() const;

    /// Whether there still is something to say at the row.
    virtual bool isWanted(const FeatureRow& row) const = 0;
    /// The callout is about to be seen at the row.
    virtual void showContent(const FeatureRow& row) = 0;
    void paintEvent(QPaintEvent* event) override;

private:
    QRect place(const QRect& row) const;
    int heightFor(int width) const;

    FeatureTreeView* m_tree;
    std::string m_rowName; ///< empty = nothing to say
};

} // namespace featurebrowser
