// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "model/FeatureModel.h"

#include <QByteArrayList>
#include <QScrollArea>

QT_BEGIN_NAMESPACE
class QTreeView;
class QVBoxLayout;
QT_END_NAMESPACE

namespace featurebrowser {

class PinLine;

/// The features that the user has pinned, above the tree and in line with its columns: name, value
/// and the line of recent values. Pins stay when the tree is built anew. Takes at most a third of
/// the window's height, then it scrolls. Tab comes to one pin, up and down go on from there.
class PinStrip : public QScrollArea {
    Q_OBJECT

public:
    /// `model` is not owned and has to outlive the strip; `window` is what it takes its part of.
    PinStrip(FeatureModel* model, QWidget* window);

    /// The tree whose columns the strip stands in line with; not owned, has to outlive the strip.
    void alignWith(QTreeView* tree);
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
    /// The user wants to see this row, which is not hidden.
    void rowWanted(const featurebrowser::FeatureRow& row);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct Pin {
        std::string feature;
        PinLine* line;
    };
    using Pins = std::vector<Pin>;

    void add(const std::string& name);
    void remove(const std::string& name);
    Pins::const_iterator find(const std::string& name) const;
    void showAll();
    void showPin(const Pin& pin) const;
    void goTo(const Pin& pin);
    void focus(std::size_t position);
    void fitHeight();
    void align();

    FeatureModel* m_model;
    QWidget* m_window;
    QTreeView* m_tree = nullptr;
    QVBoxLayout* m_layout;
    Pins m_pins; ///< the oldest first
};

} // namespace featurebrowser
