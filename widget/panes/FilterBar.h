// SPDX-FileCopyrightText: the ZQFeatureBrowser authors
//
// SPDX-License-Identifier: MIT

#pragma once

#include "featurebrowser/FeatureTypes.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
QT_END_NAMESPACE

namespace featurebrowser {

/// The line above the tree: what to find, at which level, and how far to open the tree.
class FilterBar : public QWidget {
    Q_OBJECT

public:
    explicit FilterBar(QWidget* parent);

    void focusField();
    QString text() const;
    TYPE_LEVEL level() const;
    void setLevel(TYPE_LEVEL level);
    /// How many features the text finds, and which of them is current (from 0, -1 = none). Without
    /// a text nothing is shown.
    void setHits(int count, int current);
    /// How many features the text finds beyond the level; 0 hides the button that reveals them.
    void setHitsAboveLevel(int count);

Q_SIGNALS:
    void textChanged();
    /// The user chose a level.
    void levelChosen(featurebrowser::TYPE_LEVEL level);
    void expandAll();
    void collapseAll();
    /// Enter: the next hit, with Shift the one before; the field keeps the focus.
    void hitWanted(bool forward);
    /// The user has found what was looked for and goes on in the tree.
    void finished();

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void makeField();
    void makeLevels();
    void placeHits();

    QLineEdit* m_field;
    QLabel* m_hits;
    QPushButton* m_reveal;
    QComboBox* m_levels;
    TYPE_LEVEL m_level = LEVEL_GURU;
};

} // namespace featurebrowser
