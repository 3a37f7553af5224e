#pragma once

#include <QFrame>

class QLabel;
class QToolButton;

namespace featurebrowser {

class FeatureTreeView;
struct FeatureRow;

/// Shows a row's message right below it, over the rows that follow, until it is dismissed or the
/// message goes. Plain text; scrolls with its row.
class MessageCallout : public QFrame {
    Q_OBJECT

public:
    /// A child of the tree's viewport.
    explicit MessageCallout(FeatureTreeView* tree);

    /// Shows the row's message; a row without one hides the callout.
    void showRow(const FeatureRow* row);
    /// Follows its row: call when rows have moved or changed.
    void follow();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    FeatureTreeView* m_tree;
    QLabel* m_text;
    QToolButton* m_close;
    std::string m_rowName; ///< empty = nothing to show
};

} // namespace featurebrowser
