#pragma once

#include <QMenu>

namespace featurebrowser {

class FeatureTreeView;
class WatchStrip;
struct FeatureRow;

/// "Width=640"; a category gives the rows that are to be seen in it one to a line, sub-categories
/// headed "[Name]".
QString rowAsText(const FeatureRow& row);

/// What can be done with one row, or with the tree around it.
class RowMenu : public QMenu {
    Q_OBJECT

public:
    RowMenu(FeatureTreeView& tree, WatchStrip& watch, const FeatureRow& row, QWidget* parent);

Q_SIGNALS:
    void matrixWanted(const std::string& selector);

private:
    void addCopyActions(const FeatureRow& row);
    void addTreeActions(const FeatureRow& row);
    void addWatchActions(const FeatureRow& row);

    FeatureTreeView& m_tree;
    WatchStrip& m_watch;
};

} // namespace featurebrowser
