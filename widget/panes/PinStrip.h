#pragma once

#include "model/FeatureModel.h"

#include <QByteArrayList>
#include <QWidget>

class QGridLayout;
class QLabel;

namespace featurebrowser {

class GlyphButton;
class Sparkline;

/// The features that the user has pinned, above the tree: name, value and the line of recent
/// values. Pins stay when the tree is built anew.
class PinStrip : public QWidget {
    Q_OBJECT

public:
    /// `model` is not owned and has to outlive the strip.
    PinStrip(FeatureModel* model, QWidget* parent);

    bool isPinned(const std::string& name) const { return find(name) != m_pins.end(); }
    void setPinned(const std::string& name, bool pinned);
    /// Names of the pinned features, in the order in which they were pinned.
    QByteArrayList pinned() const;
    /// Pins these features and no others; those that are pinned already keep their place.
    void pinOnly(const QByteArrayList& names);
    /// A value of the row has come from the camera, the same or another one.
    void valueSeen(const FeatureRow& row);

Q_SIGNALS:
    void pinsChanged();

private:
    struct Pin {
        std::string feature;
        QLabel* name;
        QLabel* value;
        Sparkline* line;
        GlyphButton* unpin;
    };

    void add(const std::string& name);
    void remove(const std::string& name);
    std::vector<Pin>::const_iterator find(const std::string& name) const;
    void showValue(const FeatureRow& row);

    FeatureModel* m_model;
    QGridLayout* m_layout;
    std::vector<Pin> m_pins; ///< the oldest first
    int m_nextLine = 0; ///< of the grid; lines of pins that are gone stay empty
};

} // namespace featurebrowser
