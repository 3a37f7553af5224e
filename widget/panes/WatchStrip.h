#pragma once

#include "model/FeatureModel.h"

#include <QByteArrayList>
#include <QWidget>

#include <map>

class QGridLayout;
class QLabel;

namespace featurebrowser {

class GlyphButton;
class Sparkline;

/// The features that the user has pinned, above the tree: name, value and the line of recent
/// values. Pins stay when the tree is built anew.
class WatchStrip : public QWidget {
    Q_OBJECT

public:
    WatchStrip(FeatureModel* model, QWidget* parent);

    bool isPinned(const std::string& name) const { return m_watches.count(name) != 0; }
    void setPinned(const std::string& name, bool pinned);
    /// In the order in which they were pinned.
    QByteArrayList pinned() const;
    /// A value of the row has come from the camera, the same or another one.
    void valueSeen(const FeatureRow& row);
    void rowChanged(const FeatureRow& row);

Q_SIGNALS:
    void pinsChanged();

private:
    struct Watch {
        QLabel* name;
        QLabel* value;
        Sparkline* line;
        GlyphButton* unpin;
        int order;
    };

    void add(const std::string& name);
    void remove(const std::string& name);

    FeatureModel* m_model;
    QGridLayout* m_layout;
    std::map<std::string, Watch> m_watches;
    int m_count = 0; ///< pinned ever
};

} // namespace featurebrowser
